#include "teacherdetailsframe.h"
#include "codecombo.h"
#include "messageservice.h"
#include "optionaldateedit.h"
#include "screen.h"
#include "session.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>


namespace {

// A field sized for about `chars` characters, for the short codes and numbers of the screen.
void narrow(QWidget *field, int chars)
{
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QString(chars, QLatin1Char('W'))) + 24);
}

QString numberText(int value)
{
    return value > 0 ? QString::number(value) : QString();
}

QLineEdit *line(QWidget *parent, const char *name, int maxLength)
{
    auto *field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setMaxLength(maxLength);
    return field;
}

QComboBox *combo(QWidget *parent, const char *name)
{
    auto *list = new QComboBox(parent);
    list->setObjectName(QString::fromLatin1(name));
    return list;
}

// The add buttons open a reference master beside the screen.
QPushButton *addButton(QWidget *parent, const char *name, const QString &tip)
{
    auto *button = new QPushButton(QStringLiteral("+"), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tip);
    button->setFixedWidth(button->sizeHint().height() + 4);
    return button;
}

OptionalDateEdit *date(QWidget *parent, const char *name)
{
    auto *field = new OptionalDateEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    narrow(field, 9);
    return field;
}

QLabel *caption(QGridLayout *grid, int row, int column, const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text, grid->parentWidget());
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(buddy);
    grid->addWidget(label, row, column);
    return label;
}

void place(QGridLayout *grid, int row, int column, const QString &text, QWidget *field)
{
    caption(grid, row, column, text, field);
    grid->addWidget(field, row, column + 1);
}

void place(QGridLayout *grid, int row, int column, const QString &text, QLayout *fields, QWidget *buddy)
{
    caption(grid, row, column, text, buddy);
    grid->addLayout(fields, row, column + 1);
}

QHBoxLayout *rowOf(std::initializer_list<QWidget *> widgets, QWidget *stretching = nullptr, bool trailingStretch = false)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(4);
    for (QWidget *widget : widgets)
        row->addWidget(widget, widget == stretching ? 1 : 0);
    if (trailingStretch)
        row->addStretch(1);
    return row;
}

// Radio buttons of one parent cannot all be off while they exclude each other.
void clearOptions(std::initializer_list<QRadioButton *> options)
{
    for (QRadioButton *option : options) {
        option->setAutoExclusive(false);
        option->setChecked(false);
        option->setAutoExclusive(true);
    }
}

}

TeacherDetailsFrame::TeacherDetailsFrame(AppContext &ctx, const TeacherService &service, QWidget *parent)
    : QGroupBox(parent), m_ctx(ctx), m_service(service)
{
    setObjectName(QStringLiteral("fraMain"));
    auto *grid = new QGridLayout(this);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    grid->setColumnMinimumWidth(2, 28);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(4, 2);
    buildNameAndAddress(grid);
    buildPersonal(grid);
    grid->setRowStretch(9, 1);

    // The frame is locked while a chosen teacher is only shown: keep the record easy to read then.
    QPalette locked = palette();
    locked.setColor(QPalette::Disabled, QPalette::WindowText, locked.color(QPalette::Active, QPalette::WindowText));
    locked.setColor(QPalette::Disabled, QPalette::ButtonText, locked.color(QPalette::Active, QPalette::WindowText));
    const QColor text = locked.color(QPalette::Active, QPalette::Text);
    const QColor faded = locked.color(QPalette::Disabled, QPalette::Text);
    locked.setColor(QPalette::Disabled, QPalette::Text,
                    QColor((text.red() * 2 + faded.red()) / 3, (text.green() * 2 + faded.green()) / 3,
                           (text.blue() * 2 + faded.blue()) / 3));
    setPalette(locked);

    connect(m_cmdAddSalutationName, &QPushButton::clicked, this,
            [this] { emit masterWanted(QStringLiteral("frmSalutationMaster")); });
    connect(m_cmdAddStateName, &QPushButton::clicked, this, [this] { emit masterWanted(QStringLiteral("frmStateMaster")); });
    connect(m_cmdAddCityName, &QPushButton::clicked, this, [this] { emit masterWanted(QStringLiteral("frmCityMaster")); });
    connect(m_cmdAddBloodGroup, &QPushButton::clicked, this,
            [this] { emit masterWanted(QStringLiteral("frmBloodGroupMaster")); });
    // Another state empties the city.
    connect(m_dbcStateName, &QComboBox::currentIndexChanged, this, [this] {
        if (!m_showing)
            loadCities(0);
    });
    connect(m_txtNoOfPeriods, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (!m_showing)
            emit periodsTyped(text);
    });
    connect(m_txtNoOfPeriods, &QLineEdit::editingFinished, this, &TeacherDetailsFrame::periodsLeft);
    connect(m_dtpDOB, &OptionalDateEdit::dateEdited, this, [this](const QDate &date) {
        if (!m_showing)
            emit dateOfBirthEdited(date);
    });
    // A single teacher has no wedding date.
    connect(m_optSingle, &QRadioButton::toggled, this, [this](bool single) {
        if (single)
            m_dtpWedding->clear();
        m_dtpWedding->setEnabled(!single);
    });
}

void TeacherDetailsFrame::buildNameAndAddress(QGridLayout *grid)
{
    m_dbcSalutationName = combo(this, "dbcSalutationName");
    m_dbcSalutationName->setToolTip(QStringLiteral("Salutation"));
    narrow(m_dbcSalutationName, 4);
    m_cmdAddSalutationName = addButton(this, "cmdAddSalutationName", QStringLiteral("Add a salutation in Salutation Master"));
    m_txtTeacherName = line(this, "txtTeacherName", 100);
    m_txtTeacherName->setMinimumWidth(220);
    place(grid, 0, 0, QStringLiteral("Teacher Name :"),
          rowOf({m_dbcSalutationName, m_cmdAddSalutationName, m_txtTeacherName}, m_txtTeacherName), m_txtTeacherName);
    m_txtTeacherShortName = line(this, "txtTeacherShortName", 3);
    narrow(m_txtTeacherShortName, 4);
    place(grid, 1, 0, QStringLiteral("Teacher's Short Name :"), m_txtTeacherShortName);
    m_txtFHName = line(this, "txtFHName", 100);
    place(grid, 2, 0, QStringLiteral("Father/Spouse Name :"), m_txtFHName);
    m_txtAddress1 = line(this, "txtAddress1", 100);
    place(grid, 3, 0, QStringLiteral("Address1 :"), m_txtAddress1);
    m_txtAddress2 = line(this, "txtAddress2", 100);
    place(grid, 4, 0, QStringLiteral("Address2 :"), m_txtAddress2);
    m_dbcStateName = combo(this, "dbcStateName");
    m_cmdAddStateName = addButton(this, "cmdAddStateName", QStringLiteral("Add a state in State Master"));
    place(grid, 5, 0, QStringLiteral("S&tate Name :"), rowOf({m_dbcStateName, m_cmdAddStateName}, m_dbcStateName),
          m_dbcStateName);
    m_dbcCityName = combo(this, "dbcCityName");
    m_cmdAddCityName = addButton(this, "cmdAddCityName", QStringLiteral("Add a city in City Master"));
    place(grid, 6, 0, QStringLiteral("C&ity Name :"), rowOf({m_dbcCityName, m_cmdAddCityName}, m_dbcCityName),
          m_dbcCityName);
    m_txtPincode = line(this, "txtPincode", 15);
    narrow(m_txtPincode, 10);
    place(grid, 7, 0, QStringLiteral("PinCode :"), m_txtPincode);

}

void TeacherDetailsFrame::buildPersonal(QGridLayout *grid)
{
    m_dtpDOB = date(this, "dtpDOB");
    place(grid, 0, 3, QStringLiteral("Date Of Birth :"), m_dtpDOB);
    m_optMarried = new QRadioButton(QStringLiteral("Married"), this);
    m_optMarried->setObjectName(QStringLiteral("optMarried"));
    m_optSingle = new QRadioButton(QStringLiteral("Single"), this);
    m_optSingle->setObjectName(QStringLiteral("optSingle"));
    place(grid, 1, 3, QStringLiteral("Marital Status :"), rowOf({m_optMarried, m_optSingle}, nullptr, true),
          m_optMarried);
    m_dtpWedding = date(this, "dtpWedding");
    place(grid, 2, 3, QStringLiteral("Wedding Date :"), m_dtpWedding);
    m_dtpJoining = date(this, "dtpJoining");
    place(grid, 3, 3, QStringLiteral("Joining Date :"), m_dtpJoining);
    m_txtTelephone = line(this, "txtTelephone", 20);
    narrow(m_txtTelephone, 12);
    place(grid, 4, 3, QStringLiteral("Telephone :"), m_txtTelephone);
    m_dbcBloodGroup = combo(this, "dbcBloodGroup");
    narrow(m_dbcBloodGroup, 5);
    m_cmdAddBloodGroup = addButton(this, "cmdAddBloodGroup", QStringLiteral("Add a blood group in Blood Group Master"));
    place(grid, 5, 3, QStringLiteral("&Blood Group :"), rowOf({m_dbcBloodGroup, m_cmdAddBloodGroup}, nullptr, true),
          m_dbcBloodGroup);
    m_txtQualification = line(this, "txtQualification", 50);
    m_txtQualification->setMinimumWidth(200);
    place(grid, 6, 3, QStringLiteral("Qualification :"), m_txtQualification);
    m_txtNoOfPeriods = line(this, "txtNoOfPeriods", 3);
    Screen::DigitsOnly(m_txtNoOfPeriods, 3);
    narrow(m_txtNoOfPeriods, 3);
    auto *perWeek = new QLabel(QStringLiteral("Per Week"), this);
    place(grid, 7, 3, QStringLiteral("No. Of Working Periods :"), rowOf({m_txtNoOfPeriods, perWeek}, nullptr, true),
          m_txtNoOfPeriods);
    m_txtSeniorityNo = line(this, "txtSeniorityNo", 3);
    Screen::DigitsOnly(m_txtSeniorityNo, 3);
    narrow(m_txtSeniorityNo, 3);
    place(grid, 8, 3, QStringLiteral("Seniority No. :"), m_txtSeniorityNo);
}

void TeacherDetailsFrame::refreshLists()
{
    QScopedValueRollback<bool> showing(m_showing, true);
    CodeCombo::fill(m_dbcSalutationName, m_service.salutations(), false, CodeCombo::code(m_dbcSalutationName));
    CodeCombo::fill(m_dbcStateName, m_service.states(), false, CodeCombo::code(m_dbcStateName));
    CodeCombo::fill(m_dbcBloodGroup, m_service.bloodGroups(), false, CodeCombo::code(m_dbcBloodGroup));
    CodeCombo::fill(m_dbcCityName, m_service.cities(CodeCombo::code(m_dbcStateName)), false,
                    CodeCombo::code(m_dbcCityName));
}

void TeacherDetailsFrame::loadCities(int keepCityCode)
{
    Screen::guarded(m_ctx, [&] {
        CodeCombo::fill(m_dbcCityName, m_service.cities(CodeCombo::code(m_dbcStateName)), false, keepCityCode);
    });
}

void TeacherDetailsFrame::display(const Teacher &t)
{
    QScopedValueRollback<bool> showing(m_showing, true);
    CodeCombo::select(m_dbcSalutationName, t.salutationCode);
    m_txtTeacherName->setText(t.name);
    m_txtTeacherShortName->setText(t.shortName);
    m_txtFHName->setText(t.fhName);
    m_txtAddress1->setText(t.address1);
    m_txtAddress2->setText(t.address2);
    CodeCombo::select(m_dbcStateName, t.stateCode);
    loadCities(t.cityCode);
    m_txtPincode->setText(t.pincode);
    m_dtpDOB->setDate(t.dob);
    clearOptions({m_optMarried, m_optSingle});
    m_optMarried->setChecked(t.maritalStatus == QLatin1String("M"));
    m_optSingle->setChecked(t.maritalStatus == QLatin1String("S"));
    m_dtpWedding->setDate(t.weddingDate);
    m_dtpJoining->setDate(t.joiningDate);
    m_txtTelephone->setText(t.telephone);
    CodeCombo::select(m_dbcBloodGroup, t.bloodGroupCode);
    m_txtQualification->setText(t.qualification);
    m_txtNoOfPeriods->setText(numberText(t.noOfPeriods));
    m_txtSeniorityNo->setText(numberText(t.seniorityNo));
}

Teacher TeacherDetailsFrame::entered(const Teacher &base) const
{
    Teacher t = base;
    t.salutationCode = CodeCombo::code(m_dbcSalutationName);
    t.name = m_txtTeacherName->text().trimmed();
    t.shortName = m_txtTeacherShortName->text().trimmed();
    t.fhName = m_txtFHName->text().trimmed();
    t.address1 = m_txtAddress1->text().trimmed();
    t.address2 = m_txtAddress2->text().trimmed();
    t.stateCode = CodeCombo::code(m_dbcStateName);
    t.cityCode = CodeCombo::code(m_dbcCityName);
    t.pincode = m_txtPincode->text().trimmed();
    t.dob = m_dtpDOB->date();
    t.maritalStatus = m_optMarried->isChecked() ? QStringLiteral("M")
                      : m_optSingle->isChecked() ? QStringLiteral("S")
                                                 : QString();
    t.weddingDate = m_dtpWedding->date();
    t.joiningDate = m_dtpJoining->date();
    t.telephone = m_txtTelephone->text().trimmed();
    t.bloodGroupCode = CodeCombo::code(m_dbcBloodGroup);
    t.qualification = m_txtQualification->text().trimmed();
    t.noOfPeriods = m_txtNoOfPeriods->text().toInt();
    t.seniorityNo = m_txtSeniorityNo->text().toInt();
    return t;
}

void TeacherDetailsFrame::clear()
{
    QScopedValueRollback<bool> showing(m_showing, true);
    Screen::ClearControls(this);
    for (OptionalDateEdit *date : {m_dtpDOB, m_dtpWedding, m_dtpJoining})
        date->clear();
    clearOptions({m_optMarried, m_optSingle});
    m_dtpWedding->setEnabled(true);
    loadCities(0);
}

void TeacherDetailsFrame::focusField(TeacherRefusal::Field field)
{
    using Field = TeacherRefusal::Field;
    switch (field) {
    case Field::Salutation: return m_dbcSalutationName->setFocus();
    case Field::TeacherName: return m_txtTeacherName->setFocus();
    case Field::ShortName: return m_txtTeacherShortName->setFocus();
    case Field::City: return m_dbcCityName->setFocus();
    case Field::NoOfPeriods: return m_txtNoOfPeriods->setFocus();
    case Field::JoiningDate: return m_dtpJoining->takeFocus();
    case Field::WeddingDate: return m_dtpWedding->takeFocus();
    case Field::DateOfBirth: return m_dtpDOB->takeFocus();
    }
}

QString TeacherDetailsFrame::periodsText() const
{
    return m_txtNoOfPeriods->text();
}

void TeacherDetailsFrame::clearPeriods()
{
    m_txtNoOfPeriods->clear();
}

void TeacherDetailsFrame::setDateOfBirth(const QDate &date)
{
    QScopedValueRollback<bool> showing(m_showing, true);
    m_dtpDOB->setDate(date);
}
