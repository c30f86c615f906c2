#include "masterrecord.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"
#include "transaction.h"

namespace MasterRecords {

bool sameName(const QString &stored, const QString &wanted, bool trimStored)
{
    const QString name = trimStored ? stored.trimmed() : stored;
    return name.toUpper() == wanted.toUpper();
}

bool matchesSearch(const QString &name, const QString &text)
{
    return name.contains(text.trimmed(), Qt::CaseInsensitive);
}

void removeUnused(const QSqlDatabase &db, const QString &table, const QString &codeColumn, int code)
{
    Transaction transaction(db);
    // The store's own refusal comes only at commit and names no table; asking first gives the office a
    // text that says where the record is still in use.
    const QString user = Store::firstUserOf(db, table, codeColumn, code);
    if (!user.isEmpty())
        throw StoreError(Store::usedElsewhereText(user));
    Sql(db).run(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(Sql::identifier(table), Sql::identifier(codeColumn)),
                {code});
    transaction.commit();
}

}
