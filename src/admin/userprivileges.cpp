#include "userprivileges.h"
#include "messageservice.h"
#include "passwordhash.h"
#include "privileges.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"

namespace {

const QString ZeroLengthFormName = QStringLiteral("Field 'UserPrivilegeDetails.FormName' cannot be a zero-length string.");

QString childWithoutParent()
{
    return QStringLiteral("Without Selecting Main Nodes Child Nodes Cannot Be Selected") + QLatin1Char('\n')
        + QStringLiteral("(e.g.Without Selecting 'User Master', New/Edit/Delete Of 'User Master' Alone Cannot Be Saved)");
}

QString atleastOneAdministrator()
{
    return QStringLiteral("Atleast One User Should Have Privilege To 'Utility Privilege' Menu");
}

QString notAllBlocked()
{
    return QStringLiteral("All The Users Cannot Be Blocked");
}

// A user with a login of a known user, unblocked, holding the Utilities menu and a way into User Privileges.
const char *const Administrators =
    "SELECT 1 FROM UserPrivilegeMaster m JOIN UserMaster u ON u.UserCode = m.UserCode "
    "WHERE m.Block = 'N' AND m.UserCode %1 ? "
    "AND EXISTS (SELECT 1 FROM UserPrivilegeDetails d WHERE d.UserCode = m.UserCode "
    "            AND d.FormName = 'Utilities' AND d.ButtonName = 'D') "
    "AND EXISTS (SELECT 1 FROM UserPrivilegeDetails d WHERE d.UserCode = m.UserCode "
    "            AND d.FormName = 'frmUtilUserPrivilegeMaster' AND d.ButtonName IN ('D', 'N', 'E'))";

bool holdsAdministration(const QList<PrivilegeRow> &rows)
{
    const auto holds = [&](const char *form, std::initializer_list<QChar> buttons) {
        return std::any_of(rows.cbegin(), rows.cend(), [&](const PrivilegeRow &row) {
            return row.formName.compare(QLatin1String(form), Qt::CaseInsensitive) == 0
                && std::find(buttons.begin(), buttons.end(), row.button.toUpper()) != buttons.end();
        });
    };
    return holds("Utilities", {Privileges::Display})
        && holds("frmUtilUserPrivilegeMaster", {Privileges::Display, Privileges::New, Privileges::Edit});
}

void insertRows(const Sql &sql, int userCode, const QList<PrivilegeRow> &rows)
{
    for (const PrivilegeRow &row : rows) {
        // The store refuses an empty form name as its own rule; the same words come from here, before any
        // statement runs, so that the refusal reads the same whatever the driver says.
        if (row.formName.trimmed().isEmpty())
            throw StoreError(ZeroLengthFormName);
        sql.run(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES (?, ?, ?)"),
                {row.formName, QString(row.button), userCode});
    }
}

}

QList<CodeName> UserPrivilegeService::users() const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT UserCode, UserName FROM UserMaster WHERE UserCode > 0 ORDER BY UserName, UserCode"));
    QList<CodeName> list;
    while (query.next())
        list.append({query.value(0).toInt(), query.value(1).toString()});
    return list;
}

QList<PrivilegeRow> UserPrivilegeService::rows(int userCode) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT FormName, ButtonName FROM UserPrivilegeDetails WHERE UserCode = ? ORDER BY rowid"),
        {userCode});
    QList<PrivilegeRow> list;
    while (query.next()) {
        const QString button = query.value(1).toString().trimmed();
        list.append({query.value(0).toString(), button.isEmpty() ? QChar() : button.front()});
    }
    return list;
}

QString UserPrivilegeService::userName(int userCode) const
{
    return Sql(m_db).scalar(QStringLiteral("SELECT UserName FROM UserMaster WHERE UserCode = ?"), {userCode})
        .toString().trimmed();
}

std::optional<StoredLogin> UserPrivilegeService::login(int userCode) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT LoginId, Block FROM UserPrivilegeMaster WHERE UserCode = ? ORDER BY rowid"), {userCode});
    if (!query.next())
        return std::nullopt;
    StoredLogin stored;
    stored.loginId = query.value(0).toString();
    stored.blocked = query.value(1).toString().compare(QLatin1String("Y"), Qt::CaseInsensitive) == 0;
    stored.rows = rows(userCode);
    return stored;
}

bool UserPrivilegeService::loginIdTaken(const QString &loginId, int userCode) const
{
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM UserPrivilegeMaster WHERE LoginId = ? AND UserCode <> ?"),
                            {loginId.trimmed(), userCode});
}

bool UserPrivilegeService::otherAdministratorExists(int userCode) const
{
    return Sql(m_db).exists(QString::fromLatin1(Administrators).arg(QStringLiteral("<>")), {userCode});
}

QString UserPrivilegeService::checkKeepsAdministrator(int userCode, bool blocked, const QList<bool> &checked) const
{
    if (otherAdministratorExists(userCode))
        return {};
    if (blocked)
        return notAllBlocked();
    if (!PrivilegeTree::keepsAdministration(checked))
        return atleastOneAdministrator();
    return {};
}

QString UserPrivilegeService::checkUserRemovable(int userCode) const
{
    const bool administrator = Sql(m_db).exists(QString::fromLatin1(Administrators).arg(QStringLiteral("=")), {userCode});
    return administrator && !otherAdministratorExists(userCode) ? atleastOneAdministrator() : QString();
}

LoginSaveResult UserPrivilegeService::save(const LoginEntry &entry, int makerCode) const
{
    const auto refuse = [](const QString &message, LoginField field) {
        LoginSaveResult result;
        result.message = message;
        result.field = field;
        return result;
    };
    const QString loginId = entry.loginId.trimmed();
    if (entry.userCode <= 0)
        return refuse(QStringLiteral("Select User Name"), LoginField::UserName);
    if (loginId.isEmpty())
        return refuse(QStringLiteral("Enter Login ID"), LoginField::LoginId);
    if (!entry.keepPassword && entry.password.isEmpty())
        return refuse(QStringLiteral("Enter Password"), LoginField::Password);
    if (!entry.keepPassword && entry.retyped.isEmpty())
        return refuse(QStringLiteral("Enter Re-Type Password"), LoginField::RePassword);
    if (entry.blocked.trimmed().isEmpty())
        return refuse(QStringLiteral("Select Whether User Is Blocked Or Not"), LoginField::Blocked);
    if (!entry.keepPassword && entry.password != entry.retyped) {
        LoginSaveResult result = refuse(QStringLiteral("Password Does Not Match"), LoginField::Password);
        result.clearPasswords = true;
        return result;
    }
    const bool blocked = entry.blocked.trimmed().compare(QLatin1String("YES"), Qt::CaseInsensitive) == 0;
    // The slow part, the hash, is made before the store is held.
    const QString newHash = entry.keepPassword ? QString() : PasswordHash::make(entry.password);

    const Sql sql(m_db);
    Transaction transaction(m_db);
    if (loginIdTaken(loginId, entry.userCode))
        return refuse(QStringLiteral("Login ID Already Exists"), LoginField::LoginId);
    const bool loginsExist = sql.exists(QStringLiteral(
        "SELECT 1 FROM UserPrivilegeMaster m JOIN UserMaster u ON u.UserCode = m.UserCode"));
    if (loginsExist) {
        const QString refusal = checkKeepsAdministrator(entry.userCode, blocked, entry.checked);
        if (!refusal.isEmpty())
            return refuse(refusal, LoginField::None);
    } else if (blocked) {
        return refuse(notAllBlocked(), LoginField::Blocked);
    } else if (!PrivilegeTree::keepsAdministration(entry.checked)) {
        return refuse(atleastOneAdministrator(), LoginField::None);
    }
    const QString hash = entry.keepPassword
        ? sql.scalar(QStringLiteral("SELECT Password FROM UserPrivilegeMaster WHERE UserCode = ?"), {entry.userCode})
              .toString()
        : newHash;
    if (hash.isEmpty())
        return refuse(QStringLiteral("Enter Password"), LoginField::Password);
    const bool editing = sql.exists(QStringLiteral("SELECT 1 FROM UserPrivilegeMaster WHERE UserCode = ?"),
                                    {entry.userCode});
    try {
        sql.run(QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE UserCode = ?"), {entry.userCode});
        sql.run(QStringLiteral("DELETE FROM UserPrivilegeMaster WHERE UserCode = ?"), {entry.userCode});
        sql.run(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (?, ?, ?, ?, ?)"),
                {entry.userCode, loginId, hash, blocked ? QStringLiteral("Y") : QStringLiteral("N"), makerCode});
        insertRows(sql, entry.userCode, PrivilegeTree::rowsFor(entry.checked));
    } catch (const StoreError &error) {
        if (error.text() == ZeroLengthFormName)
            return refuse(childWithoutParent(), LoginField::None);
        throw;
    }
    transaction.commit();
    LoginSaveResult result;
    result.saved = true;
    result.message = editing ? QStringLiteral("Record Updated") : QStringLiteral("Record Saved");
    result.firstLogin = !loginsExist;
    return result;
}

CopyResult UserPrivilegeService::copy(int fromCode, int toCode, MessageService &messages) const
{
    const auto say = [](const QString &message) { return CopyResult{false, message}; };
    if (fromCode <= 0)
        return say(QStringLiteral("Select 'From User'"));
    if (toCode <= 0)
        return say(QStringLiteral("Select 'To User'"));
    if (fromCode == toCode)
        return say(QStringLiteral("Both 'From User' And 'To User' Should Not Be Same"));

    // The checks run again inside the write, so that nothing another user changed meanwhile slips through;
    // the question is asked before the store is held.
    const auto refusal = [&]() -> QString {
        const QList<PrivilegeRow> source = rows(fromCode);
        const std::optional<StoredLogin> target = login(toCode);
        // The target loses its own rows and takes the source's: somebody must still be able to grant privileges.
        if (!otherAdministratorExists(toCode) && !(target && !target->blocked && holdsAdministration(source)))
            return QStringLiteral("Selected User Doesnot Have Any Privilege To Transfer");
        if (!login(fromCode))
            return QStringLiteral("Login Not Created For ") + userName(fromCode);
        if (source.isEmpty())
            return QStringLiteral("No Privilege Exists For ") + userName(fromCode);
        if (!target)
            return QStringLiteral("Login Not Created For ") + userName(toCode);
        return {};
    };
    if (const QString refused = refusal(); !refused.isEmpty())
        return say(refused);
    const std::optional<StoredLogin> target = login(toCode);
    if (target && !target->rows.isEmpty()
        && !messages.question(QStringLiteral("Privilege Already Exists For ") + userName(toCode)
                              + QStringLiteral(".Do You Want To Replace The Existing Privilege ?")))
        return say(QString());

    const Sql sql(m_db);
    Transaction transaction(m_db);
    if (const QString refused = refusal(); !refused.isEmpty())
        return say(refused);
    // The old rows go and the copies come in one step: a failure leaves the target as it was.
    sql.run(QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE UserCode = ?"), {toCode});
    insertRows(sql, toCode, rows(fromCode));
    transaction.commit();
    return {true, QStringLiteral("Privilege Copied")};
}
