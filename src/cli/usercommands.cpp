#include "usercommands.h"
#include "usermaster.h"
#include "userprivileges.h"

namespace {

int addUser(const QSqlDatabase &db, const QString &name, const QString &loginId, bool allPrivileges, QTextStream &in,
            QTextStream &out, QTextStream &err)
{
    if (loginId.trimmed().isEmpty()) {
        err << "user add needs --login ID\n";
        return 2;
    }
    const QString password = in.readLine().trimmed();
    const NewUserResult user = addUserWithLogin(db, name, loginId, password, allPrivileges);
    if (!user.saved) {
        err << user.message << '\n';
        return 2;
    }
    out << "User " << name.trimmed() << " (" << user.userCode << ") can log in as " << loginId.trimmed()
        << (allPrivileges ? " with every privilege" : " with no privilege yet") << '\n';
    return 0;
}

int listUsers(const QSqlDatabase &db, QTextStream &out)
{
    const UserPrivilegeService service(db);
    for (const CodeName &user : service.users()) {
        const std::optional<StoredLogin> login = service.login(user.code);
        out << user.code << '\t' << user.name << '\t'
            << (login ? login->loginId + (login->blocked ? QStringLiteral("\tblocked") : QString())
                      : QStringLiteral("(no login)"))
            << '\t' << (login ? login->rows.size() : 0) << " privileges\n";
    }
    return 0;
}

}

int runUserCommand(const QSqlDatabase &db, const QStringList &args, const QString &loginId, bool allPrivileges,
                   QTextStream &in, QTextStream &out, QTextStream &err)
{
    if (args.size() == 2 && args[1] == QLatin1String("list"))
        return listUsers(db, out);
    if (args.size() == 3 && args[1] == QLatin1String("add"))
        return addUser(db, args[2], loginId, allPrivileges, in, out, err);
    err << "usage: ttcli user add NAME --login ID [--all-privileges] (password on standard input) | ttcli user list\n";
    return 2;
}
