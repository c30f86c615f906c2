#include "classdivisiongrids.h"
#include "celleditoroverlay.h"
#include "screen.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTableWidget>

using namespace ClassDivisions;

namespace {
constexpr int SettledColumn = 4; // the division count the division list was last brought to
constexpr int CodeColumn = 6;

void setCell(QTableWidget *grid, int row, int column, const QString &text)
{
    QTableWidgetItem *item = grid->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        grid->setItem(row, column, item);
    }
    item->setText(text);
}
}

ClassDivisionGrids::ClassDivisionGrids(QWidget *classFrame, QWidget *divisionFrame)
    : QObject(classFrame)
{
    m_msgClassDetails = createGrid(classFrame, QStringLiteral("msgClassDetails"),
                                   {QStringLiteral("SNo."), QStringLiteral("Class Name"),
                                    QStringLiteral("No. Of Divisions"), QStringLiteral("Priority Number"),
                                    QStringLiteral("Settled"), QString(), QStringLiteral("ClassCode")});
    for (int column = SettledColumn; column <= CodeColumn; ++column)
        m_msgClassDetails->setColumnHidden(column, true);
    m_msgClassDetails->setColumnWidth(SerialColumn, 48);
    m_msgClassDetails->setColumnWidth(NameColumn, 90);
    m_msgClassDetails->setColumnWidth(DivisionsColumn, 120);
    // The hidden working columns come last, so the visible last column takes the spare width itself.
    m_msgClassDetails->horizontalHeader()->setSectionResizeMode(OrderColumn, QHeaderView::Stretch);
    m_classOverlay = new CellEditorOverlay(m_msgClassDetails);
    m_txtClassName = createField(classFrame, QStringLiteral("txtClassName"), 5, false);
    m_txtNoOfDivisions = createField(classFrame, QStringLiteral("txtNoOfDivisions"), 2, true);
    m_txtClassOrder = createField(classFrame, QStringLiteral("txtClassOrder"), 2, true);
    m_classOverlay->setEditor(NameColumn, m_txtClassName);
    m_classOverlay->setEditor(DivisionsColumn, m_txtNoOfDivisions);
    m_classOverlay->setEditor(OrderColumn, m_txtClassOrder);

    m_lblClassName = new QLabel(divisionFrame);
    m_lblClassName->setObjectName(QStringLiteral("lblClassName"));
    m_lblClassName->setStyleSheet(QStringLiteral("font-weight: bold;"));
    m_msgDivisionDetails = createGrid(divisionFrame, QStringLiteral("msgDivisionDetails"),
                                      {QStringLiteral("Division Name")});
    m_divisionOverlay = new CellEditorOverlay(m_msgDivisionDetails);
    m_txtDivisionName = createField(divisionFrame, QStringLiteral("txtDivisionName"), 3, false);
    m_divisionOverlay->setEditor(0, m_txtDivisionName);

    connect(m_txtClassName, &QLineEdit::textChanged, this, [this](const QString &text) { fieldEdited(NameColumn, text); });
    connect(m_txtNoOfDivisions, &QLineEdit::textChanged, this,
            [this](const QString &text) { fieldEdited(DivisionsColumn, text); });
    connect(m_txtClassOrder, &QLineEdit::textChanged, this, [this](const QString &text) { fieldEdited(OrderColumn, text); });
    connect(m_txtDivisionName, &QLineEdit::textChanged, this, &ClassDivisionGrids::divisionEdited);
    connect(m_msgClassDetails, &QTableWidget::currentCellChanged, this,
            [this](int row, int column, int previousRow, int) { classCellChanged(row, column, previousRow); });
    connect(m_msgDivisionDetails, &QTableWidget::currentCellChanged, this,
            [this](int row) { divisionCellChanged(row); });
}

QLineEdit *ClassDivisionGrids::editor(int column) const
{
    return m_classOverlay->editor(column);
}

void ClassDivisionGrids::setEditing(bool editing)
{
    m_editing = editing;
    if (!editing) {
        m_classOverlay->showOnRow(-1);
        m_divisionOverlay->showOnRow(-1);
    }
}

void ClassDivisionGrids::showAll()
{
    showClasses();
    showDivisions();
}

void ClassDivisionGrids::showClasses()
{
    const int current = classRow();
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        m_msgClassDetails->setRowCount(int(m_rows.size()));
        for (int row = 0; row < m_rows.size(); ++row) {
            const ClassRow &entry = m_rows.at(row);
            setCell(m_msgClassDetails, row, SerialColumn, QString::number(row + 1));
            setCell(m_msgClassDetails, row, NameColumn, entry.name);
            setCell(m_msgClassDetails, row, DivisionsColumn, entry.divisionText);
            setCell(m_msgClassDetails, row, OrderColumn, entry.orderText);
            setCell(m_msgClassDetails, row, SettledColumn, QString::number(entry.divisions.size()));
            setCell(m_msgClassDetails, row, CodeColumn, QString::number(entry.code));
        }
        if (current < 0 && !m_rows.isEmpty())
            m_msgClassDetails->setCurrentCell(0, NameColumn);
    }
    const int row = classRow();
    if (m_editing && row >= 0 && m_classOverlay->row() != row)
        m_classOverlay->showOnRow(row);
}

void ClassDivisionGrids::showDivisions()
{
    const int row = classRow();
    const bool valid = row >= 0 && row < m_rows.size();
    const QList<CodeName> divisions = valid ? m_rows.at(row).divisions : QList<CodeName>();
    m_lblClassName->setText(valid ? m_rows.at(row).name.trimmed() : QString());
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        m_divisionOverlay->showOnRow(-1);
        m_msgDivisionDetails->setRowCount(int(divisions.size()));
        for (int d = 0; d < divisions.size(); ++d)
            setCell(m_msgDivisionDetails, d, 0, divisions.at(d).name);
        m_msgDivisionDetails->setCurrentCell(divisions.isEmpty() ? -1 : 0, 0);
    }
    if (m_editing && !divisions.isEmpty())
        m_divisionOverlay->showOnRow(0);
}

void ClassDivisionGrids::settle(int row)
{
    if (row < 0 || row >= m_rows.size() || !m_rows[row].divisionsUnsettled())
        return;
    settleDivisions(m_rows[row]);
    setCell(m_msgClassDetails, row, SettledColumn, QString::number(m_rows[row].divisions.size()));
}

int ClassDivisionGrids::classRow() const
{
    return m_msgClassDetails->currentRow();
}

int ClassDivisionGrids::divisionRow() const
{
    return m_divisionOverlay->row();
}

void ClassDivisionGrids::focusCell(int row, int column)
{
    if (row < 0 || row >= m_rows.size())
        return;
    m_msgClassDetails->setCurrentCell(row, column);
    if (m_classOverlay->row() != row)
        m_classOverlay->showOnRow(row);
    editor(column)->setFocus();
}

void ClassDivisionGrids::focusDivision(int division)
{
    m_msgDivisionDetails->setCurrentCell(division, 0);
    if (m_divisionOverlay->row() != division)
        m_divisionOverlay->showOnRow(division);
    m_txtDivisionName->setFocus();
}

QTableWidget *ClassDivisionGrids::createGrid(QWidget *frame, const QString &name, const QStringList &headings)
{
    auto *grid = new QTableWidget(0, int(headings.size()), frame);
    grid->setObjectName(name);
    grid->setHorizontalHeaderLabels(headings);
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 12);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    return grid;
}

QLineEdit *ClassDivisionGrids::createField(QWidget *frame, const QString &name, int limit, bool digits)
{
    auto *field = new QLineEdit(frame);
    field->setObjectName(name);
    if (digits)
        Screen::DigitsOnly(field, limit);
    else
        field->setMaxLength(limit);
    return field;
}

void ClassDivisionGrids::fieldEdited(int column, const QString &text)
{
    const int row = m_classOverlay->row();
    if (row < 0 || row >= m_rows.size())
        return;
    ClassRow &entry = m_rows[row];
    if (column == NameColumn) {
        entry.name = text;
        m_lblClassName->setText(text.trimmed());
    } else if (column == DivisionsColumn) {
        entry.divisionText = text;
    } else {
        entry.orderText = text;
    }
}

void ClassDivisionGrids::divisionEdited(const QString &text)
{
    const int row = m_classOverlay->row();
    const int division = m_divisionOverlay->row();
    if (row < 0 || row >= m_rows.size() || division < 0 || division >= m_rows[row].divisions.size())
        return;
    m_rows[row].divisions[division].name = text;
}

void ClassDivisionGrids::classCellChanged(int row, int column, int previousRow)
{
    if (m_showing || !m_editing)
        return showDivisions();
    if (previousRow != row) {
        // Leaving a row lets its division list follow a count that was typed but not entered.
        settle(previousRow);
        m_classOverlay->showOnRow(row);
        showDivisions();
    }
    if (QLineEdit *field = editor(column == SerialColumn ? NameColumn : column))
        field->setFocus();
}

void ClassDivisionGrids::divisionCellChanged(int row)
{
    if (m_showing || !m_editing)
        return;
    m_divisionOverlay->showOnRow(row);
    m_txtDivisionName->setFocus();
}
