#include "allotmentgrid.h"

#include <QHeaderView>
#include <QKeyEvent>

using namespace AllotmentColumn;

namespace {
QString groupText(int number)
{
    return number > 0 ? QString::number(number) : QString();
}

QString yes(bool flag, const char *word)
{
    return flag ? QString::fromLatin1(word) : QString();
}
}

AllotmentGrid::AllotmentGrid(QWidget *parent) : QTableWidget(0, Count, parent)
{
    setHorizontalHeaderLabels({QStringLiteral("Sl.No."), QStringLiteral("Class Name"),
                               QStringLiteral("Division Name"), QStringLiteral("Subject Name"),
                               QStringLiteral("Periods"), QStringLiteral("Combined Subject ID"),
                               QStringLiteral("Combined Class ID"), QStringLiteral("Combined Teacher ID"),
                               QStringLiteral("ClassCode"), QStringLiteral("DivisionCode"),
                               QStringLiteral("SubjectCode"), QStringLiteral("CCSystem"), QStringLiteral("CTSystem"),
                               QStringLiteral("ClassTeacherUniformPeriod"), QStringLiteral("Class Teacher")});
    for (int column = ClassCode; column <= UniformPeriod; ++column)
        setColumnHidden(column, true);
    // Long headers wrap onto two lines so that the group columns can stay narrow.
    horizontalHeader()->setDefaultAlignment(Qt::Alignment(int(Qt::AlignCenter) | int(Qt::TextWordWrap)));
    horizontalHeader()->setMinimumHeight(2 * fontMetrics().height() + 10);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(SubjectName, QHeaderView::Stretch);
    const QList<QPair<int, int>> widths = {{SlNo, 48},           {ClassName, 110},      {DivisionName, 100},
                                           {SubjectName, 170},   {Periods, 64},         {CombinedSubject, 84},
                                           {CombinedClass, 84},  {CombinedTeacher, 84}, {ClassTeacher, 70}};
    for (const auto &[column, width] : widths)
        setColumnWidth(column, width);
    verticalHeader()->hide();
    // Rows tall enough for a list editor to sit in a cell.
    verticalHeader()->setDefaultSectionSize(QComboBox().sizeHint().height() + 2);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setAlternatingRowColors(true);
    setWordWrap(false);
}

void AllotmentGrid::reset(bool numbered)
{
    setRowCount(0);
    appendEmptyRow();
    if (!numbered)
        setText(0, SlNo, QString());
}

void AllotmentGrid::showRows(const QList<AllotmentRow> &rows)
{
    setRowCount(0);
    for (const AllotmentRow &r : rows) {
        appendEmptyRow();
        const int at = rowCount() - 1;
        setText(at, ClassName, r.className);
        setText(at, DivisionName, r.divisionName);
        setText(at, SubjectName, r.subjectName);
        setPeriods(at, r.periods);
        showGroups(at, r.groups);
        setText(at, ClassCode, QString::number(r.classCode));
        setText(at, DivisionCode, QString::number(r.division));
        setText(at, SubjectCode, QString::number(r.subject));
        setText(at, CCSystem, r.ccSystem);
        setText(at, CTSystem, r.ctSystem);
        setText(at, UniformPeriod, yes(r.classTeacher, "YES"));
        setText(at, ClassTeacher, yes(r.classTeacher, "Yes"));
    }
    appendEmptyRow();
}

void AllotmentGrid::appendEmptyRow()
{
    const int at = rowCount();
    insertRow(at);
    for (int column = 0; column < columnCount(); ++column) {
        auto *item = new QTableWidgetItem;
        if (column == SlNo || column == Periods || column >= CombinedSubject)
            item->setTextAlignment(Qt::AlignCenter);
        setItem(at, column, item);
    }
    setText(at, SlNo, QString::number(at + 1));
}

void AllotmentGrid::renumber()
{
    for (int r = 0; r < rowCount(); ++r)
        setText(r, SlNo, QString::number(r + 1));
}

AllotmentRow AllotmentGrid::row(int r) const
{
    AllotmentRow row;
    row.classCode = code(r, ClassCode);
    row.division = code(r, DivisionCode);
    row.subject = code(r, SubjectCode);
    row.className = text(r, ClassName);
    row.divisionName = text(r, DivisionName);
    row.subjectName = text(r, SubjectName);
    row.periods = code(r, Periods);
    row.groups = {code(r, CombinedSubject), code(r, CombinedClass),
                  code(r, CombinedTeacher)};
    row.ccSystem = text(r, CCSystem);
    row.ctSystem = text(r, CTSystem);
    row.classTeacher = !text(r, ClassTeacher).isEmpty();
    return row;
}

QList<AllotmentRow> AllotmentGrid::rows() const
{
    QList<AllotmentRow> list;
    for (int r = 0; r < rowCount(); ++r)
        list.append(row(r));
    return list;
}

int AllotmentGrid::usedRowCount() const
{
    int used = rowCount();
    while (used > 0) {
        bool empty = true;
        for (int column = ClassName; column < columnCount() && empty; ++column)
            empty = text(used - 1, column).isEmpty() || text(used - 1, column) == QLatin1String("0");
        if (!empty)
            break;
        --used;
    }
    return used;
}

QString AllotmentGrid::text(int r, int column) const
{
    const QTableWidgetItem *cell = item(r, column);
    return cell ? cell->text() : QString();
}

void AllotmentGrid::setText(int r, int column, const QString &text)
{
    if (QTableWidgetItem *cell = item(r, column))
        cell->setText(text);
}

void AllotmentGrid::showGroups(int r, const GroupNumbers &groups)
{
    setText(r, CombinedSubject, groupText(groups.cp));
    setText(r, CombinedClass, groupText(groups.cc));
    setText(r, CombinedTeacher, groupText(groups.ct));
}

void AllotmentGrid::setPeriods(int r, int periods)
{
    setText(r, Periods, periods > 0 ? QString::number(periods) : QString());
}

AllotmentGrid::EditorDelegate::EditorDelegate(const QHash<int, QWidget *> &editors, QObject *parent)
    : QStyledItemDelegate(parent), m_editors(editors)
{
}

QWidget *AllotmentGrid::EditorDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                                     const QModelIndex &index) const
{
    QWidget *editor = m_editors.value(index.column());
    if (editor && editor->parentWidget() != parent)
        editor->setParent(parent);
    return editor;
}

// The editors belong to the screen and serve the next cell again.
void AllotmentGrid::EditorDelegate::destroyEditor(QWidget *editor, const QModelIndex &) const
{
    editor->hide();
}

void AllotmentGrid::CellCombo::keyPressEvent(QKeyEvent *event)
{
    m_browsing = true;
    QComboBox::keyPressEvent(event);
    m_browsing = false;
}

void AllotmentGrid::CellCombo::wheelEvent(QWheelEvent *event)
{
    m_browsing = true;
    QComboBox::wheelEvent(event);
    m_browsing = false;
}

QTableWidget *AllotmentGrid::makeSnapshotGrid(QWidget *parent)
{
    auto *grid = new QTableWidget(0, 14, parent);
    grid->setHorizontalHeaderLabels({QStringLiteral("Sl.No."), QStringLiteral("Class Name"),
                                     QStringLiteral("Division"), QStringLiteral("Subject Name"),
                                     QStringLiteral("ClassCode"), QStringLiteral("DivisionCode"),
                                     QStringLiteral("SubjectCode"), QStringLiteral("Teachercode"),
                                     QStringLiteral("NoOfPeriods"), QStringLiteral("Status"), QStringLiteral("Count"),
                                     QStringLiteral("ClassTeacher"), QStringLiteral("ClassCount"), QString()});
    return grid;
}

void AllotmentGrid::showSnapshot(QTableWidget *grid, const QList<StoredAllotment> &snapshot)
{
    grid->setRowCount(0);
    grid->setRowCount(int(snapshot.size()));
    for (int r = 0; r < snapshot.size(); ++r) {
        const StoredAllotment &s = snapshot.at(r);
        const QStringList cells = {QString::number(r + 1),
                                   s.row.className,
                                   s.row.divisionName,
                                   s.row.subjectName,
                                   QString::number(s.row.classCode),
                                   QString::number(s.row.division),
                                   QString::number(s.row.subject),
                                   QString::number(s.teacher),
                                   QString::number(s.placed),
                                   yes(s.listed, "Yes"),
                                   yes(s.belowPlaced, "Yes"),
                                   yes(s.classTeacherKept, "Yes"),
                                   yes(s.row.classTeacher, "1"),
                                   yes(s.row.classTeacher, "YES")};
        for (int column = 0; column < cells.size(); ++column)
            grid->setItem(r, column, new QTableWidgetItem(cells.at(column)));
    }
}
