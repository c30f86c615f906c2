#include "weekaudit.h"
#include "timetablechecks.h"

#include <QMap>
#include <QSet>
#include <QSqlQuery>
#include <QVariant>

namespace WeekAudit {

namespace {

QSqlQuery query(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery q(db);
    q.setForwardOnly(true);
    q.exec(statement);
    return q;
}

int number(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery q = query(db, statement);
    return q.next() ? q.value(0).toInt() : 0;
}

struct Week
{
    int days = 0;
    int periodsPerDay = 0;
    int lastDay = 0;
    int morning = 0;
    int periodsOn(int day) const { return day == days ? lastDay : periodsPerDay; }
    bool morningPeriod(int period) const { return period <= morning; }
};

// A row the placement rules bind: placed by a generator or the completion, not a uniform period of Phase I.
const char *const GeneratorRows =
    "SELECT t.TeacherCode, t.ClassCode, t.DivisionCode, t.SubjectCode, t.DayCode, t.PeriodCode FROM TimeTable t "
    "WHERE t.Manual IN ('1', '2') AND NOT (t.Manual = '1' AND EXISTS (SELECT 1 FROM AGP1Master a WHERE "
    "UPPER(TRIM(a.UniformPeriodRequired)) = 'YES') AND EXISTS (SELECT 1 FROM TeacherMaster m WHERE m.TeacherCode = "
    "t.TeacherCode AND m.ClassCode = t.ClassCode AND m.DivisionCode = t.DivisionCode AND m.SubjectCode = "
    "t.SubjectCode AND m.PeriodCode = t.PeriodCode))";

void tableRules(const QSqlDatabase &db, QStringList *breaks)
{
    const struct
    {
        QString statement;
        const char *text;
    } rules[] = {
        {TimetableChecks::teacherClashes(), "teacher clashes"},
        {TimetableChecks::classClashes(), "class clashes"},
        {TimetableChecks::splitGroups(), "rows of split combined groups"},
        {TimetableChecks::outsideWeek(), "rows outside the week"},
        {TimetableChecks::offClassDays(), "rows on a day the class does not work"},
    };
    for (const auto &rule : rules)
        if (const int found = number(db, rule.statement); found > 0)
            *breaks << QStringLiteral("%1 %2").arg(found).arg(QString::fromLatin1(rule.text));
}

void spreading(const QSqlDatabase &db, const Week &week, QStringList *breaks)
{
    QHash<int, int> classDays;
    for (QSqlQuery q = query(db, QStringLiteral("SELECT ClassCode, NoOfWorkingDays FROM ClasswiseNoOfWorkingDays")); q.next();)
        classDays.insert(q.value(0).toInt(), q.value(1).toInt());
    QHash<QString, int> periodsOf; // allotment -> NoOfSectionPeriods, its first row
    for (QSqlQuery q = query(db, QStringLiteral("SELECT TeacherCode || '/' || ClassCode || '/' || DivisionCode || '/' || "
                                                "SubjectCode, NoOfSectionPeriods FROM WorkAllotmentEntry ORDER BY rowid"));
         q.next();)
        if (!periodsOf.contains(q.value(0).toString()))
            periodsOf.insert(q.value(0).toString(), q.value(1).toInt());
    // Allotment and day -> the periods of all its rows there, and whether a generator row is among them.
    QMap<QPair<QString, int>, QList<int>> periods;
    QSet<QPair<QString, int>> bound;
    for (QSqlQuery q = query(db, QStringLiteral("SELECT TeacherCode || '/' || ClassCode || '/' || DivisionCode || '/' || "
                                                "SubjectCode, DayCode, PeriodCode FROM TimeTable"));
         q.next();)
        periods[{q.value(0).toString(), q.value(1).toInt()}].append(q.value(2).toInt());
    for (QSqlQuery q = query(db, QString::fromLatin1(GeneratorRows)); q.next();)
        bound.insert({QStringLiteral("%1/%2/%3/%4").arg(q.value(0).toInt()).arg(q.value(1).toInt()).arg(q.value(2).toInt())
                          .arg(q.value(3).toInt()),
                      q.value(4).toInt()});
    for (auto it = periods.cbegin(); it != periods.cend(); ++it) {
        const QList<int> &held = it.value();
        if (held.size() < 2 || !bound.contains(it.key()) || !periodsOf.contains(it.key().first))
            continue;
        const int classCode = it.key().first.section(QLatin1Char('/'), 1, 1).toInt();
        const int days = classDays.value(classCode, week.days);
        const bool shortDayWorked = week.lastDay != week.periodsPerDay && days >= week.days;
        const int n = periodsOf.value(it.key().first);
        const bool everyDay = days > 0 && n >= days;
        const bool twiceADay = everyDay && n >= 2 * days - (shortDayWorked ? 1 : 0);
        bool fine = false;
        if (held.size() == 2)
            fine = (everyDay || twiceADay) && week.morningPeriod(held[0]) != week.morningPeriod(held[1]);
        else
            fine = everyDay && twiceADay;
        if (!fine)
            *breaks << QStringLiteral("allotment %1 has %2 periods on day %3 (%4 a week)")
                           .arg(it.key().first).arg(held.size()).arg(it.key().second).arg(n);
    }
}

void freePeriods(const QSqlDatabase &db, const Week &week, QStringList *breaks)
{
    QHash<int, int> types;
    for (QSqlQuery q = query(db, QStringLiteral("SELECT TeacherCode, FreeType FROM FreePeriodDetails ORDER BY rowid")); q.next();)
        if (!types.contains(q.value(0).toInt()))
            types.insert(q.value(0).toInt(), q.value(1).toInt());
    QHash<QPair<int, int>, QSet<int>> busy; // teacher, day -> periods with any row of the teacher
    for (QSqlQuery q = query(db, QStringLiteral("SELECT TeacherCode, DayCode, PeriodCode FROM TimeTable")); q.next();)
        busy[{q.value(0).toInt(), q.value(1).toInt()}].insert(q.value(2).toInt());
    QMap<QPair<int, int>, QSet<int>> taught; // teacher, day -> periods of generator rows
    for (QSqlQuery q = query(db, QString::fromLatin1(GeneratorRows)); q.next();)
        taught[{q.value(0).toInt(), q.value(4).toInt()}].insert(q.value(5).toInt());
    for (auto it = taught.cbegin(); it != taught.cend(); ++it) {
        const auto [teacher, day] = it.key();
        const int type = types.value(teacher, 0);
        const QSet<int> &held = busy.value(it.key());
        auto freeIn = [&](int from, int to) {
            int free = 0;
            for (int p = from; p <= to; ++p)
                free += !held.contains(p);
            return free;
        };
        const int last = week.periodsOn(day);
        QStringList missing;
        if (type == 1 && freeIn(1, last) < 1)
            missing << QStringLiteral("the day");
        if (type == 2) {
            bool morning = false, afternoon = false;
            for (int p : it.value())
                (week.morningPeriod(p) ? morning : afternoon) = true;
            if (morning && freeIn(1, week.morning) < 1)
                missing << QStringLiteral("the morning");
            if (afternoon && freeIn(week.morning + 1, last) < 1)
                missing << QStringLiteral("the afternoon");
        }
        if (type < 1 || type > 3)
            missing << QStringLiteral("any placement (type %1)").arg(type);
        for (const QString &where : std::as_const(missing))
            *breaks << QStringLiteral("teacher %1 has no free period in %2 of day %3 (type %4)").arg(teacher).arg(where).arg(day).arg(type);
    }
}

}

QStringList Breaks(const QSqlDatabase &db)
{
    QStringList breaks;
    QSqlQuery q = query(db, QStringLiteral("SELECT NoOfWorkingDays, PeriodsPerDay, PeriodsOnLastWorkingDay, "
                                           "PeriodsInMorningSession FROM SchoolSetup"));
    if (!q.next())
        return {QStringLiteral("no school in the store")};
    const Week week{q.value(0).toInt(), q.value(1).toInt(), qMin(q.value(2).toInt(), q.value(1).toInt()), q.value(3).toInt()};
    q = QSqlQuery();
    tableRules(db, &breaks);
    spreading(db, week, &breaks);
    freePeriods(db, week, &breaks);
    return breaks;
}

}
