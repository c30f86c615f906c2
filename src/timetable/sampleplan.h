#pragma once
#include "sampleschool.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <random>
#include <utility>

// A sample school in memory, before a row of it is written: the week, the class divisions, the teachers
// with their loads, the work allotments with their combined groups and class teachers, and a complete week
// that keeps every placement rule. The allotments are the counts of that week, so the school can always be
// timetabled.
namespace SampleSchool {

// Subject codes: positions in the subject master's list + 1.
enum SubjectCode { English = 1, Malayalam, Hindi, Maths, Evs, Science, Social, Physics, Chemistry, Biology, Computer,
                   PhysicalEducation, Art, Music, WorkExperience, Library, MoralScience, Sanskrit, SubjectCount = Sanskrit };

struct Week
{
    int days = 0;
    int periodsPerDay = 0;
    int lastDay = 0; // periods on the last working day
    int morning = 0; // periods of the morning session
    int periodsOn(int day) const { return day == days ? lastDay : periodsPerDay; }
    int periods() const { return (days - 1) * periodsPerDay + lastDay; }
    bool shortLastDay() const { return lastDay != periodsPerDay; }
    bool isMorning(int period) const { return period <= morning; }
    // The free-period type that the generators give a teacher of `noOfPeriods` working periods.
    int freeTypeOf(int noOfPeriods) const;
};

struct ClassDivision
{
    int classCode = 0;
    int division = 0;
    int grade = 0; // the school's own numbering of the class: I is 1
};

struct Teacher
{
    int subject = 0; // the subject most of the teacher's periods are in
    int load = 0;    // allotted periods, generated Combined Class rows not counted
    int noOfPeriods = 0;
    int freeType = 3;
    int classDivision = -1; // index of the class division the teacher is class teacher of
    int classSubject = 0;
};

struct Allotment
{
    enum class Mark { None, CombinedSubject, CombinedClassMain, CombinedClassAdded, CombinedTeacherMain, CombinedTeacherAdded };
    int teacher = 0;  // index into Plan::teachers
    int division = 0; // index into Plan::divisions
    int subject = 0;
    int periods = 0;
    Mark mark = Mark::None;
    int group = -1; // index into Plan::groups
    bool added() const { return mark == Mark::CombinedClassAdded || mark == Mark::CombinedTeacherAdded; }
};

struct Group
{
    enum class Kind { Subject, Class, Teacher };
    Kind kind = Kind::Subject;
    QList<int> allotments; // the main row first
};

struct Slot
{
    int day = 0;
    int period = 0;
};

struct Plan
{
    Week week;
    QStringList classNames; // by ClassCode - 1
    int divisionsPerClass = 0;
    QList<ClassDivision> divisions;
    QList<Teacher> teachers;
    QList<Allotment> allotments;
    QList<Group> groups;
    QList<QList<Slot>> placed; // per allotment: where the complete week holds its periods
};

// A range of teachers' loads, as shares of the week.
struct LoadBand
{
    double target = 0;
    double lowest = 0;
    double highest = 0;
};

struct Staffing
{
    LoadBand academic;     // the teachers of the school subjects
    LoadBand activity;     // physical education, art, music and the like
    bool oneBand = false;  // every teacher in the academic band
    int classTeachers = 0; // at most this many class divisions have a class teacher; 0: as many as can
};

// Gives every allotment row a teacher (a generated Combined Class row its main row's), chooses the class
// teachers and sets each teacher's working periods and free-period type.
void StaffPlan(Plan &plan, const Staffing &staffing, std::mt19937 &random);

// The whole plan of a size and seed, the complete week included. Throws StoreError in the unlikely case that
// no complete week was found.
Plan MakePlan(Size size, quint32 seed);

// Fisher-Yates on the generator's own draws, so that a seed gives the same school with any standard library.
template<typename List, typename Random>
void Shuffle(List &list, Random &random)
{
    for (qsizetype i = qsizetype(list.size()) - 1; i > 0; --i)
        std::swap(list[i], list[qsizetype(random() % quint32(i + 1))]);
}

// Lays the complete week out for the plan's allotments; false when the search gave up.
bool PlantWeek(Plan &plan, quint32 seed);

}
