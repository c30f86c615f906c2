#pragma once
#include <QChar>
#include <QSqlDatabase>
#include <QStringList>

struct AppContext;

// Who may do what: one row of UserPrivilegeDetails grants a user a screen ('D') or one of its buttons.
// While no login exists at all, every check passes.
namespace Privileges {

// The button codes of UserPrivilegeDetails.ButtonName.
constexpr QChar Display = QLatin1Char('D');
constexpr QChar New = QLatin1Char('N');
constexpr QChar Edit = QLatin1Char('E');
constexpr QChar Delete = QLatin1Char('X');
constexpr QChar Save = QLatin1Char('S');
constexpr QChar Backup = QLatin1Char('B');
constexpr QChar Restore = QLatin1Char('R');
constexpr QChar Copy = QLatin1Char('C');
constexpr QChar Print = QLatin1Char('P');

// True when no UserPrivilegeMaster row exists: no access control yet.
bool noLoginsExist(const QSqlDatabase &db);
// The refusal shown for a button code on a form.
QString refusalText(const QString &formName, QChar button);
// The plain check: no logins at all, or the user holds the row for (formName, button).
bool granted(const QSqlDatabase &db, int userCode, const QString &formName, QChar button);
// The form names (and menu keys) the user holds with 'D': the menu entries "mnu" + name get enabled.
QStringList displayGrants(const QSqlDatabase &db, int userCode);

}

// The shared check every New, Edit and Delete button calls: remembers the answer's refusal text in the
// session and returns whether the user may act.
bool CheckPrivilege(AppContext &ctx, const QString &formName, QChar button);
// CheckPrivilege that also shows the refusal: `if (!AllowedOrSay(ctx, "frmStateMaster", Privileges::New)) return;`
bool AllowedOrSay(AppContext &ctx, const QString &formName, QChar button);
