#include "login.h"
#include "privileges.h"
#include "sql.h"

LoginResult checkLogin(const QSqlDatabase &db, const QString &loginId, const QString &password)
{
    LoginResult result;
    if (Privileges::noLoginsExist(db)) {
        result.outcome = LoginResult::Outcome::NoLoginsYet;
        return result;
    }
    // Both columns compare without case, as the store always has: "ADMIN"/"Secret" matches "admin"/"secret".
    const QString pairQuery = QStringLiteral(
        "SELECT m.UserCode, u.UserName FROM UserPrivilegeMaster m "
        "JOIN UserMaster u ON u.UserCode = m.UserCode "
        "WHERE m.LoginId = ? AND m.Password = ?");
    const Sql sql(db);
    if (!sql.exists(pairQuery, {loginId, password}))
        return result;
    QSqlQuery unblocked = sql.run(pairQuery + QStringLiteral(" AND m.Block = 'N'"), {loginId, password});
    if (!unblocked.next()) {
        result.outcome = LoginResult::Outcome::Blocked;
        return result;
    }
    result.outcome = LoginResult::Outcome::Accepted;
    result.userCode = unblocked.value(0).toInt();
    result.userName = unblocked.value(1).toString();
    return result;
}
