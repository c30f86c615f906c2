// The selection, the clicks on both weeks and the panels of frmManualPeriodsEntry.
#include "frmmanualperiodsentry.h"
#include "codecombo.h"
#include "manuallists.h"
#include "manualwidgets.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace {
// A list with the blank row first; refills are not the user's choice, so they stay silent.
void refill(QComboBox *combo, const QList<CodeName> &items)
{
    CodeCombo::fill(combo, items, true);
}

// Shows the panel with its rows; a group with no rows keeps its panel hidden.
void showRows(ManualPanel *panel, QTableWidget *grid, const QList<QStringList> &rows)
{
    fillListGrid(grid, rows);
    panel->setVisible(!rows.isEmpty());
}
}

ManualEntry frmManualPeriodsEntry::entry()
{
    return ManualEntry(m_ctx.db(), m_calendar, *m_ctx.messages);
}

void frmManualPeriodsEntry::loadClasses()
{
    refill(m_cboClass, ManualLists(m_ctx.db()).classes());
}

void frmManualPeriodsEntry::classChosen()
{
    hideAllPanels();
    clearPanels();
    m_selection = {CodeCombo::code(m_cboClass), 0, 0, 0};
    m_lblTeacherName->clear();
    m_cmdTeachersFree->setEnabled(false);
    m_cmdTeachersClassesFree->setEnabled(false);
    refill(m_cboSubject, {});
    Screen::guarded(m_ctx, [this] { refill(m_cboDivision, ManualLists(m_ctx.db()).divisions(m_selection.classCode)); });
    refresh();
}

void frmManualPeriodsEntry::divisionChosen()
{
    hideAllPanels();
    clearPanels();
    m_selection.division = CodeCombo::code(m_cboDivision);
    m_selection.subject = 0;
    m_selection.teacher = 0;
    m_lblTeacherName->clear();
    m_cmdTeachersFree->setEnabled(false);
    m_cmdTeachersClassesFree->setEnabled(false);
    refill(m_cboSubject, {});
    refresh();
    if (m_selection.division > 0)
        Screen::guarded(m_ctx, [this] {
            refill(m_cboSubject, ManualLists(m_ctx.db()).subjects(m_selection.classCode, m_selection.division));
        });
}

void frmManualPeriodsEntry::subjectChosen()
{
    m_cmdTeachersFree->setEnabled(false);
    m_cmdTeachersClassesFree->setEnabled(false);
    m_fraTeachersFree->hide();
    m_fraTeachersClassesFree->hide();
    m_lblTeacherName->clear();
    m_selection.teacher = 0;
    m_selection.subject = CodeCombo::code(m_cboSubject);
    clearPanels();
    if (m_selection.subject > 0) {
        Screen::guarded(m_ctx, [this] {
            const ManualLists::SubjectChoice choice =
                ManualLists(m_ctx.db()).subjectChoice(m_selection.classCode, m_selection.division, m_selection.subject);
            m_subjectShortName = choice.shortName;
            m_groups = choice.groups;
            m_selection.teacher = choice.teacher;
            m_lblTeacherName->setText(choice.teacherName);
        });
        const bool combinedSubject = m_groups.cp > 0;
        m_cmdTeachersFree->setEnabled(combinedSubject);
        m_cmdTeachersClassesFree->setEnabled(combinedSubject);
        showCombinedSubject();
        showCombinedClass();
        showCombinedTeacher();
    }
    refresh();
}

void frmManualPeriodsEntry::cancel()
{
    {
        const QSignalBlocker silent(m_cboClass);
        m_cboClass->setCurrentIndex(0);
    }
    refill(m_cboDivision, {});
    refill(m_cboSubject, {});
    m_selection = {};
    hideAllPanels();
    m_cmdTeachersFree->setEnabled(false);
    m_cmdTeachersClassesFree->setEnabled(false);
    m_lblTeacherName->clear();
    clearPanels();
    refresh();
    m_cboClass->setFocus();
}

void frmManualPeriodsEntry::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void frmManualPeriodsEntry::openTeachersTimeTable()
{
    if (m_ctx.host)
        m_ctx.host->openScreen(QStringLiteral("frmrptTeacherTT"));
}

// An empty cell places the selection there; a filled one removes the teacher's entry of that slot.
void frmManualPeriodsEntry::teacherCellClicked(int row, int column)
{
    if (!m_msgTeacher->isPeriodColumn(column) || !m_selection.complete() || m_selection.teacher <= 0)
        return;
    const PeriodSlot slot{m_msgTeacher->dayCodeAt(row), column};
    const bool empty = m_msgTeacher->cellText(row, column).isEmpty();
    ManualEntry::Result result = ManualEntry::Result::Nothing;
    Screen::guarded(m_ctx, [&] {
        result = empty ? entry().place(m_selection, slot) : entry().removeTeacherEntry(m_selection.teacher, slot);
    });
    // A refusal may follow a confirmed Modify that has already taken the old entry away.
    if (result != ManualEntry::Result::Nothing)
        refresh();
}

void frmManualPeriodsEntry::classCellClicked(int row, int column)
{
    if (!m_msgClass->isPeriodColumn(column) || m_selection.classCode <= 0 || m_selection.division <= 0)
        return;
    if (m_msgClass->cellText(row, column).isEmpty()) {
        m_ctx.messages->information(QStringLiteral("If You Want To Allot Timetable, Click In 'Teacher TimeTable' Area"));
        return;
    }
    const PeriodSlot slot{m_msgClass->dayCodeAt(row), column};
    ManualEntry::Result result = ManualEntry::Result::Nothing;
    Screen::guarded(m_ctx, [&] {
        result = entry().removeClassEntry(m_selection.classCode, m_selection.division, slot);
    });
    if (result == ManualEntry::Result::Removed)
        refresh();
}

void frmManualPeriodsEntry::refresh()
{
    rebuildGrids();
    fillClassGrid();
    fillTeacherGrid();
    // Open panels of free slots and open periods follow what the click changed.
    if (m_fraTeachersFree->isVisible())
        showTeachersFree();
    if (m_fraTeachersClassesFree->isVisible())
        showTeachersClassesFree();
    if (m_fraPeriodsToBeFilled->isVisible())
        fillPeriodsToBeFilled();
}

void frmManualPeriodsEntry::rebuildGrids()
{
    m_msgClass->rebuild(m_layout, m_calendar);
    m_msgTeacher->rebuild(m_layout, m_calendar);
    m_lblAllotedPeriods->clear();
    m_lblOccupiedPeriods->clear();
    if (m_selection.complete() && m_selection.teacher > 0)
        Screen::guarded(m_ctx, [this] {
            m_lblAllotedPeriods->setText(
                QString::number(ManualWeek(m_ctx.db(), m_calendar).allottedPeriods(m_selection)));
        });
}

void frmManualPeriodsEntry::fillClassGrid()
{
    if (m_selection.classCode <= 0 || m_selection.division <= 0)
        return;
    Screen::guarded(m_ctx, [this] {
        m_msgClass->showWeek(ManualWeek(m_ctx.db(), m_calendar).classWeek(m_selection), m_selection.teacher > 0);
    });
}

void frmManualPeriodsEntry::fillTeacherGrid()
{
    if (m_selection.classCode <= 0 || m_selection.division <= 0 || m_selection.teacher <= 0)
        return;
    Screen::guarded(m_ctx, [this] {
        const WeekGrid week = ManualWeek(m_ctx.db(), m_calendar).teacherWeek(m_selection);
        m_msgTeacher->showWeek(week, true);
        m_lblOccupiedPeriods->setText(QString::number(week.occupied));
    });
}

void frmManualPeriodsEntry::clearPanels()
{
    for (QTableWidget *grid : {m_msgCombined, m_msgCombinedClass, m_msgCombinedTeacher})
        grid->setRowCount(0);
    for (ManualPanel *panel : {m_fraCombined, m_fraCombinedClass, m_fraCombinedTeacher})
        panel->hide();
    m_groups = {};
}

void frmManualPeriodsEntry::hideAllPanels()
{
    for (ManualPanel *panel : {m_fraCombined, m_fraCombinedClass, m_fraCombinedTeacher, m_fraTeachersFree,
                               m_fraTeachersClassesFree, m_fraPeriodsToBeFilled})
        panel->hide();
    m_msgPeriodsToBeFilled->setRowCount(0);
    m_lblTeachersFree->clear();
    m_lblTeachersClassesFree->clear();
}

void frmManualPeriodsEntry::showCombinedSubject()
{
    Screen::guarded(m_ctx, [this] {
        showRows(m_fraCombined, m_msgCombined, ManualLists(m_ctx.db()).combinedSubjectRows(m_groups.cp));
    });
}

void frmManualPeriodsEntry::showCombinedClass()
{
    Screen::guarded(m_ctx, [this] {
        showRows(m_fraCombinedClass, m_msgCombinedClass, ManualLists(m_ctx.db()).combinedClassRows(m_groups.cc));
    });
}

void frmManualPeriodsEntry::showCombinedTeacher()
{
    Screen::guarded(m_ctx, [this] {
        showRows(m_fraCombinedTeacher, m_msgCombinedTeacher, ManualLists(m_ctx.db()).combinedTeacherRows(m_groups.ct));
    });
}

void frmManualPeriodsEntry::showTeachersFree()
{
    if (m_groups.cp <= 0)
        return;
    Screen::guarded(m_ctx, [this] {
        m_lblTeachersFree->setText(ManualWeek(m_ctx.db(), m_calendar).teachersFree(m_groups.cp));
        m_fraTeachersFree->open();
    });
}

void frmManualPeriodsEntry::showTeachersClassesFree()
{
    if (m_groups.cp <= 0)
        return;
    Screen::guarded(m_ctx, [this] {
        m_lblTeachersClassesFree->setText(ManualWeek(m_ctx.db(), m_calendar).teachersClassesFree(m_groups.cp));
        m_fraTeachersClassesFree->open();
    });
}

void frmManualPeriodsEntry::showPeriodsToBeFilled()
{
    if (m_selection.classCode <= 0 || m_selection.division <= 0)
        return;
    fillPeriodsToBeFilled();
    m_fraPeriodsToBeFilled->open(true);
}

void frmManualPeriodsEntry::fillPeriodsToBeFilled()
{
    Screen::guarded(m_ctx, [this] {
        QList<QStringList> rows;
        const auto lines =
            ManualWeek(m_ctx.db(), m_calendar).periodsToBeFilled(m_selection.classCode, m_selection.division);
        for (const SubjectBalance &line : lines)
            rows << QStringList{line.subjectName, QString::number(line.allotted), QString::number(line.filled),
                                QString::number(line.balance()), QString::number(line.subject)};
        fillListGrid(m_msgPeriodsToBeFilled, rows);
    });
}
