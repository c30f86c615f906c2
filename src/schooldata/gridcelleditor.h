#pragma once
#include <QObject>
#include <QString>

class QLineEdit;
class QTableWidget;

// A line edit laid over one cell of a grid column, the way the office's grids are edited: it moves to the
// row chosen, follows the grid when it scrolls or resizes, and reports every change and the Enter key. Esc
// reports the cell's text from before the editor opened, and closes it.
class GridCellEditor : public QObject
{
    Q_OBJECT
public:
    // `editor` is put on the grid's viewport.
    GridCellEditor(QTableWidget *grid, int column, QLineEdit *editor);

    // Shows the editor over the row's cell with the cell's text, focused and selected.
    void placeOn(int row);
    void close();
    // The row being edited, -1 while the editor is hidden.
    int row() const { return m_row; }

signals:
    void edited(int row, const QString &text);
    void enterPressed(int row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow();

    QTableWidget *m_grid;
    int m_column;
    QLineEdit *m_editor;
    int m_row = -1;
    QString m_before; // the cell's text when the editor opened on it
};
