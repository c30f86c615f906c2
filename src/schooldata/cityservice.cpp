#include "cityservice.h"
#include "messageservice.h"
#include "routines.h"
#include "sql.h"
#include "transaction.h"

QList<CodeName> CityService::states() const
{
    QList<CodeName> entries{{0, QString()}};
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT StateCode, StateName FROM StateMaster WHERE StateCode > 0 ORDER BY StateName"));
    while (query.next())
        entries.append({query.value(0).toInt(), query.value(1).toString()});
    return entries;
}

QList<CityRow> CityService::search(const QString &text, int stateCode) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT c.CityCode, c.StateCode, s.StateName, c.CityName FROM CityMaster c "
                       "JOIN StateMaster s ON s.StateCode = c.StateCode "
                       "WHERE c.CityCode > 0 AND (? = 0 OR c.StateCode = ?) ORDER BY s.StateName, c.CityName"),
        {stateCode, stateCode});
    QList<CityRow> rows;
    while (query.next()) {
        const QString name = query.value(3).toString();
        if (MasterRecords::matchesSearch(name, text))
            rows.append({query.value(0).toInt(), query.value(1).toInt(), query.value(2).toString(), name});
    }
    return rows;
}

std::optional<CityRow> CityService::city(int code) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT c.CityCode, c.StateCode, s.StateName, c.CityName FROM CityMaster c "
                       "LEFT JOIN StateMaster s ON s.StateCode = c.StateCode WHERE c.CityCode = ?"),
        {code});
    if (!query.next())
        return std::nullopt;
    return CityRow{query.value(0).toInt(), query.value(1).toInt(), query.value(2).toString(),
                   query.value(3).toString()};
}

bool CityService::isUsed(int code) const
{
    return IsCodeReferenced(m_db, QStringLiteral("CityMaster"), QStringLiteral("CityCode"), code);
}

SaveResult CityService::save(int code, int stateCode, const QString &name) const
{
    const QString wanted = name.trimmed();
    if (stateCode <= 0)
        return SaveResult::refused(QStringLiteral("Select State Name"), MasterField::State);
    if (wanted.isEmpty())
        return SaveResult::refused(QStringLiteral("Enter City Name"), MasterField::Name);

    const Sql sql(m_db);
    // Two states may each have a city of the same name; only inside one state must names differ.
    QSqlQuery others = sql.run(QStringLiteral("SELECT CityName FROM CityMaster WHERE StateCode = ? AND CityCode <> ?"),
                               {stateCode, code});
    while (others.next()) {
        if (MasterRecords::sameName(others.value(0).toString(), wanted, false))
            return SaveResult::refused(QStringLiteral("City Name Already Exists"), MasterField::Name);
    }

    Transaction transaction(m_db);
    if (code > 0) {
        const bool stateKept = sql.exists(QStringLiteral("SELECT 1 FROM CityMaster WHERE CityCode = ? AND StateCode = ?"),
                                          {code, stateCode});
        if (!stateKept && isUsed(code))
            return SaveResult::refused(QStringLiteral("Changing Of State Name Is Not Allowed, Since This Record Is Already Used By Other Screen(s)"),
                                       MasterField::State);
        const QSqlQuery update = sql.run(
            QStringLiteral("UPDATE CityMaster SET CityName = ?, StateCode = ? WHERE CityCode = ?"),
            {wanted, stateCode, code});
        if (update.numRowsAffected() == 0)
            return SaveResult::refused(QStringLiteral("City Name Does Not Exists"), MasterField::Name);
        transaction.commit();
        return SaveResult::done(Texts::recordUpdated(), code);
    }
    const int newCode = NextCode(m_db, QStringLiteral("CityMaster"), QStringLiteral("CityCode"));
    sql.run(QStringLiteral("INSERT INTO CityMaster (CityCode, StateCode, CityName) VALUES (?, ?, ?)"),
            {newCode, stateCode, wanted});
    transaction.commit();
    return SaveResult::done(Texts::recordSaved(), newCode);
}

void CityService::remove(int code) const
{
    MasterRecords::removeUnused(m_db, QStringLiteral("CityMaster"), QStringLiteral("CityCode"), code);
}
