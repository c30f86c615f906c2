#include "manualwidgets.h"

#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {
const QColor NotAPeriod(236, 236, 236);

QTableWidgetItem *cellItem(const QString &text = {})
{
    auto *item = new QTableWidgetItem(text);
    item->setTextAlignment(Qt::AlignCenter);
    return item;
}
}

FittedTable::FittedTable(QWidget *parent, int maxRows) : QTableWidget(parent), m_maxRows(maxRows)
{
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 12);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    for (QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::rangeChanged, this, [this] { updateGeometry(); });
}

QSize FittedTable::sizeHint() const
{
    int width = 2 * frameWidth();
    for (int column = 0; column < columnCount(); ++column)
        width += isColumnHidden(column) ? 0 : columnWidth(column);
    const int rows = m_maxRows > 0 ? qMin(rowCount(), m_maxRows) : rowCount();
    int height = 2 * frameWidth() + horizontalHeader()->sizeHint().height()
        + rows * verticalHeader()->defaultSectionSize();
    if (verticalScrollBar()->maximum() > 0)
        width += verticalScrollBar()->sizeHint().width();
    if (horizontalScrollBar()->maximum() > 0)
        height += horizontalScrollBar()->sizeHint().height();
    return {width, height};
}

// Narrower than its cells is fine (a scroll bar shows), but never shorter than its rows.
QSize FittedTable::minimumSizeHint() const
{
    return {qMin(sizeHint().width(), 240), sizeHint().height()};
}

WeekTable::WeekTable(const QString &name, const QColor &otherColour, QWidget *parent)
    : FittedTable(parent), m_otherColour(otherColour)
{
    setObjectName(name);
    // A selection highlight would hide the colours that tell the user whose period a cell holds.
    setSelectionMode(QAbstractItemView::NoSelection);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 14);
}

void WeekTable::rebuild(const WeekLayout &layout, const SchoolCalendar &calendar)
{
    const int periods = int(layout.periodNames.size());
    clear();
    setRowCount(int(layout.days.size()));
    setColumnCount(periods + 2);
    setHorizontalHeaderLabels(QStringList{QStringLiteral("Day")} << layout.periodNames << QStringLiteral("DayCode"));
    setColumnHidden(periods + 1, true);
    m_periodsOfRow.clear();
    for (int row = 0; row < rowCount(); ++row) {
        auto *day = new QTableWidgetItem(layout.dayNames.value(row));
        day->setFont([this] { QFont bold = font(); bold.setBold(true); return bold; }());
        setItem(row, 0, day);
        setItem(row, periods + 1, new QTableWidgetItem(QString::number(layout.days[row])));
        const int periodsThatDay = qMin(periods, calendar.periodsOn(layout.days[row]));
        m_periodsOfRow << periodsThatDay;
        for (int period = 1; period <= periods; ++period) {
            QTableWidgetItem *cell = cellItem();
            if (period > periodsThatDay) {
                cell->setBackground(NotAPeriod);
                cell->setToolTip(calendar.lastDayRefusal());
            }
            setItem(row, period, cell);
        }
    }
    const int periodWidth = fontMetrics().horizontalAdvance(QStringLiteral("VIII/AB")) + 16;
    setColumnWidth(0, fontMetrics().horizontalAdvance(QStringLiteral("Wednesday")) + 16);
    for (int period = 1; period <= periods; ++period)
        setColumnWidth(period, periodWidth);
}

void WeekTable::showWeek(const WeekGrid &week, bool coloured)
{
    for (int row = 0; row < rowCount(); ++row) {
        for (int period = 1; period < columnCount() - 1; ++period) {
            QTableWidgetItem *cell = item(row, period);
            const WeekCell content = week.at(row, period);
            cell->setText(content.text);
            if (period > m_periodsOfRow.value(row))
                continue;
            if (coloured && content.filled())
                cell->setBackground(content.ofSelection ? selectionColour() : m_otherColour);
            else
                cell->setBackground(QBrush());
        }
    }
}

int WeekTable::dayCodeAt(int row) const
{
    const QTableWidgetItem *code = item(row, columnCount() - 1);
    return code ? code->text().toInt() : 0;
}

QString WeekTable::cellText(int row, int period) const
{
    const QTableWidgetItem *cell = item(row, period);
    return cell ? cell->text() : QString();
}

ManualPanel::ManualPanel(const QString &title, const QString &frameName, QWidget *content, QWidget *parent)
    : QGroupBox(title, parent)
{
    setObjectName(frameName);
    m_close = new QPushButton(QStringLiteral("&Close"), this);
    m_close->setObjectName(QStringLiteral("cmdClose") + frameName.mid(3));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(content, 1);
    layout->addWidget(m_close, 0, Qt::AlignRight);
    connect(m_close, &QPushButton::clicked, this, [this] {
        hide();
        if (m_opener)
            m_opener->setFocus();
    });
    hide();
}

void ManualPanel::open(bool focusClose)
{
    show();
    if (focusClose)
        m_close->setFocus();
}

QTableWidget *makeListGrid(const QString &name, const QStringList &headings, QWidget *parent)
{
    auto *grid = new FittedTable(parent, 10);
    grid->setObjectName(name);
    grid->setColumnCount(int(headings.size()));
    grid->setHorizontalHeaderLabels(headings);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setAlternatingRowColors(true);
    grid->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    grid->resizeColumnsToContents();
    return grid;
}

void fillListGrid(QTableWidget *grid, const QList<QStringList> &rows)
{
    grid->setRowCount(0);
    grid->setRowCount(int(rows.size()));
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size() && column < grid->columnCount(); ++column) {
            auto *cell = new QTableWidgetItem(rows[row][column]);
            bool number = false;
            rows[row][column].toInt(&number);
            if (number)
                cell->setTextAlignment(Qt::AlignCenter);
            grid->setItem(row, column, cell);
        }
    }
    grid->resizeColumnsToContents();
    for (int column = 0; column < grid->columnCount(); ++column)
        grid->setColumnWidth(column, grid->columnWidth(column) + 12);
}
