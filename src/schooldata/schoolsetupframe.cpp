#include "schoolsetupframe.h"
#include "codecombo.h"
#include "screen.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
template<typename Widget>
Widget *named(Widget *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

int valueOf(const QLineEdit *field)
{
    return field->text().trimmed().toInt();
}

QString numberText(int value)
{
    return value > 0 ? QString::number(value) : QString();
}
}

SchoolSetupFrame::SchoolSetupFrame(const SchoolSetupService &service, QWidget *parent)
    : QFrame(parent), m_service(service)
{
    setObjectName(QStringLiteral("fraMain"));
    setFrameShape(QFrame::StyledPanel);
    buildFields();
    buildLayout();
}

void SchoolSetupFrame::buildFields()
{
    m_txtSchoolName = named(new QLineEdit(this), "txtSchoolName");
    m_txtAddress1 = named(new QLineEdit(this), "txtAddress1");
    m_txtAddress2 = named(new QLineEdit(this), "txtAddress2");
    for (QLineEdit *field : {m_txtSchoolName, m_txtAddress1, m_txtAddress2}) {
        field->setMaxLength(100);
        field->setMinimumWidth(300);
    }
    m_dbcStateName = named(new QComboBox(this), "dbcStateName");
    m_dbcCityName = named(new QComboBox(this), "dbcCityName");
    m_cmdAddState = named(new QPushButton(QStringLiteral("+"), this), "cmdAddState");
    m_cmdAddState->setToolTip(QStringLiteral("Add a state in State Master"));
    m_cmdAddCityName = named(new QPushButton(QStringLiteral("+"), this), "cmdAddCityName");
    m_cmdAddCityName->setToolTip(QStringLiteral("Add a city in City Master"));
    m_txtPincode = named(new QLineEdit(this), "txtPincode");
    m_txtPincode->setMaxLength(15);

    m_txtNoOfWorkingDays = named(new QLineEdit(this), "txtNoOfWorkingDays");
    m_txtPeriodsPerDay = named(new QLineEdit(this), "txtPeriodsPerDay");
    m_txtPeriodsOnLastWorkingDay = named(new QLineEdit(this), "txtPeriodsOnLastWorkingDay");
    m_txtPeriodsInMorningSession = named(new QLineEdit(this), "txtPeriodsInMorningSession");
    Screen::DigitsOnly(m_txtNoOfWorkingDays, 1);
    for (QLineEdit *field : {m_txtPeriodsPerDay, m_txtPeriodsOnLastWorkingDay, m_txtPeriodsInMorningSession})
        Screen::DigitsOnly(field, 2);
    for (QLineEdit *field : {m_txtNoOfWorkingDays, m_txtPeriodsPerDay, m_txtPeriodsOnLastWorkingDay,
                             m_txtPeriodsInMorningSession})
        field->setMaximumWidth(60);
    m_cboFirstDayOfTheWeek = named(new QComboBox(this), "cboFirstDayOfTheWeek");
    m_cmdPeriodDetails = named(new QPushButton(QStringLiteral("&Period Details"), this), "cmdPeriodDetails");
}

void SchoolSetupFrame::buildLayout()
{
    const auto withAdd = [](QComboBox *combo, QPushButton *add) {
        auto *row = new QHBoxLayout;
        row->addWidget(combo, 1);
        row->addWidget(add);
        add->setMaximumWidth(add->sizeHint().height() + 6);
        return row;
    };
    const auto caption = [this](const QString &text, QWidget *buddy) {
        auto *label = new QLabel(text, this);
        label->setBuddy(buddy);
        return label;
    };
    auto *school = new QFormLayout;
    school->addRow(QStringLiteral("School Name :"), m_txtSchoolName);
    school->addRow(QStringLiteral("Address1 :"), m_txtAddress1);
    school->addRow(QStringLiteral("Address2 :"), m_txtAddress2);
    school->addRow(caption(QStringLiteral("S&tate Name :"), m_dbcStateName),
                   withAdd(m_dbcStateName, m_cmdAddState));
    school->addRow(caption(QStringLiteral("C&ity Name :"), m_dbcCityName),
                   withAdd(m_dbcCityName, m_cmdAddCityName));
    school->addRow(QStringLiteral("PinCode :"), m_txtPincode);

    auto *week = new QFormLayout;
    week->addRow(QStringLiteral("No. Of Working Days :"), m_txtNoOfWorkingDays);
    week->addRow(QStringLiteral("Periods Per Day :"), m_txtPeriodsPerDay);
    week->addRow(QStringLiteral("Periods On Last Working Day :"), m_txtPeriodsOnLastWorkingDay);
    week->addRow(QStringLiteral("Periods In Morning Session :"), m_txtPeriodsInMorningSession);
    week->addRow(QStringLiteral("First Day Of The Week :"), m_cboFirstDayOfTheWeek);
    week->addRow(QString(), m_cmdPeriodDetails);

    auto *divider = new QFrame(this);
    divider->setFrameShape(QFrame::VLine);
    divider->setFrameShadow(QFrame::Sunken);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(school, 3);
    layout->addWidget(divider);
    layout->addLayout(week, 2);
}

void SchoolSetupFrame::refreshLists()
{
    const int city = CodeCombo::code(m_dbcCityName);
    CodeCombo::fill(m_dbcStateName, m_service.states(), false, CodeCombo::code(m_dbcStateName));
    fillCities(CodeCombo::code(m_dbcStateName), city);
    if (m_cboFirstDayOfTheWeek->count() == 0)
        CodeCombo::fill(m_cboFirstDayOfTheWeek, m_service.weekdays(), true);
}

void SchoolSetupFrame::fillCities(int stateCode, int cityCode)
{
    CodeCombo::fill(m_dbcCityName, m_service.cities(stateCode), false, cityCode);
}

void SchoolSetupFrame::showRecord(const SchoolSetupRecord &record)
{
    m_txtSchoolName->setText(record.schoolName);
    m_txtAddress1->setText(record.address1);
    m_txtAddress2->setText(record.address2);
    {
        const QSignalBlocker blocker(m_dbcStateName);
        CodeCombo::select(m_dbcStateName, record.stateCode);
    }
    fillCities(record.stateCode, record.cityCode);
    m_txtPincode->setText(record.pincode);
    m_txtNoOfWorkingDays->setText(numberText(record.noOfWorkingDays));
    m_txtPeriodsPerDay->setText(numberText(record.periodsPerDay));
    m_txtPeriodsOnLastWorkingDay->setText(numberText(record.periodsOnLastWorkingDay));
    m_txtPeriodsInMorningSession->setText(numberText(record.periodsInMorningSession));
    selectFirstDay(record.firstDay);
}

void SchoolSetupFrame::selectFirstDay(int originalDayCode)
{
    CodeCombo::select(m_cboFirstDayOfTheWeek, originalDayCode);
}

SchoolSetupRecord SchoolSetupFrame::record() const
{
    SchoolSetupRecord record;
    record.schoolName = m_txtSchoolName->text().trimmed();
    record.address1 = m_txtAddress1->text().trimmed();
    record.address2 = m_txtAddress2->text().trimmed();
    record.stateCode = m_dbcStateName->currentData().toInt();
    record.cityCode = m_dbcCityName->currentData().toInt();
    record.pincode = m_txtPincode->text().trimmed();
    record.noOfWorkingDays = valueOf(m_txtNoOfWorkingDays);
    record.periodsPerDay = valueOf(m_txtPeriodsPerDay);
    record.periodsOnLastWorkingDay = valueOf(m_txtPeriodsOnLastWorkingDay);
    record.periodsInMorningSession = valueOf(m_txtPeriodsInMorningSession);
    record.firstDay = m_cboFirstDayOfTheWeek->currentData().toInt();
    return record;
}

QWidget *SchoolSetupFrame::widgetOf(SetupField field) const
{
    switch (field) {
    case SetupField::SchoolName: return m_txtSchoolName;
    case SetupField::Address1: return m_txtAddress1;
    case SetupField::State: return m_dbcStateName;
    case SetupField::City: return m_dbcCityName;
    case SetupField::Pincode: return m_txtPincode;
    case SetupField::NoOfWorkingDays: return m_txtNoOfWorkingDays;
    case SetupField::PeriodsPerDay: return m_txtPeriodsPerDay;
    case SetupField::PeriodsOnLastWorkingDay: return m_txtPeriodsOnLastWorkingDay;
    case SetupField::PeriodsInMorningSession: return m_txtPeriodsInMorningSession;
    case SetupField::FirstDay: return m_cboFirstDayOfTheWeek;
    case SetupField::PeriodDetails:
    case SetupField::None: break;
    }
    return nullptr;
}
