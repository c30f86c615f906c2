#pragma once
#include <QChar>
#include <QSqlDatabase>
#include <QList>
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

// A button node of the privilege tree: its code, the text it shows and the suffix of its key (the form
// name + suffix). "Restor" is spelled so in every stored key.
struct ButtonNode
{
    QChar code;
    const char *text;
    const char *keySuffix;
};
// New, Edit, Delete (cmdNew, cmdEdit, cmdDelete), Save (frmOptions), BackUp and Restore (cmdBackup and the
// restore of frmFileBackupRestore), Copy (cmdTransfer of the privileges screen) and Print, which no screen asks.
const QList<ButtonNode> &buttonNodes();
// The two literal keys of the application-date codes 'A' and 'M', which no screen uses.
inline QString applicationDateKey(QChar code)
{
    return code == QLatin1Char('A') ? QStringLiteral("frmUtilApplicationDateSetupAdd")
                                    : QStringLiteral("frmUtilApplicationDateSetupDel");
}

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
