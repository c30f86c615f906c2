#pragma once
#include "combinedgroups.h"

#include <QPointer>
#include <QWidget>

class CombinedSearchForm;
class QComboBox;
class QLabel;
class QLayout;
class QPushButton;
class QTableWidget;
struct AppContext;

// Drop-downs and grids as the group screens use them: codes travel as item data, and a grid shows its
// rows with one empty row below them.
namespace CombinedUi {
QComboBox *combo(QWidget *parent, const QString &name);
// The blank entry comes with the store's list; each list opens wide enough for its longest name. select()
// is quiet: a code the program chooses is not the user's choice.
void fill(QComboBox *combo, const QList<CodeName> &choices);
void select(QComboBox *combo, int code);
// A read-only grid whose columns from `visibleColumns` on hold codes and are hidden. The visible columns share
// the width, but for `narrowColumns`, which take the width of their contents.
QTableWidget *grid(QWidget *parent, const QString &name, const QStringList &headers, int visibleColumns,
                   const QList<int> &narrowColumns = {});
void show(QTableWidget *grid, const QList<QStringList> &rows);
}

// What the three group screens share: the buttons and their states, the privilege checks, the timetable
// test of Edit, Delete, Cancel, Exit, and the search form that hands a group over to be loaded.
class CombinedEntryForm : public QWidget
{
    Q_OBJECT
public:
    // Loads a group as its search form hands it over: a row of the group and the group's number.
    void loadChosenGroup(const Combined::Key &key, int groupNo);

protected:
    enum class State { Idle, New, Loaded, Edit };

    CombinedEntryForm(AppContext &ctx, Combined::Kind kind, QWidget *parent);

    // Lays `content` out above the button row; `frames` are enabled only in New and Edit. Call last in the
    // subclass's constructor.
    void finish(QLayout *content, const QList<QWidget *> &frames);

    State state() const { return m_state; }
    bool editing() const { return m_state == State::Edit; }
    bool changing() const { return m_state == State::New || m_state == State::Edit; }
    const Combined::Key &keptKey() const { return m_keptKey; }
    int groupNo() const { return m_groupNo; }

    // Shows a refusal and does what it asks for; true when the action may go on.
    bool accept(const Combined::Verdict &verdict);
    // As Cancel: fields and grids cleared, lists reloaded, back to idle.
    void reset();

    virtual void clearEntry() = 0; // empties the fields and grids and reloads the lists
    virtual void showGroup(const Combined::Key &key, int groupNo) = 0;
    virtual bool saveEntry() = 0; // the checks, then the writing; true when written
    virtual void clearList() {}
    virtual QWidget *firstField() const = 0;
    virtual CombinedSearchForm *createSearchForm() = 0;

    AppContext &m_ctx;
    const Combined::Kind m_kind;
    const CombinedGroups m_groups;

private:
    void setState(State state);
    void newEntry();
    void editEntry();
    void deleteEntry();
    void save();
    void openSearch();
    void exitScreen();

    State m_state = State::Idle;
    Combined::Key m_keptKey;
    int m_groupNo = 0;
    QList<QWidget *> m_frames;
    QPointer<CombinedSearchForm> m_search;
    QLabel *m_lblGroupNo = nullptr; // the number of the group on screen

    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdDelete = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdSearch = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
