#include "login.h"
#include "passwordhash.h"
#include "privileges.h"
#include "sql.h"

LoginResult checkLogin(const QSqlDatabase &db, const QString &loginId, const QString &password)
{
    LoginResult result;
    if (Privileges::noLoginsExist(db)) {
        result.outcome = LoginResult::Outcome::NoLoginsYet;
        return result;
    }
    // LoginId is a NOCASE column: "ADMIN" finds "admin". The password is checked here, against each hash.
    QSqlQuery rows = Sql(db).run(QStringLiteral("SELECT m.UserCode, u.UserName, m.Password, m.Block "
                                                "FROM UserPrivilegeMaster m JOIN UserMaster u ON u.UserCode = m.UserCode "
                                                "WHERE m.LoginId = ? ORDER BY m.UserCode"),
                                 {loginId});
    while (rows.next()) {
        if (!PasswordHash::verify(rows.value(2).toString(), password))
            continue;
        if (rows.value(3).toString().compare(QLatin1String("N"), Qt::CaseInsensitive) != 0) {
            result.outcome = LoginResult::Outcome::Blocked;
            continue;
        }
        result.outcome = LoginResult::Outcome::Accepted;
        result.userCode = rows.value(0).toInt();
        result.userName = rows.value(1).toString();
        return result;
    }
    return result;
}

bool isLoginOf(const QSqlDatabase &db, int userCode, const QString &loginId, const QString &password)
{
    const LoginResult result = checkLogin(db, loginId, password);
    // A session that began before any login existed belongs to whoever holds a login now.
    return result.outcome == LoginResult::Outcome::Accepted && (userCode == 0 || result.userCode == userCode);
}
