#pragma once
#include "schoolcalendar.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

// A period of the week: DayCode and PeriodCode.
struct PeriodSlot
{
    int day = 0;
    int period = 0;
    friend bool operator==(const PeriodSlot &, const PeriodSlot &) = default;
};

// The three group numbers of an allotment; 0 is no group.
struct GroupNumbers
{
    int cp = 0;
    int cc = 0;
    int ct = 0;
    bool none() const { return cp <= 0 && cc <= 0 && ct <= 0; }
};

// One allotment row as the placement rules see it.
struct GroupMember
{
    int teacher = 0;
    int classCode = 0;
    int division = 0;
    int subject = 0;
    GroupNumbers groups;
    QString ccSystem;
    QString ctSystem;

    // Same AllotmentKey: teacher, class division and subject.
    bool sameKey(const GroupMember &other) const
    {
        return teacher == other.teacher && classCode == other.classCode && division == other.division
            && subject == other.subject;
    }
};

// Which kinds of group hold a taken class division in a slot.
struct GroupKinds
{
    bool combinedSubject = false;
    bool combinedClass = false;
    bool combinedTeacher = false;
    bool any() const { return combinedSubject || combinedClass || combinedTeacher; }
};

// Who placed a TimeTable row.
enum class Origin { Manual, PhaseOne, PhaseTwo };

// The rules between TimeTable rows, as the operations every writer and reader of the timetable uses.
namespace Placement {

// The working days in order: from the calendar's first DayCode, wrapping past 7.
QList<int> WeekDays(const SchoolCalendar &calendar);
// Periods on a day of the week: the last working day may have fewer.
int PeriodsOn(const SchoolCalendar &calendar, int day);
// True when the slot lies inside the week (its day works and the period exists that day).
bool InWeek(const SchoolCalendar &calendar, const PeriodSlot &slot);

bool TeacherIsFree(const QSqlDatabase &db, int teacher, const PeriodSlot &slot);
bool ClassDivisionIsFree(const QSqlDatabase &db, int classCode, int division, const PeriodSlot &slot);
int PlacedCount(const QSqlDatabase &db, int teacher, int classCode, int division, int subject);
// The subject of the class division's row in the slot whose CT is empty; -1 when the slot is free.
int MainSubjectAt(const QSqlDatabase &db, int classCode, int division, const PeriodSlot &slot);
// The group numbers of the first allotment of the class division and subject (one teacher has it).
GroupNumbers GroupNumbersOf(const QSqlDatabase &db, int classCode, int division, int subject);
// The rows that must move together with the class division's subject: its group's rows, widened once.
QList<GroupMember> GroupMembersOf(const QSqlDatabase &db, int classCode, int division, int subject,
                                  const GroupNumbers &groups);
// The kinds of group of the members whose class division is taken in the slot.
GroupKinds OccupiedGroupKinds(const QSqlDatabase &db, const QList<GroupMember> &members, const PeriodSlot &slot);
// One TimeTable row per member, in list order. A hand-placed row marks generated rows "CC"/"CT"; a
// generator copies the allotment's own CCSystem/CTSystem.
void PlaceMembers(const QSqlDatabase &db, const QList<GroupMember> &members, const PeriodSlot &slot, Origin origin);
// Deletes each member's row in the slot; a member without one is passed over.
void RemoveMembers(const QSqlDatabase &db, const QList<GroupMember> &members, const PeriodSlot &slot);

// A CC or CT mark of TimeTable or an allotment's CCSystem/CTSystem: any value but empty or null means a
// generated row. The writers put different marks ("CC", "CT", "Y"), so no reader may test for a value.
inline bool isGeneratedMark(const QVariant &mark)
{
    return !mark.isNull() && !mark.toString().isEmpty();
}
// The order in which a slot's rows are read so that the main row comes last and is what a cell shows.
inline QString slotReadingOrder()
{
    return QStringLiteral("ORDER BY CT DESC, CC DESC");
}
QString originMark(Origin origin);

}
