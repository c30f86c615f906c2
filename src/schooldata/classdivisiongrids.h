#pragma once
#include "classdivisions.h"

#include <QObject>

class CellEditorOverlay;
class QLabel;
class QLineEdit;
class QTableWidget;
class QWidget;

// The grid pair of the class division screen over one working copy of every class and its divisions: the
// class grid with txtClassName, txtNoOfDivisions and txtClassOrder over its current row, and the division
// grid (txtDivisionName over its current row) showing the divisions of that class. What is typed goes into
// the rows at once; the rows are shown again after a rule has changed them.
class ClassDivisionGrids : public QObject
{
    Q_OBJECT
public:
    // The class grid goes into `classFrame`, the division grid and lblClassName into `divisionFrame`.
    ClassDivisionGrids(QWidget *classFrame, QWidget *divisionFrame);

    QTableWidget *classGrid() const { return m_msgClassDetails; }
    QTableWidget *divisionGrid() const { return m_msgDivisionDetails; }
    QLabel *classLabel() const { return m_lblClassName; }
    // The box over `column` of the class grid; nullptr for the serial column.
    QLineEdit *editor(int column) const;
    QLineEdit *divisionEditor() const { return m_txtDivisionName; }

    QList<ClassRow> &rows() { return m_rows; }
    // While editing, the boxes lie over the current rows; otherwise the grids only show.
    void setEditing(bool editing);

    // Shows the rows in the class grid, and the current class's divisions.
    void showAll();
    void showClasses();
    void showDivisions();
    // Lets a row's division list follow the count typed for it.
    void settle(int row);

    int classRow() const;
    int divisionRow() const;
    void focusCell(int row, int column);
    void focusDivision(int division);

private:
    QTableWidget *createGrid(QWidget *frame, const QString &name, const QStringList &headings);
    QLineEdit *createField(QWidget *frame, const QString &name, int limit, bool digits);
    void fieldEdited(int column, const QString &text);
    void divisionEdited(const QString &text);
    void classCellChanged(int row, int column, int previousRow);
    void divisionCellChanged(int row);

    QList<ClassRow> m_rows;
    bool m_editing = false;
    bool m_showing = false; // the grids are being filled; their signals are not the user's

    QTableWidget *m_msgClassDetails = nullptr;
    QTableWidget *m_msgDivisionDetails = nullptr;
    CellEditorOverlay *m_classOverlay = nullptr;
    CellEditorOverlay *m_divisionOverlay = nullptr;
    QLineEdit *m_txtClassName = nullptr;
    QLineEdit *m_txtNoOfDivisions = nullptr;
    QLineEdit *m_txtClassOrder = nullptr;
    QLineEdit *m_txtDivisionName = nullptr;
    QLabel *m_lblClassName = nullptr;
};
