// Work Allotment Entry, second part: the grid's cells, their editors and keys, and the removal of a row.
// A cell opens only in order (class, division, subject, periods), and never on a row others depend on.
#include "frmworkallotmententry.h"
#include "codecombo.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

using namespace AllotmentColumn;

namespace {

void choose(QComboBox *combo, int code)
{
    const QSignalBlocker silent(combo);
    CodeCombo::select(combo, code);
}

}

bool frmWorkAllotmentEntry::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    // Enter on the grid does what a click on its current cell does.
    if (watched == m_msgDetails) {
        if (enter && m_msgDetails->currentRow() >= 0)
            cellClicked(m_msgDetails->currentRow(), m_msgDetails->currentColumn());
        return enter;
    }
    const bool isList = watched != m_txtPeriods;
    if (enter) {
        if (watched == m_cboTeacher)
            focusAfterLoad();
        else if (watched == m_cboClass)
            confirmClass();
        else if (watched == m_cboDivision)
            confirmUnique(DivisionName);
        else if (watched == m_cboSubject)
            confirmUnique(SubjectName);
        else
            confirmPeriods(true);
        return true;
    }
    if (isList && key == Qt::Key_Insert) {
        QPushButton *add = watched == m_cboTeacher ? m_cmdAddTeacherName
            : watched == m_cboSubject              ? m_cmdAddSubjectName
                                                   : m_cmdAddClassName;
        add->click();
        return true;
    }
    // Esc in a cell editor leaves the cell as it was before the editor opened; the next Esc, from the grid,
    // asks for Exit. In the teacher list it goes on to the screen conventions, which ask for Exit at once.
    if (key == Qt::Key_Escape && watched != m_cboTeacher) {
        closeCell();
        m_msgDetails->setFocus();
        return true;
    }
    if (watched == m_cboClass && key == Qt::Key_Delete) {
        removeRow(m_openRow, true);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Where the user goes once a teacher is chosen: Edit for a teacher with rows, else the first Class cell.
void frmWorkAllotmentEntry::focusAfterLoad()
{
    if (teacherCode() <= 0)
        return;
    if (m_mode == Mode::Showing)
        m_cmdEdit->setFocus();
    else if (m_mode == Mode::New)
        openCell(0, ClassName);
}

void frmWorkAllotmentEntry::cellClicked(int row, int column)
{
    if (!commitPendingPeriods())
        return;
    closeCell();
    const int teacher = teacherCode();
    if (teacher <= 0) {
        m_ctx.messages->information(QStringLiteral("Select Teacher"));
        clearLabels();
        m_msgDetails->reset(editing());
        m_cboTeacher->setFocus();
        return;
    }
    const AllotmentRow r = m_msgDetails->row(row);
    QString kind;
    GroupNumbers groups;
    bool classTeacher = false;
    int placed = 0;
    if (!Screen::guarded(m_ctx, [&] {
            groups = m_allotment.combinedGroups(teacher, r, &kind);
            classTeacher = r.hasKey() && m_allotment.isClassTeacherEntry(teacher, r);
            placed = m_allotment.placedCount(teacher, r);
        }))
        return;
    m_msgDetails->showGroups(row, groups);
    if (!groups.none()) {
        m_ctx.messages->information(QStringLiteral("You Cannot Edit This Row Because ") + kind
                                    + QStringLiteral(" Exists"));
        return;
    }
    if (r.hasKey()) {
        m_msgDetails->setText(row, UniformPeriod, classTeacher ? QStringLiteral("YES") : QString());
        m_msgDetails->setText(row, ClassTeacher, classTeacher ? QStringLiteral("Yes") : QString());
        if (classTeacher) {
            m_ctx.messages->information(QStringLiteral("You Cannot Edit This Row Because 'Class Teacher Entry' Exists For This Row"));
            return;
        }
    }
    const bool divisionAndSubject = !r.divisionName.isEmpty() && !r.subjectName.isEmpty();
    // A placed row keeps its key; only its periods may change.
    if (placed > 0) {
        if (column == Periods && divisionAndSubject) {
            if (editing())
                openCell(row, Periods);
        } else {
            m_ctx.messages->information(AllotmentTexts::timetableBlocksEdit());
        }
        return;
    }
    if (!editing())
        return;
    if (column == ClassName || (column == DivisionName && !r.className.isEmpty())
        || (column == SubjectName && !r.divisionName.isEmpty()) || (column == Periods && divisionAndSubject))
        openCell(row, column);
}

void frmWorkAllotmentEntry::openCell(int row, int column)
{
    closeCell();
    if (row < 0 || row >= m_msgDetails->rowCount())
        return;
    QWidget *editor = nullptr;
    switch (column) {
    case ClassName:
        choose(m_cboClass, m_msgDetails->code(row, ClassCode));
        editor = m_cboClass;
        break;
    case DivisionName:
        if (!Screen::guarded(m_ctx, [&] {
                CodeCombo::fill(m_cboDivision, m_allotment.divisions(m_msgDetails->code(row, ClassCode)), false,
                                m_msgDetails->code(row, DivisionCode));
            }))
            return;
        editor = m_cboDivision;
        break;
    case SubjectName:
        choose(m_cboSubject, m_msgDetails->code(row, SubjectCode));
        editor = m_cboSubject;
        break;
    case Periods:
        m_txtPeriods->setText(m_msgDetails->text(row, Periods));
        editor = m_txtPeriods;
        break;
    default:
        return;
    }
    QTableWidgetItem *cell = m_msgDetails->item(row, column);
    m_msgDetails->scrollToItem(cell);
    m_msgDetails->setCurrentCell(row, column);
    m_msgDetails->openPersistentEditor(cell);
    m_openRow = row;
    m_openColumn = column;
    editor->setFocus();
}

void frmWorkAllotmentEntry::closeCell()
{
    if (m_openRow >= 0 && m_openRow < m_msgDetails->rowCount())
        m_msgDetails->closePersistentEditor(m_msgDetails->item(m_openRow, m_openColumn));
    const QList<QWidget *> editors = {m_cboClass, m_cboDivision, m_cboSubject, m_txtPeriods};
    for (QWidget *editor : editors)
        editor->hide();
    m_openRow = -1;
    m_openColumn = -1;
}

void frmWorkAllotmentEntry::confirmClass()
{
    const int row = m_openRow;
    const int code = m_cboClass->currentData().toInt();
    if (m_openColumn != ClassName || code <= 0)
        return;
    // Another class leaves the division meaningless.
    if (code != m_msgDetails->code(row, ClassCode)) {
        m_msgDetails->setText(row, DivisionName, QString());
        m_msgDetails->setText(row, DivisionCode, QString());
    }
    m_msgDetails->setText(row, ClassName, m_cboClass->currentText());
    m_msgDetails->setText(row, ClassCode, QString::number(code));
    openCell(row, DivisionName);
}

// A division or a subject chosen in its cell is written to the row, and taken back when the row then repeats
// another row of the teacher.
void frmWorkAllotmentEntry::confirmUnique(int column)
{
    const bool division = column == DivisionName;
    QComboBox *combo = division ? m_cboDivision : m_cboSubject;
    const int codeColumn = division ? DivisionCode : SubjectCode;
    const int row = m_openRow;
    const int code = combo->currentData().toInt();
    if (m_openColumn != column || code <= 0)
        return;
    m_msgDetails->setText(row, column, combo->currentText());
    m_msgDetails->setText(row, codeColumn, QString::number(code));
    bool duplicate = false;
    if (!Screen::guarded(m_ctx, [&] { duplicate = m_allotment.isDuplicate(teacherCode(), m_msgDetails->rows(), row); }))
        return;
    if (duplicate) {
        m_ctx.messages->information(AllotmentTexts::duplicate());
        m_msgDetails->setText(row, column, QString());
        m_msgDetails->setText(row, codeColumn, QString());
        choose(combo, 0);
        combo->setFocus();
        return;
    }
    openCell(row, division ? SubjectName : Periods);
}

// Shows the sum in the label and warns when it passes the teacher's working periods.
bool frmWorkAllotmentEntry::refreshAllottedPeriods(bool warn)
{
    const int allotted = WorkAllotment::allottedPeriods(m_msgDetails->rows());
    m_lblAllotedPeriods->setText(QString::number(allotted));
    const bool over = !m_lblNoOfPeriods->text().isEmpty() && allotted > m_lblNoOfPeriods->text().toInt();
    m_lblAllotedPeriods->setStyleSheet(over ? QStringLiteral("color: #b00020; font-weight: bold;") : QString());
    if (over && warn)
        m_ctx.messages->information(AllotmentTexts::exceedsWorkingPeriods());
    return over;
}

// Writes the periods of the open cell; false when they were refused and the editor stays.
bool frmWorkAllotmentEntry::confirmPeriods(bool moveOn)
{
    const int row = m_openRow;
    if (m_openColumn != Periods)
        return true;
    const QString typed = m_txtPeriods->text().trimmed();
    const AllotmentRow r = m_msgDetails->row(row);
    int placed = 0;
    if (r.hasKey() && !Screen::guarded(m_ctx, [&] { placed = m_allotment.placedCount(teacherCode(), r); }))
        return false;
    if (placed > 0 && typed.toInt() < placed) {
        m_ctx.messages->information(AllotmentTexts::cannotReducePeriods());
        m_txtPeriods->setText(m_msgDetails->text(row, Periods));
        m_txtPeriods->selectAll();
        m_txtPeriods->setFocus();
        return false;
    }
    m_msgDetails->setText(row, Periods, typed.isEmpty() ? QString() : QString::number(typed.toInt()));
    m_txtPeriods->setText(m_msgDetails->text(row, Periods));
    if (refreshAllottedPeriods()) {
        m_txtPeriods->setFocus();
        return false;
    }
    if (moveOn)
        openNextRow(row);
    return true;
}

void frmWorkAllotmentEntry::openNextRow(int row)
{
    closeCell();
    if (row == m_msgDetails->rowCount() - 1)
        m_msgDetails->appendEmptyRow();
    const int next = row + 1;
    const AllotmentRow r = m_msgDetails->row(next);
    bool keptAsStored = false;
    if (r.hasKey()
        && !Screen::guarded(m_ctx, [&] {
               const int teacher = teacherCode();
               keptAsStored = !m_allotment.combinedGroups(teacher, r).none()
                   || m_allotment.isClassTeacherEntry(teacher, r) || m_allotment.placedCount(teacher, r) > 0;
           }))
        return;
    if (keptAsStored)
        m_msgDetails->setCurrentCell(next, ClassName);
    else
        openCell(next, ClassName);
}

// Periods typed but not yet confirmed are checked before the user moves elsewhere, as Enter would.
bool frmWorkAllotmentEntry::commitPendingPeriods()
{
    if (m_openColumn != Periods || m_txtPeriods->text().trimmed() == m_msgDetails->text(m_openRow, Periods))
        return true;
    return confirmPeriods(false);
}

void frmWorkAllotmentEntry::deleteRow()
{
    if (!commitPendingPeriods())
        return;
    closeCell();
    const int slNo = m_txtDeleteSlNo->text().toInt();
    if (slNo < 1 || slNo > m_msgDetails->usedRowCount()) {
        m_ctx.messages->information(QStringLiteral("No Row Exists"));
        m_txtDeleteSlNo->setFocus();
        return;
    }
    removeRow(slNo - 1, false);
}

// Takes a row out of the grid only; the store changes at Save. From the class cell's Delete key the row
// cannot be combined or a class teacher entry, as such rows never open that editor.
void frmWorkAllotmentEntry::removeRow(int row, bool fromClassCell)
{
    if (row < 0 || row >= m_msgDetails->usedRowCount())
        return;
    if (!m_ctx.messages->question(QStringLiteral("Do You Want To Delete Sl.No. ") + QString::number(row + 1)
                                  + QStringLiteral(" ?")))
        return;
    const AllotmentRow r = m_msgDetails->row(row);
    const int teacher = teacherCode();
    QString kind;
    GroupNumbers groups;
    bool classTeacher = false;
    int placed = 0;
    if (!Screen::guarded(m_ctx, [&] {
            if (!fromClassCell && r.hasKey()) {
                groups = m_allotment.combinedGroups(teacher, r, &kind);
                classTeacher = m_allotment.isClassTeacherEntry(teacher, r);
            }
            placed = m_allotment.placedCount(teacher, r);
        }))
        return;
    if (!groups.none()) {
        m_ctx.messages->information(QStringLiteral("You Cannot Delete This Row Because ") + kind
                                    + QStringLiteral(" Exists"));
        return;
    }
    if (classTeacher) {
        m_ctx.messages->information(QStringLiteral("You Cannot Delete This Row Because 'Class Teacher Entry' Exists For This Row"));
        return;
    }
    if (placed > 0) {
        const QString fromCell = QStringLiteral("TimeTable Entry Exists For This Class-Division-Subject\nSo You Cannot Delete This WorkAllotment Entry");
        const QString fromFrame = QStringLiteral("TimeTable Entry Exists For This Row\nSo You Cannot Delete This Row");
        m_ctx.messages->information(fromClassCell ? fromCell : fromFrame);
        return;
    }
    closeCell();
    m_msgDetails->removeRow(row);
    if (m_msgDetails->usedRowCount() == m_msgDetails->rowCount())
        m_msgDetails->appendEmptyRow();
    m_msgDetails->renumber();
    m_txtDeleteSlNo->clear();
    refreshAllottedPeriods();
    m_cmdSave->setFocus();
}
