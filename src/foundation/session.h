#pragma once
#include "schoolcalendar.h"

#include <QString>

class MessageService;

// Opens a screen by its form name; the main window is the one host in the program.
class ScreenHost
{
public:
    virtual ~ScreenHost() = default;
    virtual void openScreen(const QString &formName) = 0;
    // Ends this user's session and goes back to the login, as a new start of the program would.
    virtual void restartProgram() {}
};

// The run-wide values of one run of the program: who is logged in, the school's calendar, the options flag.
struct Session
{
    int userCode = 0;
    QString loginId;
    bool openAccess = false;         // logged in while no login existed: every check passes until a new login
    QString userName;
    bool confirmExit = false;        // the Options value: ask before a screen closes
    bool exclusiveScreenOpen = false; // School Setup or the backup screen is open
    int helpScreenNo = 0;            // set by F1, read by the help screen
    QString lastPrivilegeRefusal;    // text of the last refused privilege check
    SchoolCalendar calendar;
};

// What every screen and routine of the program is handed: the main connection, the folders, the session,
// the message service and the host that opens further screens.
struct AppContext
{
    QString connectionName; // the main connection to TimeTable.mdb
    QString dataFolder;     // where the store files live
    QString tempFolder;     // made fresh at start, removed at an orderly close
    bool readOnly = false;  // the school was opened where it cannot be changed
    Session session;
    MessageService *messages = nullptr;
    ScreenHost *host = nullptr;

    QSqlDatabase db() const { return QSqlDatabase::database(connectionName, false); }
};
