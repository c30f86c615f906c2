#pragma once
#include <QList>
#include <QSqlDatabase>
#include <QString>

// Builds a complete, consistent school into an empty store: calendar and periods, places, classes with
// divisions, subjects, teachers near a full load, work allotments that fill every class division's week
// exactly, class teachers with a uniform first period, and combined subject, class and teacher groups, all
// written as their screens write them. The school is laid out around a complete week that keeps every
// placement rule, so it can always be timetabled. Tests, demonstrations and benchmarks all start from it.
namespace SampleSchool {

enum class Size {
    Small,  // 3 classes of 2 divisions, 5 days of 7 periods with a short last day
    Medium, // 10 classes of 3 divisions, 6 days of 7 periods with a short last day
    Large,  // 12 classes of 10 divisions, 6 days of 8 periods
    Tight,  // 8 classes of 3 divisions, 6 days of 7 periods, every teacher at 95% of the week or more
};

struct Summary
{
    int classDivisions = 0;
    int teachers = 0;
    int subjects = 0;
    int allotments = 0;
    int periodsPerWeek = 0;
    int combinedSubjectGroups = 0;
    int combinedClassGroups = 0;
    int combinedTeacherGroups = 0;
    int classTeachers = 0;
};

// "small", "medium", "large", "tight"; false for any other word.
bool parseSize(const QString &word, Size *size);

// Writes the school in one transaction. The store must hold no school yet (StoreError otherwise); the same
// size and seed always give the same school.
Summary build(const QSqlDatabase &db, Size size, quint32 seed = 1);

// One period of the complete week the school is built around, as a generator writes it to TimeTable: a
// row for each allotment row in each of its slots, CC or CT "Y" on the rows of generated allotments.
struct WeekPeriod
{
    int classCode = 0;
    int division = 0;
    int day = 0;
    int period = 0;
    int subject = 0;
    int teacher = 0;
    QString cc;
    QString ct;
};

// The complete week of the school that build() writes for the same size and seed; nothing is stored.
QList<WeekPeriod> plantedWeek(Size size, quint32 seed = 1);

}
