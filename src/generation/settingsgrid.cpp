#include "settingsgrid.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>

using PhaseOneSettings::Kind;
using PhaseOneSettings::SettingRow;

SettingsGrid::SettingsGrid(QTableWidget *grid, QComboBox *combo, Kind kind, int deadRow)
    : QObject(grid), m_grid(grid), m_combo(combo), m_kind(kind), m_deadRow(deadRow)
{
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setSelectionMode(QAbstractItemView::NoSelection);
    m_grid->verticalHeader()->hide();
    m_combo->setParent(m_grid->viewport());
    m_combo->hide();
    connect(m_grid, &QTableWidget::cellClicked, this, [this](int r, int column) {
        if (r == m_deadRow || r < 0 || r >= m_rows.size())
            return;
        if (column == 0)
            emit nameCellClicked(r);
        else if (column <= m_periods && !m_rows[r].name.isEmpty())
            emit periodCellClicked(r, column);
    });
    connect(m_grid->horizontalScrollBar(), &QScrollBar::valueChanged, this, &SettingsGrid::follow);
    connect(m_grid->verticalScrollBar(), &QScrollBar::valueChanged, this, &SettingsGrid::follow);
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionResized, this, &SettingsGrid::follow);
}

void SettingsGrid::setPeriods(const QStringList &names)
{
    m_periods = int(names.size());
    QStringList headings{m_kind == Kind::Teacher ? QStringLiteral("Teacher Name") : QStringLiteral("Subject Name")};
    headings << names;
    const QStringList work = m_kind == Kind::Teacher
        ? QStringList{QStringLiteral("TeacherCode"), QStringLiteral("NoOfPeriods"), QStringLiteral("Count"), QStringLiteral("POLWDC")}
        : QStringList{QStringLiteral("SubjectCode"), QStringLiteral("Count"), QStringLiteral("POLWDC")};
    headings << work;
    m_grid->setColumnCount(int(headings.size()));
    m_grid->setHorizontalHeaderLabels(headings);
    for (int c = 1 + m_periods; c < headings.size(); ++c)
        m_grid->setColumnHidden(c, true);
    m_grid->setColumnWidth(0, m_kind == Kind::Teacher ? 190 : 150);
    for (int c = 1; c <= m_periods; ++c)
        m_grid->setColumnWidth(c, 44);
    setRows({});
}

void SettingsGrid::setRows(const QList<SettingRow> &rows)
{
    m_rows = rows;
    m_rows.append(SettingRow());
    m_grid->setRowCount(int(m_rows.size()));
    for (int r = 0; r < m_rows.size(); ++r)
        show(r);
}

QList<SettingRow> SettingsGrid::namedRows() const
{
    QList<SettingRow> named;
    for (const SettingRow &row : m_rows)
        if (!row.name.trimmed().isEmpty())
            named.append(row);
    return named;
}

void SettingsGrid::setRow(int index, const SettingRow &row)
{
    m_rows[index] = row;
    // A name on the last row brings a new spare row.
    if (index == m_rows.size() - 1 && !row.name.isEmpty()) {
        m_rows.append(SettingRow());
        m_grid->setRowCount(int(m_rows.size()));
        show(index + 1);
    }
    show(index);
}

int SettingsGrid::otherRowNamed(const QString &name, int except) const
{
    for (int r = 0; r < m_rows.size(); ++r)
        if (r != except && m_rows[r].name.trimmed().compare(name.trimmed(), Qt::CaseInsensitive) == 0)
            return r;
    return -1;
}

void SettingsGrid::show(int index)
{
    const SettingRow &row = m_rows.at(index);
    auto put = [this, index](int column, const QString &text, bool centred) {
        auto *item = new QTableWidgetItem(text);
        if (centred)
            item->setTextAlignment(Qt::AlignCenter);
        m_grid->setItem(index, column, item);
    };
    put(0, row.name, false);
    for (int p = 1; p <= m_periods; ++p)
        put(p, p <= row.free.size() && row.free[p - 1] ? QStringLiteral("No") : QString(), true);
    const bool named = !row.name.isEmpty();
    int c = m_periods + 1;
    put(c++, named ? QString::number(row.code) : QString(), false);
    if (m_kind == Kind::Teacher)
        put(c++, named ? QString::number(row.noOfPeriods) : QString(), false);
    put(c++, named ? QString::number(row.count) : QString(), false);
    put(c, named ? QString::number(row.polwdc) : QString(), false);
}

void SettingsGrid::placeCombo(int index)
{
    m_comboRow = index;
    if (index < 0 || index >= m_rows.size()) {
        m_comboRow = -1;
        m_combo->hide();
        return;
    }
    const int at = m_combo->findText(m_rows[index].name, Qt::MatchFixedString);
    m_combo->setCurrentIndex(at);
    if (at < 0)
        m_combo->setEditText(m_rows[index].name);
    m_grid->scrollToItem(m_grid->item(index, 0));
    follow();
    m_combo->show();
    m_combo->raise();
    m_combo->setFocus();
}

void SettingsGrid::cutBack()
{
    placeCombo(-1);
    setRows({});
}

void SettingsGrid::takeEnter()
{
    if (QLineEdit *edit = m_combo->lineEdit()) {
        edit->removeEventFilter(this);
        edit->installEventFilter(this);
    }
}

void SettingsGrid::follow()
{
    if (m_comboRow < 0)
        return;
    const QRect cell = m_grid->visualRect(m_grid->model()->index(m_comboRow, 0));
    m_combo->setGeometry(cell.x(), cell.y(), cell.width(), qMax(cell.height(), m_combo->sizeHint().height()));
}

bool SettingsGrid::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            emit nameEntered();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
