#pragma once
#include "codename.h"
#include "privilegetree.h"

#include <QSqlDatabase>
#include <optional>

class MessageService;

// What the User Privileges screen holds for one user's login when Save is pressed.
struct LoginEntry
{
    int userCode = 0;
    QString loginId;
    QString password;
    QString retyped;
    bool keepPassword = false; // the fields still show the mask of a stored login: its hash stays
    QString blocked;           // "NO", "YES", or blank when nothing is chosen
    QList<bool> checked;       // the privilege tree, node by node
};

// A stored login as the screen shows it back; the password never leaves the store.
struct StoredLogin
{
    QString loginId;
    bool blocked = false;
    QList<PrivilegeRow> rows;
};

// The field a refused Save of a login puts the focus on.
enum class LoginField { None, UserName, LoginId, Password, RePassword, Blocked };

struct LoginSaveResult
{
    bool saved = false;
    QString message;
    LoginField field = LoginField::None;
    bool clearPasswords = false; // the two passwords differed
    bool firstLogin = false;     // this was the first login of the store: control starts at the next start
};

struct CopyResult
{
    bool copied = false;
    QString message; // what to tell the user; empty when the user stopped it
};

// Logins and privileges of the users: the rules of the User Privileges screen, its copy of one user's
// privileges to another, and the rule that at least one unblocked user keeps the right to grant them.
// Store failures throw StoreError; refusals come back as results.
class UserPrivilegeService
{
public:
    explicit UserPrivilegeService(const QSqlDatabase &db) : m_db(db) {}

    // Every user (code above 0) by name.
    QList<CodeName> users() const;
    std::optional<StoredLogin> login(int userCode) const;
    // True when a user other than `userCode` holds `loginId` (compared without case).
    bool loginIdTaken(const QString &loginId, int userCode) const;
    // The refusal that keeps one administrator, or empty when the user may be saved with these values.
    QString checkKeepsAdministrator(int userCode, bool blocked, const QList<bool> &checked) const;
    // The refusal of deleting `userCode` from the user master, or empty: the last administrator stays.
    QString checkUserRemovable(int userCode) const;
    // Checks and writes the login and its privileges in one transaction; `makerCode` is the user at work.
    LoginSaveResult save(const LoginEntry &entry, int makerCode) const;
    // Copies every privilege row of `fromCode` to `toCode`, asking before it replaces the target's rows.
    CopyResult copy(int fromCode, int toCode, MessageService &messages) const;

private:
    bool otherAdministratorExists(int userCode) const;
    QList<PrivilegeRow> rows(int userCode) const;
    QString userName(int userCode) const;

    QSqlDatabase m_db;
};
