#include "frmcombinedsubjectentry.h"
#include "codecombo.h"
#include "frmcombinedsubjectentrysearch.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

using Combined::SubjectRow;

namespace {

const QStringList Headers = {QStringLiteral("Teacher Name"), QStringLiteral("Class"), QStringLiteral("Division"),
                             QStringLiteral("Subject"),      QStringLiteral("No. Of Periods"),
                             QStringLiteral("TeacherCode"),  QStringLiteral("ClassCode"),
                             QStringLiteral("DivisionCode"), QStringLiteral("SubjectCode"),
                             QStringLiteral("CTGroupNo")};

QList<QStringList> cells(const QList<SubjectRow> &rows)
{
    QList<QStringList> list;
    for (const SubjectRow &row : rows) {
        list.append({row.teacherName, row.className, row.divisionName, row.subjectName, QString::number(row.periods),
                     QString::number(row.key.teacher), QString::number(row.key.classCode),
                     QString::number(row.key.division), QString::number(row.key.subject),
                     QString::number(row.ctGroupNo)});
    }
    return list;
}

QLabel *hint(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setStyleSheet(QStringLiteral("color: palette(mid);"));
    return label;
}

}

frmCombinedSubjectEntry::frmCombinedSubjectEntry(AppContext &ctx, QWidget *parent)
    : CombinedEntryForm(ctx, Combined::Kind::Subject, parent), m_service(ctx.db())
{
    m_fraDisplay = new QGroupBox(QStringLiteral("Allotments Of The Class-Division"), this);
    m_fraDisplay->setObjectName(QStringLiteral("fraDisplay"));
    m_cboClass = CombinedUi::combo(m_fraDisplay, QStringLiteral("cboClass"));
    m_cboDivision = CombinedUi::combo(m_fraDisplay, QStringLiteral("cboDivision"));
    m_msgDisplay = CombinedUi::grid(m_fraDisplay, QStringLiteral("msgDisplay"), Headers, 5, {4});

    auto *choose = new QHBoxLayout;
    choose->addWidget(new QLabel(QStringLiteral("Class :"), m_fraDisplay));
    choose->addWidget(m_cboClass);
    choose->addSpacing(16);
    choose->addWidget(new QLabel(QStringLiteral("Division :"), m_fraDisplay));
    choose->addWidget(m_cboDivision);
    choose->addStretch();
    choose->addWidget(hint(QStringLiteral("Click a row to add it to the group"), m_fraDisplay));
    auto *display = new QVBoxLayout(m_fraDisplay);
    display->addLayout(choose);
    display->addWidget(m_msgDisplay, 1);

    m_fraMain = new QGroupBox(QStringLiteral("Combined Subject Group"), this);
    m_fraMain->setObjectName(QStringLiteral("fraMain"));
    m_msgCombinedSubjects = CombinedUi::grid(m_fraMain, QStringLiteral("msgCombinedSubjects"), Headers, 5, {4});
    auto *group = new QVBoxLayout(m_fraMain);
    group->addWidget(hint(QStringLiteral("Click a row to take it out of the group"), m_fraMain), 0, Qt::AlignRight);
    group->addWidget(m_msgCombinedSubjects, 1);

    auto *content = new QVBoxLayout;
    content->addWidget(m_fraDisplay, 1);
    content->addWidget(m_fraMain, 1);
    resize(780, 600);

    connect(m_cboClass, &QComboBox::activated, this, &frmCombinedSubjectEntry::classChosen);
    connect(m_cboDivision, &QComboBox::activated, this, &frmCombinedSubjectEntry::divisionChosen);
    connect(m_msgDisplay, &QTableWidget::cellClicked, this, &frmCombinedSubjectEntry::candidateClicked);
    connect(m_msgCombinedSubjects, &QTableWidget::cellClicked, this, &frmCombinedSubjectEntry::memberClicked);

    finish(content, {m_fraDisplay, m_fraMain});
}

void frmCombinedSubjectEntry::clearEntry()
{
    m_candidates.clear();
    m_members.clear();
    showGrids();
    CombinedUi::fill(m_cboDivision, {});
    CombinedUi::fill(m_cboClass, m_groups.classes());
}

void frmCombinedSubjectEntry::showGroup(const Combined::Key &, int groupNo)
{
    m_members = m_service.members(groupNo);
    showGrids();
}

void frmCombinedSubjectEntry::showGrids()
{
    CombinedUi::show(m_msgDisplay, cells(m_candidates));
    CombinedUi::show(m_msgCombinedSubjects, cells(m_members));
}

void frmCombinedSubjectEntry::classChosen()
{
    Screen::guarded(m_ctx, [this] {
        CombinedUi::fill(m_cboDivision, m_groups.divisionsOf(CodeCombo::code(m_cboClass)));
    });
}

void frmCombinedSubjectEntry::divisionChosen()
{
    const int classCode = CodeCombo::code(m_cboClass);
    const int division = CodeCombo::code(m_cboDivision);
    if (classCode <= 0 || division <= 0)
        return;
    Screen::guarded(m_ctx, [&] {
        const Combined::CandidateLoad load =
            m_service.loadCandidates(classCode, division, m_candidates, m_members, editing());
        if (!load.refusal.isEmpty()) {
            m_ctx.messages->information(load.refusal);
            return;
        }
        m_candidates.append(load.rows);
        showGrids();
    });
}

void frmCombinedSubjectEntry::candidateClicked(int row)
{
    if (!changing() || row < 0 || row >= m_candidates.size())
        return;
    Screen::guarded(m_ctx, [&] {
        if (!accept(m_service.checkPick(m_candidates.at(row), m_members, editing())))
            return;
        m_members.append(m_candidates.takeAt(row));
        showGrids();
    });
}

void frmCombinedSubjectEntry::memberClicked(int row)
{
    if (!changing() || row < 0 || row >= m_members.size())
        return;
    Screen::guarded(m_ctx, [&] {
        if (!accept(m_service.checkDrop(m_members.at(row), editing())))
            return;
        m_candidates.append(m_members.takeAt(row));
        showGrids();
    });
}

bool frmCombinedSubjectEntry::saveEntry()
{
    Combined::SubjectDraft draft;
    draft.classCode = CodeCombo::code(m_cboClass);
    draft.division = CodeCombo::code(m_cboDivision);
    draft.members = m_members;
    draft.editing = editing();
    draft.kept = keptKey();
    draft.groupNo = groupNo();
    if (!accept(m_service.checkSave(draft)))
        return false;
    m_service.save(draft);
    return true;
}

QWidget *frmCombinedSubjectEntry::firstField() const
{
    return m_cboClass;
}

CombinedSearchForm *frmCombinedSubjectEntry::createSearchForm()
{
    return new frmCombinedSubjectEntrySearch(m_ctx, this);
}
