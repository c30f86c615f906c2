#include "placement.h"
#include "sql.h"

#include <QSqlQuery>

namespace {

const char *const MemberColumns =
    "SELECT TeacherCode, ClassCode, DivisionCode, SubjectCode, CPGroupNo, CCGroupNo, CTGroupNo, CCSystem, CTSystem "
    "FROM WorkAllotmentEntry ";

QList<GroupMember> readMembers(QSqlQuery &query)
{
    QList<GroupMember> members;
    while (query.next()) {
        GroupMember member;
        member.teacher = query.value(0).toInt();
        member.classCode = query.value(1).toInt();
        member.division = query.value(2).toInt();
        member.subject = query.value(3).toInt();
        member.groups = {query.value(4).toInt(), query.value(5).toInt(), query.value(6).toInt()};
        member.ccSystem = query.value(7).toString();
        member.ctSystem = query.value(8).toString();
        members.append(member);
    }
    return members;
}

// The rows of one class division and subject, or the rows sharing any of the given group numbers; in
// table order, as the rows were entered.
QList<GroupMember> rowsOf(const QSqlDatabase &db, int classCode, int division, int subject, const GroupNumbers &groups)
{
    const Sql sql(db);
    if (groups.none()) {
        QSqlQuery query = sql.run(QString::fromLatin1(MemberColumns)
                                      + QStringLiteral("WHERE ClassCode = ? AND DivisionCode = ? AND SubjectCode = ? "
                                                       "ORDER BY rowid"),
                                  {classCode, division, subject});
        return readMembers(query);
    }
    QStringList filter;
    QVariantList values;
    const auto add = [&](int number, const char *column) {
        if (number > 0) {
            filter << QString::fromLatin1(column) + QStringLiteral(" = ?");
            values << number;
        }
    };
    add(groups.cp, "CPGroupNo");
    add(groups.cc, "CCGroupNo");
    add(groups.ct, "CTGroupNo");
    QSqlQuery query = sql.run(QString::fromLatin1(MemberColumns) + QStringLiteral("WHERE ")
                                  + filter.join(QStringLiteral(" OR ")) + QStringLiteral(" ORDER BY rowid"),
                              values);
    return readMembers(query);
}

void appendNew(QList<GroupMember> &list, const QList<GroupMember> &rows)
{
    for (const GroupMember &row : rows) {
        const bool known = std::any_of(list.cbegin(), list.cend(), [&](const GroupMember &m) { return m.sameKey(row); });
        if (!known)
            list.append(row);
    }
}

}

namespace Placement {

QList<int> WeekDays(const SchoolCalendar &calendar)
{
    QList<int> days;
    for (int i = 0; i < calendar.noOfWorkingDays; ++i)
        days << calendar.dayCodeOfRow(i);
    return days;
}

int PeriodsOn(const SchoolCalendar &calendar, int day)
{
    const QList<int> days = WeekDays(calendar);
    if (!days.contains(day))
        return 0;
    return day == days.last() ? calendar.periodsOnLastWorkingDay : calendar.periodsPerDay;
}

bool InWeek(const SchoolCalendar &calendar, const PeriodSlot &slot)
{
    return slot.period >= 1 && slot.period <= qMin<int>(PeriodsOn(calendar, slot.day), calendar.periodsPerDay);
}

bool TeacherIsFree(const QSqlDatabase &db, int teacher, const PeriodSlot &slot)
{
    return !Sql(db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE TeacherCode = ? AND PeriodCode = ? "
                                          "AND DayCode = ? LIMIT 1"),
                           {teacher, slot.period, slot.day});
}

bool ClassDivisionIsFree(const QSqlDatabase &db, int classCode, int division, const PeriodSlot &slot)
{
    return !Sql(db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE ClassCode = ? AND DivisionCode = ? "
                                          "AND PeriodCode = ? AND DayCode = ? LIMIT 1"),
                           {classCode, division, slot.period, slot.day});
}

int PlacedCount(const QSqlDatabase &db, int teacher, int classCode, int division, int subject)
{
    return Sql(db)
        .scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE TeacherCode = ? AND ClassCode = ? "
                               "AND DivisionCode = ? AND SubjectCode = ?"),
                {teacher, classCode, division, subject})
        .toInt();
}

int MainSubjectAt(const QSqlDatabase &db, int classCode, int division, const PeriodSlot &slot)
{
    const QVariant subject = Sql(db).scalar(
        QStringLiteral("SELECT SubjectCode FROM TimeTable WHERE ClassCode = ? AND DivisionCode = ? AND DayCode = ? "
                       "AND PeriodCode = ? AND (CT IS NULL OR CT = '') ORDER BY rowid LIMIT 1"),
        {classCode, division, slot.day, slot.period});
    return subject.isValid() ? subject.toInt() : -1;
}

GroupNumbers GroupNumbersOf(const QSqlDatabase &db, int classCode, int division, int subject)
{
    QSqlQuery query = Sql(db).run(QStringLiteral("SELECT CPGroupNo, CCGroupNo, CTGroupNo FROM WorkAllotmentEntry "
                                                 "WHERE ClassCode = ? AND DivisionCode = ? AND SubjectCode = ? "
                                                 "ORDER BY rowid LIMIT 1"),
                                  {classCode, division, subject});
    if (!query.next())
        return {};
    return {query.value(0).toInt(), query.value(1).toInt(), query.value(2).toInt()};
}

QList<GroupMember> GroupMembersOf(const QSqlDatabase &db, int classCode, int division, int subject,
                                  const GroupNumbers &groups)
{
    QList<GroupMember> list = rowsOf(db, classCode, division, subject, groups);
    // One widening pass over the list as it stands: a member of one group that belongs to a second group
    // brings that group's rows in, but rows found so are not widened again (a chain of three is cut).
    const qsizetype firstPass = list.size();
    for (qsizetype i = 0; i < firstPass; ++i) {
        const GroupMember member = list.at(i);
        appendNew(list, rowsOf(db, member.classCode, member.division, member.subject, member.groups));
    }
    return list;
}

GroupKinds OccupiedGroupKinds(const QSqlDatabase &db, const QList<GroupMember> &members, const PeriodSlot &slot)
{
    GroupKinds kinds;
    for (const GroupMember &member : members) {
        if (ClassDivisionIsFree(db, member.classCode, member.division, slot))
            continue;
        kinds.combinedSubject |= member.groups.cp > 0;
        kinds.combinedClass |= member.groups.cc > 0;
        kinds.combinedTeacher |= member.groups.ct > 0;
    }
    return kinds;
}

QString originMark(Origin origin)
{
    switch (origin) {
    case Origin::Manual:
        return QStringLiteral("M");
    case Origin::PhaseOne:
        return QStringLiteral("1");
    case Origin::PhaseTwo:
        return QStringLiteral("2");
    }
    return {};
}

void PlaceMembers(const QSqlDatabase &db, const QList<GroupMember> &members, const PeriodSlot &slot, Origin origin)
{
    const Sql sql(db);
    for (const GroupMember &member : members) {
        QString cc = member.ccSystem;
        QString ct = member.ctSystem;
        if (origin == Origin::Manual) {
            cc = member.ccSystem == QLatin1String("Y") ? QStringLiteral("CC") : QString(QLatin1String(""));
            ct = member.ctSystem == QLatin1String("Y") ? QStringLiteral("CT") : QString(QLatin1String(""));
        }
        sql.run(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, ?, '', ?, ?)"),
                {member.classCode, member.division, slot.day, slot.period, member.subject, member.teacher,
                 originMark(origin), cc, ct});
    }
}

void RemoveMembers(const QSqlDatabase &db, const QList<GroupMember> &members, const PeriodSlot &slot)
{
    const Sql sql(db);
    for (const GroupMember &member : members)
        sql.run(QStringLiteral("DELETE FROM TimeTable WHERE ClassCode = ? AND DivisionCode = ? AND DayCode = ? "
                               "AND PeriodCode = ? AND SubjectCode = ? AND TeacherCode = ?"),
                {member.classCode, member.division, slot.day, slot.period, member.subject, member.teacher});
}

}
