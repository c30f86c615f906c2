#include "usermaster.h"
#include "transaction.h"
#include "userprivileges.h"

const ReferenceKind &userKind()
{
    static const ReferenceKind kind{
        QStringLiteral("UserMaster"), QStringLiteral("UserCode"), QStringLiteral("UserName"), true,
        QStringLiteral("Enter User Name"), QStringLiteral("User Name Already Exists"),
        QStringLiteral("Record Updated"), QStringLiteral("Record Saved"),
        QStringLiteral("User Name Does Not Exists"), QStringLiteral("Do You Want To Delete This User ?"),
        QStringLiteral("CreatedBy")};
    return kind;
}

NewUserResult addUserWithLogin(const QSqlDatabase &db, const QString &name, const QString &loginId,
                               const QString &password, bool allPrivileges)
{
    Transaction transaction(db);
    const SaveResult user = ReferenceMasterService(db, userKind()).save(0, name);
    if (!user.saved)
        return {false, user.message, 0};
    LoginEntry entry;
    entry.userCode = user.code;
    entry.loginId = loginId;
    entry.password = password;
    entry.retyped = password;
    entry.blocked = QStringLiteral("NO");
    entry.checked = allPrivileges ? PrivilegeTree::allChecked() : QList<bool>(PrivilegeTree::nodes().size(), false);
    const LoginSaveResult login = UserPrivilegeService(db).save(entry, 0);
    if (!login.saved)
        return {false, login.message, 0};
    transaction.commit();
    return {true, {}, user.code};
}
