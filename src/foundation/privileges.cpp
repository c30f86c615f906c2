#include "privileges.h"
#include "messageservice.h"
#include "session.h"
#include "sql.h"

namespace Privileges {

const QList<ButtonNode> &buttonNodes()
{
    static const QList<ButtonNode> nodes = {
        {New, "New", "New"},          {Edit, "Edit", "Edit"},         {Delete, "Delete", "Delete"},
        {Save, "Save", "Save"},       {Backup, "BackUp", "Backup"},   {Restore, "Restore", "Restor"},
        {Copy, "Copy", "Copy"},       {Print, "", "Print"},
    };
    return nodes;
}

bool noLoginsExist(const QSqlDatabase &db)
{
    return !Sql(db).exists(QStringLiteral("SELECT 1 FROM UserPrivilegeMaster LIMIT 1"));
}

QString refusalText(const QString &formName, QChar button)
{
    switch (button.unicode()) {
    case 'D':
        return QStringLiteral("You Have No Privilege To Compress Database Size");
    case 'N':
        return QStringLiteral("You Have No Privilege To Create New Entry");
    case 'E':
        return QStringLiteral("You Have No Privilege To Modify This Entry");
    case 'X':
        return QStringLiteral("You Have No Privilege To Delete");
    case 'S':
        return formName.compare(QStringLiteral("frmOptions"), Qt::CaseInsensitive) == 0
            ? QStringLiteral("You Have No Privilege To Save")
            : QStringLiteral("You Have No Privilege To Change The Financial Year");
    case 'B':
        return QStringLiteral("You Have No Privilege To Take Database Backup");
    case 'R':
        return QStringLiteral("You Have No Privilege To Restore Database");
    case 'C':
        return QStringLiteral("You Have No Privilege To Copy");
    case 'P':
        return QStringLiteral("You Have No Privilege To Print");
    case 'A':
    case 'M':
        return QStringLiteral("You Have No Privilege To Modify Application Date");
    }
    return {};
}

bool granted(const QSqlDatabase &db, int userCode, const QString &formName, QChar button)
{
    if (noLoginsExist(db))
        return true;
    return Sql(db).exists(QStringLiteral("SELECT 1 FROM UserPrivilegeDetails "
                                         "WHERE FormName = ? AND ButtonName = ? AND UserCode = ?"),
                          {formName.trimmed(), QString(button), userCode});
}

QStringList displayGrants(const QSqlDatabase &db, int userCode)
{
    QStringList forms;
    QSqlQuery query = Sql(db).run(
        QStringLiteral("SELECT FormName FROM UserPrivilegeDetails WHERE UserCode = ? AND ButtonName = 'D'"),
        {userCode});
    while (query.next())
        forms << query.value(0).toString().trimmed();
    return forms;
}

}

bool CheckPrivilege(AppContext &ctx, const QString &formName, QChar button)
{
    // A session that began before the first login keeps its open access until the program starts again.
    const bool allowed =
        ctx.session.openAccess || Privileges::granted(ctx.db(), ctx.session.userCode, formName, button);
    ctx.session.lastPrivilegeRefusal = allowed ? QString() : Privileges::refusalText(formName, button);
    return allowed;
}

bool AllowedOrSay(AppContext &ctx, const QString &formName, QChar button)
{
    if (CheckPrivilege(ctx, formName, button))
        return true;
    ctx.messages->information(ctx.session.lastPrivilegeRefusal);
    return false;
}
