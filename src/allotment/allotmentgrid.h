#pragma once
#include "workallotment.h"

#include <QComboBox>
#include <QHash>
#include <QStyledItemDelegate>
#include <QTableWidget>

// The columns of a teacher's allotment grid; ClassCode to UniformPeriod are hidden.
namespace AllotmentColumn {
enum : int {
    SlNo,
    ClassName,
    DivisionName,
    SubjectName,
    Periods,
    CombinedSubject,
    CombinedClass,
    CombinedTeacher,
    ClassCode,
    DivisionCode,
    SubjectCode,
    CCSystem,
    CTSystem,
    UniformPeriod,
    ClassTeacher,
    Count
};
}

// The editing grid of the allotment screen: text cells with the row's codes in hidden columns, read and
// written as AllotmentRow. Its last row is kept empty for the next entry.
class AllotmentGrid : public QTableWidget
{
public:
    explicit AllotmentGrid(QWidget *parent = nullptr);

    // Back to one empty row; `numbered` writes its Sl.No.
    void reset(bool numbered);
    void showRows(const QList<AllotmentRow> &rows);
    void appendEmptyRow();
    void renumber();

    AllotmentRow row(int r) const;
    QList<AllotmentRow> rows() const;
    // Rows up to the last one with anything in it: the trailing empty row is not a row to the user.
    int usedRowCount() const;

    QString text(int r, int column) const;
    void setText(int r, int column, const QString &text);
    int code(int r, int column) const { return text(r, column).toInt(); }
    // Combined group numbers are shown only when there is a group.
    void showGroups(int r, const GroupNumbers &groups);
    void setPeriods(int r, int periods);

    // The hidden grid that keeps the teacher's rows as stored and what the last Save's comparison found.
    static QTableWidget *makeSnapshotGrid(QWidget *parent);
    static void showSnapshot(QTableWidget *grid, const QList<StoredAllotment> &snapshot);

    // Shows the screen's own named editors over a cell instead of making a new editor each time, and leaves
    // reading and writing the cells to the screen, which checks every value first.
    class EditorDelegate : public QStyledItemDelegate
    {
    public:
        EditorDelegate(const QHash<int, QWidget *> &editors, QObject *parent);

        QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
        void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
        void setEditorData(QWidget *, const QModelIndex &) const override {}
        void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override {}

    protected:
        bool eventFilter(QObject *, QEvent *) override { return false; }

    private:
        QHash<int, QWidget *> m_editors;
    };

    // A list editor. Browsing the closed list with the keys or the wheel changes the entry without
    // confirming it; picking from the open list, or Enter, confirms.
    class CellCombo : public QComboBox
    {
    public:
        using QComboBox::QComboBox;
        bool browsing() const { return m_browsing; }

    protected:
        void keyPressEvent(QKeyEvent *event) override;
        void wheelEvent(QWheelEvent *event) override;

    private:
        bool m_browsing = false;
    };
};

