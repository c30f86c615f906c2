#include "subjectservice.h"
#include "routines.h"
#include "sql.h"
#include "store.h"
#include "transaction.h"

QList<SubjectRow> SubjectService::search(const QString &text) const
{
    QSqlQuery query = Sql(m_db).run(QStringLiteral(
        "SELECT SubjectCode, SubjectName, SubjectShortName FROM SubjectMaster WHERE SubjectCode > 0 "
        "ORDER BY SubjectName"));
    QList<SubjectRow> rows;
    while (query.next()) {
        const QString name = query.value(1).toString();
        if (MasterRecords::matchesSearch(name, text))
            rows.append({query.value(0).toInt(), name, query.value(2).toString()});
    }
    return rows;
}

std::optional<SubjectRow> SubjectService::subject(int code) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT SubjectCode, SubjectName, SubjectShortName FROM SubjectMaster WHERE SubjectCode = ?"),
        {code});
    if (!query.next())
        return std::nullopt;
    return SubjectRow{query.value(0).toInt(), query.value(1).toString(), query.value(2).toString()};
}

std::optional<SaveResult> SubjectService::duplicate(int code, const QString &name, const QString &shortName) const
{
    // Both names are held to the whole table before either message, so the name's refusal comes first.
    bool sameName = false;
    bool sameShortName = false;
    QSqlQuery others = Sql(m_db).run(
        QStringLiteral("SELECT SubjectName, SubjectShortName FROM SubjectMaster WHERE SubjectCode <> ?"), {code});
    while (others.next()) {
        sameName = sameName || MasterRecords::sameName(others.value(0).toString(), name, true);
        sameShortName = sameShortName || MasterRecords::sameName(others.value(1).toString(), shortName, true);
    }
    if (sameName)
        return SaveResult::refused(QStringLiteral("Subject Name Already Exists"), MasterField::Name);
    if (sameShortName)
        return SaveResult::refused(QStringLiteral("Subject Short Name Already Exists"), MasterField::ShortName);
    return std::nullopt;
}

SaveResult SubjectService::save(int code, const QString &name, const QString &shortName) const
{
    const QString wantedName = name.trimmed();
    const QString wantedShort = shortName.trimmed();
    if (wantedName.isEmpty())
        return SaveResult::refused(QStringLiteral("Enter Subject Name"), MasterField::Name);
    if (wantedShort.isEmpty())
        return SaveResult::refused(QStringLiteral("Enter Subject Short Name"), MasterField::ShortName);
    if (const std::optional<SaveResult> refusal = duplicate(code, wantedName, wantedShort))
        return *refusal;
    if (code > 0)
        return update(code, wantedName, wantedShort);

    Transaction transaction(m_db);
    const int newCode = NextCode(m_db, QStringLiteral("SubjectMaster"), QStringLiteral("SubjectCode"));
    Sql(m_db).run(QStringLiteral("INSERT INTO SubjectMaster (SubjectCode, SubjectName, SubjectShortName) "
                                 "VALUES (?, ?, ?)"),
                  {newCode, wantedName, wantedShort});
    transaction.commit();
    return SaveResult::done(QStringLiteral("Subject Name Saved"), newCode);
}

SaveResult SubjectService::update(int code, const QString &name, const QString &shortName) const
{
    const Sql sql(m_db);
    Transaction transaction(m_db);
    const QVariant oldName = sql.scalar(QStringLiteral("SELECT SubjectName FROM SubjectMaster WHERE SubjectCode = ?"),
                                        {code});
    if (!oldName.isValid())
        return SaveResult::refused(QStringLiteral("Subject Name Does Not Exists"), MasterField::Name);
    sql.run(QStringLiteral("UPDATE SubjectMaster SET SubjectName = ?, SubjectShortName = ? WHERE SubjectCode = ?"),
            {name, shortName, code});
    // The phase I settings keep their own copy of the name: the subject table by code (only while the
    // settings are saved, since the screen makes and drops it), the subject-teacher check by the old name.
    if (Store::tableExists(m_db, QStringLiteral("AGP1SubjectDetails")))
        sql.run(QStringLiteral("UPDATE AGP1SubjectDetails SET SubjectName = ? WHERE SubjectCode = ?"), {name, code});
    if (Store::tableExists(m_db, QStringLiteral("AGP1SubjectTeacherDetails")))
        sql.run(QStringLiteral("UPDATE AGP1SubjectTeacherDetails SET SubjectName = ? "
                               "WHERE TRIM(SubjectName) = TRIM(?) COLLATE NOCASE"),
                {name, oldName});
    transaction.commit();
    return SaveResult::done(QStringLiteral("Subject Name Updated"), code);
}

void SubjectService::remove(int code) const
{
    MasterRecords::removeUnused(m_db, QStringLiteral("SubjectMaster"), QStringLiteral("SubjectCode"), code);
}
