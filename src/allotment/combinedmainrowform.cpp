#include "combinedmainrowform.h"
#include "codecombo.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QString existingGroupQuestion(Combined::Kind kind)
{
    return kind == Combined::Kind::Class
        ? QStringLiteral("Combined Class Entry Already Exists For This Selection\nDo You Want To View The Details ?")
        : QStringLiteral("Combined Teacher Entry Already Exists For This Selection\nDo You Want To View The Details ?");
}

QLabel *valueLabel(QWidget *parent, const QString &name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(160);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}

CombinedMainRowForm::CombinedMainRowForm(AppContext &ctx, Combined::Kind kind, QWidget *parent)
    : CombinedEntryForm(ctx, kind, parent)
{
    m_fraMain = new QGroupBox(QStringLiteral("Main Class-Division-Subject"), this);
    m_fraMain->setObjectName(QStringLiteral("fraMain"));
    m_cboClass = CombinedUi::combo(m_fraMain, QStringLiteral("cboClass"));
    m_cboDivision = CombinedUi::combo(m_fraMain, QStringLiteral("cboDivision"));
    m_cboSubject = CombinedUi::combo(m_fraMain, QStringLiteral("cboSubject"));
    m_lblTeacherName = valueLabel(m_fraMain, QStringLiteral("lblTeacherName"));
    m_lblNoOfSectionPeriods = valueLabel(m_fraMain, QStringLiteral("lblNoOfSectionPeriods"));

    auto *fields = new QGridLayout(m_fraMain);
    fields->addWidget(new QLabel(QStringLiteral("Class :"), m_fraMain), 0, 0);
    fields->addWidget(m_cboClass, 0, 1);
    fields->addWidget(new QLabel(QStringLiteral("Division :"), m_fraMain), 1, 0);
    fields->addWidget(m_cboDivision, 1, 1);
    fields->addWidget(new QLabel(QStringLiteral("Subject :"), m_fraMain), 2, 0);
    fields->addWidget(m_cboSubject, 2, 1);
    fields->setColumnMinimumWidth(2, 24);
    fields->addWidget(new QLabel(QStringLiteral("Teacher :"), m_fraMain), 0, 3);
    fields->addWidget(m_lblTeacherName, 0, 4);
    fields->addWidget(new QLabel(QStringLiteral("No. Of Periods :"), m_fraMain), 1, 3);
    fields->addWidget(m_lblNoOfSectionPeriods, 1, 4);
    fields->setColumnStretch(1, 1);
    fields->setColumnStretch(4, 1);

    connect(m_cboClass, &QComboBox::activated, this, &CombinedMainRowForm::classChosen);
    connect(m_cboDivision, &QComboBox::activated, this, &CombinedMainRowForm::divisionChosen);
    connect(m_cboSubject, &QComboBox::activated, this, &CombinedMainRowForm::subjectChosen);
}

void CombinedMainRowForm::finishListed(const ListedParts &parts)
{
    m_firstAdd = parts.firstAdd;
    m_secondAdd = parts.secondAdd;
    m_removeQuestion = parts.removeQuestion;
    m_resetWhenPlaced = parts.resetWhenPlaced;

    m_fraAdd = new QGroupBox(parts.addCaption, this);
    m_fraAdd->setObjectName(QStringLiteral("fraAdd"));
    m_cmdAdd = new QPushButton(QStringLiteral("&Add"), m_fraAdd);
    m_cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    m_cmdAdd->setAutoDefault(false);
    auto *adding = new QHBoxLayout(m_fraAdd);
    adding->addWidget(new QLabel(parts.firstLabel, m_fraAdd));
    adding->addWidget(m_firstAdd, 1);
    adding->addSpacing(16);
    adding->addWidget(new QLabel(parts.secondLabel, m_fraAdd));
    adding->addWidget(m_secondAdd, 1);
    adding->addSpacing(16);
    adding->addWidget(m_cmdAdd);

    auto *listBox = new QGroupBox(parts.listCaption, this);
    m_msgDetails = CombinedUi::grid(listBox, QStringLiteral("msgDetails"), parts.headers, 2);
    auto *list = new QVBoxLayout(listBox);
    list->addWidget(m_msgDetails);

    auto *content = new QVBoxLayout;
    content->addWidget(m_fraMain);
    content->addWidget(m_fraAdd);
    content->addWidget(listBox, 1);
    resize(640, 520);

    connect(m_cmdAdd, &QPushButton::clicked, this, &CombinedMainRowForm::add);
    connect(m_msgDetails, &QTableWidget::cellClicked, this, &CombinedMainRowForm::listedClicked);

    finish(content, {m_fraMain, m_fraAdd});
}

QWidget *CombinedMainRowForm::firstField() const
{
    return m_cboClass;
}

int CombinedMainRowForm::chosenClass() const
{
    return CodeCombo::code(m_cboClass);
}

int CombinedMainRowForm::chosenDivision() const
{
    return CodeCombo::code(m_cboDivision);
}

int CombinedMainRowForm::chosenSubject() const
{
    return CodeCombo::code(m_cboSubject);
}

void CombinedMainRowForm::setMain(const Combined::MainRow &row)
{
    m_main = row;
    const bool shown = row.key.teacher > 0;
    m_lblTeacherName->setText(shown ? row.teacherName : QString());
    m_lblNoOfSectionPeriods->setText(shown ? QString::number(row.periods) : QString());
}

void CombinedMainRowForm::clearMain()
{
    setMain({});
    CombinedUi::fill(m_cboSubject, {});
    CombinedUi::fill(m_cboDivision, {});
    CombinedUi::fill(m_cboClass, m_groups.allottedClasses());
}

void CombinedMainRowForm::showMainOfGroup(const Combined::Key &shownKey, int groupNo)
{
    const std::optional<Combined::MainRow> main = m_groups.mainRowOfGroup(groupNo);
    const Combined::MainRow row = main ? *main
        : m_groups.mainRow(shownKey.classCode, shownKey.division, shownKey.subject).value_or(Combined::MainRow{});
    const Combined::Key &key = row.key;
    CombinedUi::fill(m_cboClass, m_groups.allottedClasses());
    CombinedUi::select(m_cboClass, key.classCode);
    CombinedUi::fill(m_cboDivision, m_groups.allottedDivisions(key.classCode));
    CombinedUi::select(m_cboDivision, key.division);
    CombinedUi::fill(m_cboSubject, m_groups.allottedSubjects(key.classCode, key.division));
    CombinedUi::select(m_cboSubject, key.subject);
    setMain(row);
}

void CombinedMainRowForm::clearAddFields()
{
    CombinedUi::select(m_firstAdd, 0);
    CombinedUi::fill(m_secondAdd, {});
}

void CombinedMainRowForm::showListCells(const QList<QStringList> &cells)
{
    CombinedUi::show(m_msgDetails, cells);
}

void CombinedMainRowForm::listedClicked(int row)
{
    if (!changing() || row < 0 || row >= listedCount())
        return;
    Screen::guarded(m_ctx, [&] {
        if (listedPlaced()) {
            m_ctx.messages->information(Combined::groupPlacedText());
            if (m_resetWhenPlaced)
                reset();
            return;
        }
        if (!m_ctx.messages->question(m_removeQuestion))
            return;
        removeListed(row);
    });
}

bool CombinedMainRowForm::mayChangeMain()
{
    bool placed = false;
    if (!Screen::guarded(m_ctx, [&] { placed = listedPlaced(); }))
        return false;
    if (!placed)
        return true;
    m_ctx.messages->information(Combined::groupPlacedText());
    reset();
    return false;
}

void CombinedMainRowForm::classChosen()
{
    if (!mayChangeMain())
        return;
    Screen::guarded(m_ctx, [this] {
        setMain({});
        CombinedUi::fill(m_cboSubject, {});
        CombinedUi::fill(m_cboDivision, m_groups.allottedDivisions(chosenClass()));
    });
}

void CombinedMainRowForm::divisionChosen()
{
    if (!mayChangeMain())
        return;
    Screen::guarded(m_ctx, [this] {
        setMain({});
        CombinedUi::fill(m_cboSubject, m_groups.allottedSubjects(chosenClass(), chosenDivision()));
    });
}

void CombinedMainRowForm::subjectChosen()
{
    if (!mayChangeMain())
        return;
    Screen::guarded(m_ctx, [this] {
        setMain({});
        if (chosenSubject() <= 0)
            return;
        const std::optional<Combined::MainRow> row = m_groups.mainRow(chosenClass(), chosenDivision(), chosenSubject());
        if (!row) {
            m_ctx.messages->information(QStringLiteral("The Selected Combination Is A System Generated Work Allotment Entry\nSo It Cannot Be Selected"));
            CombinedUi::select(m_cboSubject, 0);
            return;
        }
        setMain(*row);
        // A main row of another group of this kind: offer that group instead of a second one.
        const int existing = m_groups.groupOfMainRow(row->key);
        if (existing > 0 && existing != groupNo()) {
            if (m_ctx.messages->question(existingGroupQuestion(m_kind))) {
                loadChosenGroup(row->key, existing);
            } else {
                setMain({});
                CombinedUi::select(m_cboSubject, 0);
            }
            return;
        }
        if (m_groups.placedPeriods(row->key)) {
            m_ctx.messages->information(QStringLiteral("Time Table Entry Already Exists For This Selection"));
            m_cboSubject->setFocus();
        }
    });
}
