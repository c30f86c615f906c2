#include "gridcelleditor.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>

GridCellEditor::GridCellEditor(QTableWidget *grid, int column, QLineEdit *editor)
    : QObject(grid), m_grid(grid), m_column(column), m_editor(editor)
{
    m_editor->setParent(grid->viewport());
    m_editor->setFrame(false);
    m_editor->hide();
    m_editor->installEventFilter(this);
    grid->viewport()->installEventFilter(this);
    connect(m_editor, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_row >= 0)
            emit edited(m_row, text);
    });
    connect(grid->horizontalHeader(), &QHeaderView::sectionResized, this, &GridCellEditor::follow);
    connect(grid->verticalHeader(), &QHeaderView::sectionResized, this, &GridCellEditor::follow);
    connect(grid->verticalScrollBar(), &QScrollBar::valueChanged, this, &GridCellEditor::follow);
    connect(grid->horizontalScrollBar(), &QScrollBar::valueChanged, this, &GridCellEditor::follow);
}

void GridCellEditor::placeOn(int row)
{
    if (row < 0 || row >= m_grid->rowCount())
        return close();
    m_row = row;
    const QTableWidgetItem *cell = m_grid->item(row, m_column);
    m_before = cell ? cell->text() : QString();
    m_editor->setText(m_before);
    m_grid->scrollTo(m_grid->model()->index(row, m_column));
    follow();
    // Enter here means "next row", not the screen's Enter-as-Tab: installing again puts this filter first.
    m_editor->installEventFilter(this);
    m_editor->show();
    m_editor->raise();
    m_editor->setFocus(Qt::OtherFocusReason);
    m_editor->selectAll();
}

void GridCellEditor::close()
{
    m_row = -1;
    m_editor->hide();
}

void GridCellEditor::follow()
{
    if (m_row < 0)
        return;
    // An editor over a cell is drawn where the cell is: the one place a screen positions a control itself,
    // as Qt's own item editors do.
    m_editor->setGeometry(m_grid->visualRect(m_grid->model()->index(m_row, m_column)));
}

bool GridCellEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_grid->viewport()) {
        if (event->type() == QEvent::Resize)
            follow();
        return false;
    }
    if (watched == m_editor && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            emit enterPressed(m_row);
            return true;
        }
        // Esc takes back what was typed in this cell and leaves it; the next Esc, from the grid, is the screen's.
        if (key == Qt::Key_Escape) {
            if (m_editor->text() != m_before)
                emit edited(m_row, m_before);
            close();
            m_grid->setFocus(Qt::OtherFocusReason);
            return true;
        }
        const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
        if (step != 0 && m_row + step >= 0 && m_row + step < m_grid->rowCount()) {
            m_grid->setCurrentCell(m_row + step, m_column);
            placeOn(m_row + step);
            return true;
        }
    }
    return false;
}
