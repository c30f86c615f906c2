#pragma once
#include "masterrecord.h"
#include "screen.h"

#include <QStringList>
#include <QWidget>

class QFormLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTableWidget;
struct AppContext;

// The shape all master screens share: the record's fields in a frame, the button row, and a search box
// over a grid of the rows. Choosing a row asks whether to edit or delete it; New, Edit and Delete ask for
// the user's privilege first; Save and Delete run through the master's own rules. A screen adds its fields
// and its store calls.
class MasterScreen : public QWidget
{
    Q_OBJECT
protected:
    struct Setup
    {
        QString formName;
        QString caption;
        int helpScreenNo = 0;
        QString gridName;
        QStringList headings;   // visible columns, then hidden ones; the first hidden column holds the code
        int visibleColumns = 1;
        int stretchColumn = 0;  // the visible column that takes the spare width
        QString searchName;
        QString searchCaption;
        int searchLimit = 30;
        QString notFound;       // a chosen row that is no longer stored
        QString deleteQuestion;
    };

    MasterScreen(AppContext &ctx, const Setup &setup, QWidget *parent);

    // The layout of the record's fields; a screen fills it in its constructor, then calls finishSetup().
    QFormLayout *fieldLayout() const { return m_fields; }
    // Lists, the first search, the idle state and the screen conventions: the last step of a constructor.
    void finishSetup();

    // One grid row per entry: the visible cells, then the hidden ones.
    virtual QList<QStringList> findRows(const QString &text) const = 0;
    virtual bool recordExists(int code) const = 0;
    // Puts the stored record into the fields.
    virtual void showRecord(int code) = 0;
    virtual SaveResult saveRecord(int code) = 0;
    virtual void removeRecord(int code) = 0;
    // The field a refusal points at (nullptr for MasterField::None).
    virtual QWidget *fieldFor(MasterField field) const = 0;
    // Where New and Edit put the focus.
    virtual QWidget *firstField() const { return fieldFor(MasterField::Name); }
    // Refills the screen's drop-down lists (Cancel runs it).
    virtual void reloadLists() {}
    // Edit was granted; the frame is open.
    virtual void editStarted() {}
    // A new record was saved and confirmed; the usual end is Cancel.
    virtual void newSaved() { cancel(); }

    // Reruns the search into the grid; store errors are shown.
    void refresh();
    void cancel();
    void clearSearch();
    // Back to New mode after a save, keeping what the fields hold.
    void continueNew();
    // The code of the chosen record; 0 while none is chosen or a new one is entered.
    int currentCode() const { return m_code; }

    bool eventFilter(QObject *watched, QEvent *event) override;

    AppContext &m_ctx;

private:
    void buildLayout();
    void newRecord();
    void editRecord();
    void deleteRecord();
    void save();
    void exitScreen();
    void chooseRow(int row);
    void setState(Screen::EntryState state);

    Setup m_setup;
    int m_code = 0;
    Screen::EntryState m_state = Screen::EntryState::Idle;
    QGroupBox *m_frame = nullptr;
    QFormLayout *m_fields = nullptr;
    QLineEdit *m_txtSearch = nullptr;
    QTableWidget *m_dgdDetails = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdDelete = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
