#include "celleditoroverlay.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableWidget>

CellEditorOverlay::CellEditorOverlay(QTableWidget *grid)
    : QStyledItemDelegate(grid), m_grid(grid)
{
    grid->setItemDelegate(this);
    // Only the named boxes edit; the grid opens no editors of its own.
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void CellEditorOverlay::setEditor(int column, QLineEdit *editor)
{
    editor->setParent(m_grid->viewport());
    editor->hide();
    m_editors.insert(column, editor);
    connect(editor, &QLineEdit::textChanged, this, [this, column](const QString &text) { follow(column, text); });
}

void CellEditorOverlay::showOnRow(int row)
{
    // A box that hides while it has the focus passes it on as Tab would, and the grid's Tab moves the current
    // cell: the grid takes the focus first, and the screen gives it to the box it wants afterwards.
    if (isOwn(QApplication::focusWidget()))
        m_grid->setFocus(Qt::OtherFocusReason);
    for (const QPersistentModelIndex &index : std::as_const(m_open)) {
        // A removed row took its editors away already (and destroyEditor hid them).
        if (index.isValid())
            m_grid->QAbstractItemView::closePersistentEditor(index);
    }
    m_open.clear();
    if (row < 0 || row >= m_grid->rowCount())
        return;
    for (auto it = m_editors.cbegin(); it != m_editors.cend(); ++it) {
        if (!m_grid->item(row, it.key()))
            m_grid->setItem(row, it.key(), new QTableWidgetItem);
        // Listed before opening, so that the text the box takes from the cell is traced to this row.
        m_open.append(m_grid->model()->index(row, it.key()));
    }
    for (const QPersistentModelIndex &index : std::as_const(m_open))
        m_grid->QAbstractItemView::openPersistentEditor(index);
    // The grid selects an editor's text as it opens; a row of selected boxes reads as one marked block.
    for (QLineEdit *editor : std::as_const(m_editors))
        editor->deselect();
}

int CellEditorOverlay::row() const
{
    return m_open.isEmpty() || !m_open.constFirst().isValid() ? -1 : m_open.constFirst().row();
}

QWidget *CellEditorOverlay::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                         const QModelIndex &index) const
{
    QLineEdit *editor = m_editors.value(index.column());
    if (!editor)
        return QStyledItemDelegate::createEditor(parent, option, index);
    if (editor->parentWidget() != parent)
        editor->setParent(parent);
    return editor;
}

void CellEditorOverlay::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (isOwn(editor))
        editor->hide();
    else
        QStyledItemDelegate::destroyEditor(editor, index);
}

void CellEditorOverlay::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (!isOwn(editor))
        return QStyledItemDelegate::setEditorData(editor, index);
    auto *field = static_cast<QLineEdit *>(editor);
    // The cell changes with every keystroke; writing the same text back would move the cursor to the end.
    const QString text = index.data(Qt::DisplayRole).toString();
    if (field->text() != text)
        field->setText(text);
}

void CellEditorOverlay::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (isOwn(editor))
        model->setData(index, static_cast<QLineEdit *>(editor)->text());
    else
        QStyledItemDelegate::setModelData(editor, model, index);
}

void CellEditorOverlay::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                             const QModelIndex &index) const
{
    if (isOwn(editor))
        editor->setGeometry(option.rect);
    else
        QStyledItemDelegate::updateEditorGeometry(editor, option, index);
}

bool CellEditorOverlay::eventFilter(QObject *object, QEvent *event)
{
    if (isOwn(object))
        return false;
    return QStyledItemDelegate::eventFilter(object, event);
}

void CellEditorOverlay::follow(int column, const QString &text)
{
    const int current = row();
    if (current < 0)
        return;
    QTableWidgetItem *item = m_grid->item(current, column);
    if (!item) {
        item = new QTableWidgetItem;
        m_grid->setItem(current, column, item);
    }
    item->setText(text);
}

bool CellEditorOverlay::isOwn(const QObject *object) const
{
    for (const QLineEdit *editor : m_editors) {
        if (editor == object)
            return true;
    }
    return false;
}
