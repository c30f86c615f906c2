#pragma once
#include "phaseonesettings.h"

#include <QObject>

class QComboBox;
class QTableWidget;

// One settings grid of the Phase I screen: the name, a column per period holding "No" or nothing, and the
// hidden work columns. The rows live here; the grid shows them, with one spare row at the end for the next
// name. The screen's name combo floats over column 0 of the row being chosen.
class SettingsGrid : public QObject
{
    Q_OBJECT
public:
    // `deadRow` (0-based, under the heading) takes no clicks.
    SettingsGrid(QTableWidget *grid, QComboBox *combo, PhaseOneSettings::Kind kind, int deadRow);

    PhaseOneSettings::Kind kind() const { return m_kind; }
    // The name combo the screen made for this grid.
    QComboBox *combo() const { return m_combo; }
    void setPeriods(const QStringList &names);
    // The rows shown, with the spare row after them.
    void setRows(const QList<PhaseOneSettings::SettingRow> &rows);
    // The rows that hold a name.
    QList<PhaseOneSettings::SettingRow> namedRows() const;
    int rowCount() const { return int(m_rows.size()); }
    const PhaseOneSettings::SettingRow &row(int index) const { return m_rows.at(index); }
    void setRow(int index, const PhaseOneSettings::SettingRow &row);
    // The other row that holds `name`, or -1.
    int otherRowNamed(const QString &name, int except) const;

    // The combo over column 0 of `index`, with the row's name; -1 hides it.
    void placeCombo(int index);
    int comboRow() const { return m_comboRow; }
    // Both the rows and the combo's row back to the spare row alone.
    void cutBack();
    // Enter in the name combo chooses the name instead of moving on: call after the screen's own key handling
    // is in place, so that this filter sees the key first.
    void takeEnter();

signals:
    // A click that counts: not on the dead row, not on the spare row without a name.
    void nameCellClicked(int row);
    void periodCellClicked(int row, int period);
    // Enter in the name combo.
    void nameEntered();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show(int index);
    void follow();

    QTableWidget *m_grid;
    QComboBox *m_combo;
    PhaseOneSettings::Kind m_kind;
    int m_deadRow;
    int m_periods = 0;
    int m_comboRow = -1;
    QList<PhaseOneSettings::SettingRow> m_rows;
};
