#include "schoolcalendar.h"
#include "sql.h"

#include <QHash>

void SchoolCalendar::load(const QSqlDatabase &db)
{
    QSqlQuery query = Sql(db).run(QStringLiteral(
        "SELECT NoOfWorkingDays, PeriodsPerDay, DayCode, PeriodsInMorningSession, PeriodsOnLastWorkingDay "
        "FROM SchoolSetup LIMIT 1"));
    schoolSetUp = query.next();
    if (!schoolSetUp)
        return;
    noOfWorkingDays = qint16(query.value(0).toInt());
    periodsPerDay = qint16(query.value(1).toInt());
    dayCode = qint16(query.value(2).toInt());
    periodsInMorningSession = qint16(query.value(3).toInt());
    periodsOnLastWorkingDay = qint16(query.value(4).toInt());
    periodsPerWeek = periodsPerWeekOf(noOfWorkingDays, periodsPerDay, periodsOnLastWorkingDay);
}

qint16 SchoolCalendar::periodsPerWeekOf(int days, int periodsPerDay, int periodsOnLastDay)
{
    if (periodsOnLastDay >= periodsPerDay)
        return qint16(periodsPerDay * days);
    return qint16((days - 1) * periodsPerDay + periodsOnLastDay);
}

int SchoolCalendar::periodsOn(int day) const
{
    if (day < 1 || day > noOfWorkingDays)
        return 0;
    return isLastDay(day) ? qMin<int>(periodsOnLastWorkingDay, periodsPerDay) : periodsPerDay;
}

bool SchoolCalendar::isPeriod(int day, int periodCode) const
{
    return periodCode >= 1 && periodCode <= periodsOn(day);
}

int SchoolCalendar::dayCodeOfRow(int row) const
{
    const int code = dayCode + row;
    return code > 7 ? code - 7 : code;
}

QStringList SchoolCalendar::dayNames(const QSqlDatabase &db) const
{
    QHash<int, QString> byCode;
    QSqlQuery query = Sql(db).run(QStringLiteral("SELECT DayCode, DayName FROM DayMaster"));
    while (query.next())
        byCode.insert(query.value(0).toInt(), query.value(1).toString());
    QStringList names;
    for (int row = 0; row < noOfWorkingDays; ++row)
        names << byCode.value(dayCodeOfRow(row));
    return names;
}

QStringList SchoolCalendar::periodNames(const QSqlDatabase &db)
{
    QStringList names;
    QSqlQuery query = Sql(db).run(
        QStringLiteral("SELECT PeriodName FROM PeriodDuration WHERE PeriodCode > 0 ORDER BY PeriodCode"));
    while (query.next())
        names << query.value(0).toString().trimmed();
    return names;
}
