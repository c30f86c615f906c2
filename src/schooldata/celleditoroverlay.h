#pragma once
#include <QHash>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

class QLineEdit;
class QTableWidget;

// Lays a screen's own named text boxes over the cells of one grid row, as the grid's persistent editors: the
// grid places them and keeps them on their cells through scrolling and resizing, and the cell text follows
// each box as the user types. The boxes belong to the screen: moving to another row, or removing the row,
// hides them instead of deleting them.
class CellEditorOverlay : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit CellEditorOverlay(QTableWidget *grid);

    // `editor` edits `column`; it becomes a child of the grid's viewport.
    void setEditor(int column, QLineEdit *editor);
    QLineEdit *editor(int column) const { return m_editors.value(column); }

    // Lays the boxes over `row` (none for -1); the row's cells give their texts.
    void showOnRow(int row);
    // The row the boxes lie on, or -1.
    int row() const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    // The screen handles the keys of its own boxes; the delegate's commit-and-close keys stay out.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void follow(int column, const QString &text);
    bool isOwn(const QObject *object) const;

    QTableWidget *m_grid;
    QHash<int, QLineEdit *> m_editors;
    QList<QPersistentModelIndex> m_open;
};
