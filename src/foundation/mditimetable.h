#pragma once
#include "session.h"

#include <QMainWindow>

class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QTimer;
class ScreenRegistry;

// The main window: the menu, the child screens in an MDI area, the status bar, the heartbeat, lock and
// the orderly close. Every screen of the program opens inside it.
class mdiTimeTable : public QMainWindow, public ScreenHost
{
    Q_OBJECT
public:
    mdiTimeTable(AppContext &ctx, const ScreenRegistry &registry, QWidget *parent = nullptr);
    ~mdiTimeTable() override;

    // The load: background, Options, calendar, the run-time table and the running mark. False after a
    // store error, which has been shown; the program then ends.
    bool load();
    // Enables the menu entries the logged-in user holds; with no login at all only the user screens.
    void applyPrivileges(bool noLoginsExist, const QStringList &displayGrants);
    // Shows the user in the status bar and opens School Setup at once while the school is not set up.
    void activate();

    void openScreen(const QString &formName) override;
    void restartProgram() override;
    // Shows the window as the user left it last time, or maximised on the first start.
    void showAsLeft();
    // True when the menu can open `opens` (a form name or a command key) in this build of the program.
    bool canOpen(const QString &opens) const;
    // True when a child screen is open (About Us does not count).
    bool OtherChildOpen() const;
    void RestoreBackground();
    // One tick of the heartbeat (the timer calls it every second).
    void heartbeat();
    // The Close menu: asks, then writes the stopped mark, closes the store and removes the temp folder.
    void closeProgram();
    void lock();

signals:
    // The program must end now (after Close, or when the load failed, or from the lock screen).
    void programEnded();
    // The session ends and the login comes back (after the first login is made, for one).
    void restartRequested();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildMenu();
    void fillWindowsMenu();
    void openManualPeriodsEntry();
    void showChild(const QString &formName, QWidget *screen, bool exclusive);
    void childClosed(QObject *gone, bool exclusive, bool hidStatusBar);
    void setTopMenusVisible(bool visible);
    void setBackground(bool childOpen);
    void rememberGeometry() const;
    void endSession();

    AppContext &m_ctx;
    const ScreenRegistry &m_registry;
    QMdiArea *m_area = nullptr;
    QLabel *m_statusUser = nullptr;
    QTimer *m_tmrTimer = nullptr;
    bool m_heartbeatFailing = false;
    bool m_childBackground = false;
    bool m_ending = false;
};
