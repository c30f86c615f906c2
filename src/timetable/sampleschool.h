#pragma once
#include <QSqlDatabase>
#include <QString>

// Builds a complete, consistent school into an empty store: calendar and periods, places, classes with
// divisions, subjects, teachers, work allotments that fill every class division's week exactly, class
// teachers with uniform periods, and a few combined subject, class and teacher groups written as their
// screens write them. Tests, demonstrations and benchmarks all start from it.
namespace SampleSchool {

enum class Size {
    Small,  // 3 classes of 2 divisions, 5 days of 7 periods with a short last day
    Medium, // 10 classes of 3 divisions, 6 days of 7 periods with a short last day
    Large,  // 12 classes of 10 divisions, about 200 teachers, 6 days of 8 periods
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

// "small", "medium", "large"; false for any other word.
bool parseSize(const QString &word, Size *size);

// Writes the school in one transaction. The store must hold no school yet (StoreError otherwise); the same
// size and seed always give the same school.
Summary build(const QSqlDatabase &db, Size size, quint32 seed = 1);

}
