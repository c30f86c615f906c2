#include "routines.h"
#include "sql.h"
#include "store.h"

#include <QSqlQuery>

int NextCode(const QSqlDatabase &db, const QString &table, const QString &keyColumn)
{
    const QVariant maxNo = Sql(db).scalar(QStringLiteral("SELECT MAX(%1) AS MaxNo FROM %2")
                                              .arg(Sql::identifier(keyColumn), Sql::identifier(table)));
    return maxNo.isNull() ? 1 : maxNo.toInt() + 1;
}

int NextGroupNo(const QSqlDatabase &db, const QString &id)
{
    const Sql sql(db);
    const QVariant next = sql.scalar(QStringLiteral("SELECT NextNo FROM ControlFileMaster WHERE ID = ?"), {id});
    if (!next.isValid())
        return 0;
    const int groupNo = next.toInt();
    sql.run(QStringLiteral("UPDATE ControlFileMaster SET NextNo = ? WHERE ID = ?"), {groupNo + 1, id});
    return groupNo;
}

QList<AllottedTotal> AllottedTotals(const QSqlDatabase &db)
{
    QList<AllottedTotal> totals;
    QSqlQuery query = Sql(db).run(QStringLiteral(
        "SELECT c.ClassName, d.DivisionName, SUM(w.NoOfSectionPeriods) FROM WorkAllotmentEntry w "
        "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
        "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
        "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
        "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode AND d.DivisionCode = w.DivisionCode "
        "WHERE w.CTSystem IS NULL OR w.CTSystem = '' "
        "GROUP BY w.ClassCode, w.DivisionCode ORDER BY w.ClassCode, w.DivisionCode"));
    while (query.next())
        totals.append({query.value(0).toString().trimmed(), query.value(1).toString().trimmed(), qint16(query.value(2).toInt())});
    return totals;
}

bool ClassesOverAllotted(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    const QList<AllottedTotal> totals = AllottedTotals(db);
    return std::any_of(totals.begin(), totals.end(),
                       [&](const AllottedTotal &total) { return calendar.periodsPerWeek - total.periods < 0; });
}

bool ClassesUnderAllotted(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    const QList<AllottedTotal> totals = AllottedTotals(db);
    return std::any_of(totals.begin(), totals.end(),
                       [&](const AllottedTotal &total) { return calendar.periodsPerWeek - total.periods > 0; });
}

bool IsCodeReferenced(const QSqlDatabase &db, const QString &parentTable, const QString &codeColumn,
                      const QVariant &code, QString *userTable)
{
    const QString user = Store::firstUserOf(db, parentTable.trimmed(), codeColumn, code);
    if (userTable)
        *userTable = user;
    return !user.isEmpty();
}

SchoolHeading LoadSchoolHeading(const QSqlDatabase &db)
{
    SchoolHeading heading;
    QSqlQuery query = Sql(db).run(QStringLiteral(
        "SELECT s.SchoolName, s.Address1, s.Address2, c.CityName, st.StateName, s.Pincode FROM SchoolSetup s "
        "JOIN CityMaster c ON c.CityCode = s.CityCode JOIN StateMaster st ON st.StateCode = c.StateCode"));
    if (!query.next())
        return heading;
    const auto text = [&](int column) { return query.value(column).toString().trimmed(); };
    heading.schoolName = text(0);
    heading.address = text(1) + QLatin1Char(',') + text(2);
    heading.place = text(3) + QLatin1Char(',') + text(4) + QLatin1Char('-') + text(5);
    return heading;
}
