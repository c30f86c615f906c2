#include "referencemasterservice.h"
#include "routines.h"
#include "sql.h"
#include "transaction.h"

const ReferenceKind &ReferenceKind::state()
{
    static const ReferenceKind kind{
        QStringLiteral("StateMaster"), QStringLiteral("StateCode"), QStringLiteral("StateName"), true,
        QStringLiteral("Enter State Name"), QStringLiteral("State Name Already Exists"),
        QStringLiteral("State Name Updated"), QStringLiteral("State Name Saved"),
        QStringLiteral("State Name Does Not Exists"), QStringLiteral("Do You Want To Delete This State Name ?")};
    return kind;
}

const ReferenceKind &ReferenceKind::bloodGroup()
{
    static const ReferenceKind kind{
        QStringLiteral("BloodGroupMaster"), QStringLiteral("BloodGroupCode"), QStringLiteral("BloodGroupName"), false,
        QStringLiteral("Enter Blood Group Name"), QStringLiteral("Blood Group Name Already Exists"),
        QStringLiteral("Record Updated"), QStringLiteral("Record Saved"),
        QStringLiteral("Blood Group Name Does Not Exists"), QStringLiteral("Do You Want To Delete This Blood Group ?")};
    return kind;
}

const ReferenceKind &ReferenceKind::salutation()
{
    static const ReferenceKind kind{
        QStringLiteral("SalutationMaster"), QStringLiteral("SalutationCode"), QStringLiteral("SalutationName"), true,
        QStringLiteral("Enter Salutation Name"), QStringLiteral("Salutation Name Already Exists"),
        QStringLiteral("Record Updated"), QStringLiteral("Record Saved"),
        QStringLiteral("Salutation Name Does Not Exists"),
        QStringLiteral("Do You Want To Delete This Salutation Name ?")};
    return kind;
}

QString ReferenceMasterService::table() const
{
    return Sql::identifier(m_kind.table);
}

QList<CodeName> ReferenceMasterService::search(const QString &text) const
{
    QSqlQuery query = Sql(m_db).run(QStringLiteral("SELECT %1, %2 FROM %3 WHERE %1 > 0 ORDER BY %2")
                                         .arg(Sql::identifier(m_kind.codeColumn),
                                              Sql::identifier(m_kind.nameColumn), table()));
    QList<CodeName> rows;
    while (query.next()) {
        const QString name = query.value(1).toString();
        if (MasterRecords::matchesSearch(name, text))
            rows.append({query.value(0).toInt(), name});
    }
    return rows;
}

std::optional<QString> ReferenceMasterService::name(int code) const
{
    QSqlQuery query = Sql(m_db).run(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?")
                                         .arg(Sql::identifier(m_kind.nameColumn), table(),
                                              Sql::identifier(m_kind.codeColumn)),
                                     {code});
    if (!query.next())
        return std::nullopt;
    return query.value(0).toString();
}

SaveResult ReferenceMasterService::save(int code, const QString &name) const
{
    const QString wanted = name.trimmed();
    if (wanted.isEmpty())
        return SaveResult::refused(m_kind.enterName, MasterField::Name);

    const Sql sql(m_db);
    const QString codeColumn = Sql::identifier(m_kind.codeColumn);
    const QString nameColumn = Sql::identifier(m_kind.nameColumn);
    QSqlQuery others = sql.run(QStringLiteral("SELECT %1 FROM %2 WHERE %3 <> ?").arg(nameColumn, table(), codeColumn),
                               {code});
    while (others.next()) {
        if (MasterRecords::sameName(others.value(0).toString(), wanted, m_kind.trimStoredName))
            return SaveResult::refused(m_kind.alreadyExists, MasterField::Name);
    }

    Transaction transaction(m_db);
    if (code > 0) {
        const QSqlQuery update = sql.run(
            QStringLiteral("UPDATE %1 SET %2 = ? WHERE %3 = ?").arg(table(), nameColumn, codeColumn), {wanted, code});
        // Another copy of the program may have deleted the row while it stood on this screen.
        if (update.numRowsAffected() == 0)
            return SaveResult::refused(m_kind.notFound, MasterField::Name);
        transaction.commit();
        return SaveResult::done(m_kind.updated, code);
    }
    const int newCode = NextCode(m_db, m_kind.table, m_kind.codeColumn);
    if (m_kind.makerColumn.isEmpty())
        sql.run(QStringLiteral("INSERT INTO %1 (%2, %3) VALUES (?, ?)").arg(table(), codeColumn, nameColumn),
                {newCode, wanted});
    else
        sql.run(QStringLiteral("INSERT INTO %1 (%2, %3, %4) VALUES (?, ?, ?)")
                    .arg(table(), codeColumn, nameColumn, Sql::identifier(m_kind.makerColumn)),
                {newCode, wanted, m_makerCode});
    transaction.commit();
    return SaveResult::done(m_kind.saved, newCode);
}

void ReferenceMasterService::remove(int code) const
{
    MasterRecords::removeUnused(m_db, m_kind.table, m_kind.codeColumn, code);
}
