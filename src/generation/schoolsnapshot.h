#pragma once
#include "schoolcalendar.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QSqlDatabase>
#include <QString>

// An AllotmentKey packed in one number, for look-ups: teacher, class, division and subject, 16 bits each.
inline quint64 allotmentKey(int teacher, int classCode, int division, int subject)
{
    return (quint64(quint16(teacher)) << 48) | (quint64(quint16(classCode)) << 32)
        | (quint64(quint16(division)) << 16) | quint64(quint16(subject));
}

// One WorkAllotmentEntry row, in table order.
struct Allotment
{
    int teacher = 0;
    int classCode = 0;
    int division = 0;
    int subject = 0;
    int periods = 0; // NoOfSectionPeriods
    int cp = 0;
    int cc = 0;
    int ct = 0;
    QString ccSystem; // null read as ''
    QString ctSystem;
    quint64 key() const { return allotmentKey(teacher, classCode, division, subject); }
};

// A TeacherMaster row with a uniform period: the class teacher of one class division.
struct ClassTeacher
{
    int teacher = 0;
    int classCode = 0;
    int division = 0;
    int subject = 0;
    int periodCode = 0;
};

struct TeacherRow
{
    int code = 0;
    QString name;
    bool hasPeriods = false; // NoOfPeriods not null
    int noOfPeriods = 0;
};

// One TimeTable row as the generators keep it.
struct TimetableRow
{
    int classCode = 0;
    int division = 0;
    int day = 0;
    int period = 0;
    int subject = 0;
    int teacher = 0;
    QString manual;
    QString cc;
    QString ct;
};

// Everything a generation step reads from the store, read once: the calendar, the allotments in table
// order, the class teachers, the Phase I settings, the free-period types, class-wise days and TimeTable.
struct SchoolSnapshot
{
    SchoolCalendar calendar;
    QMap<int, QString> periodNames; // PeriodCode above 0 -> PeriodName
    QList<Allotment> allotments;
    QList<TeacherRow> teachers;          // TeacherMaster in table order, the code-0 row included
    QList<ClassTeacher> classTeachers;   // PeriodCode above 0, table order
    QHash<int, QString> classNames;      // ClassCode -> ClassName
    QHash<quint32, QString> divisionNames; // class << 16 | division -> DivisionName
    QHash<int, QString> subjectNames;

    bool settingsSaved = false;  // AGP1Master has a row
    QString uniformAnswer;       // its value, trimmed and upper-cased
    bool teacherDetailsExist = false;
    bool subjectDetailsExist = false;
    QList<int> settingTeachers;  // AGP1TeacherDetails.TeacherCode, table order
    QList<int> settingSubjects;  // AGP1SubjectDetails.SubjectCode, table order
    QHash<int, QSet<int>> teacherNoPeriods; // teacher -> periods marked "No"
    QHash<int, QSet<int>> subjectNoPeriods;

    QHash<int, int> freeTypes;   // first FreePeriodDetails row of each teacher
    QHash<int, int> classDays;   // ClasswiseNoOfWorkingDays
    QString piStatus;
    QList<TimetableRow> timetable; // table order

    void load(const QSqlDatabase &db);

    bool uniformWanted() const { return uniformAnswer == QLatin1String("YES"); }
    // The days a class works: its own number, or the school's when the class has none.
    int workingDaysOf(int classCode) const { return classDays.value(classCode, calendar.noOfWorkingDays); }
    int totalAllotted() const;
    // The free-period type of a teacher; 0 when FreePeriodDetails has no row for the teacher.
    int freeTypeOf(int teacher) const { return freeTypes.value(teacher, 0); }

    // What the generation steps themselves rewrite: class-wise days, PIStatus, the settings, the free types.
    void loadRunState(const QSqlDatabase &db);
    void loadSettings(const QSqlDatabase &db);
    void loadFreeTypes(const QSqlDatabase &db);
};

// The DayCode of the i-th working day (from 0), wrapping past 7.
inline int weekDay(const SchoolCalendar &calendar, int i)
{
    const int day = calendar.dayCode + i;
    return day > 7 ? day - 7 : day;
}
