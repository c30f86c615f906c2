#pragma once
#include <QObject>
#include <QString>
#include <functional>

class QComboBox;
class QLineEdit;
class QPushButton;
class QWidget;
struct AppContext;

// The conventions every entry screen keeps, each usable in a line or two from a screen's constructor.
namespace Screen {

// Enter moves on like Tab within the screen (and pushes a button it reaches), every text box selects its text
// on focus and says so when it is full, Esc asks for Exit through the screen's cmdExit (after a cell editor or
// an open list has taken the first Esc), and F1 opens the help page `helpScreenNo`. Call once, after the
// screen has built its controls.
void applyConventions(QWidget *screen, AppContext &ctx, int helpScreenNo);
// The field takes digits only (Enter and Backspace still work); `maxLength` > 0 also limits its length.
void DigitsOnly(QLineEdit *field, int maxLength = 0);
// Runs one step of a screen. A store error it raises is shown in one critical box (after the wait cursor, if
// any, is put back) and the answer is false; true when the step ran through.
bool guarded(AppContext &ctx, const std::function<void()> &step);
// As guarded(), for a step that runs each time the screen comes forward: closing the box brings the screen
// forward again, which would fail again, so a failure is shown once until the step has run through.
bool guardedOnce(AppContext &ctx, bool &failing, const std::function<void()> &step);
// Runs `step` each time the screen comes forward: when its window is activated and, inside the main window,
// when its child window is (coming back from another child window sends the screen no WindowActivate).
void onComeForward(QWidget *screen, const std::function<void()> &step);
// A push button of the screen, named as the design names it.
QPushButton *button(QWidget *screen, const char *name, const QString &caption);
// Empties every text box, list and grid of the screen; dates go to today, check boxes off.
void ClearControls(QWidget *screen);
// Asks "Do You Want To Exit <title> ?" when the Options setting wants it; true when the screen may close.
bool ConfirmExit(AppContext &ctx, const QString &title);
// Closes the screen's window (the child window around it, if any) without asking again.
void closeScreen(QWidget *screen);
// Places a top-level form in the middle of the main window.
void CentreForm(QWidget *form, const QWidget *mainWindow);
// Makes the drop-down list wide enough for its widest item.
void WidenDropDown(QComboBox *combo);

// The states of an entry screen's buttons: idle, a row chosen, New pressed, Edit pressed.
enum class EntryState { Idle, Chosen, New, Edit };

// The standard buttons of an entry screen (cmdNew, cmdEdit, cmdDelete, cmdSave; cmdCancel, cmdExit and often
// cmdSearch stay enabled) and its data frame (fraMain, or Frame1 on small screens), switched together.
struct EntryButtons
{
    QWidget *frame = nullptr;
    QPushButton *cmdNew = nullptr;
    QPushButton *cmdEdit = nullptr;
    QPushButton *cmdDelete = nullptr; // may be absent
    QPushButton *cmdSave = nullptr;

    void setState(EntryState state) const;
};

}
