#pragma once
#include <QList>
#include <QSqlDatabase>
#include <QString>

// Random schools for the rule tests and the rule-safety benchmark, built around a complete week that keeps
// every placement rule, so that each can be timetabled in full: long days of two sessions, subjects of one
// and of two periods a day (N = D and N = 2D for D working days) beside smaller ones, teachers packed close
// to their free-period type's limit, and combined subject, class and teacher groups. The week is found
// first and the allotments are its counts; the same shape and seed always give the same school.
class RandomSchool
{
public:
    struct Shape
    {
        const char *name = "";
        int days = 5;
        int periodsPerDay = 8;
        int lastDay = 8; // periods on the last working day
        int morning = 4; // periods of the morning session
        int classes = 2;
        int divisions = 2;      // of each class
        int dailySubjects = 2;  // N = D
        int twiceSubjects = 1;  // N = 2D
        int loadPercent = 100;  // the fullest week a teacher without a free-period demand gets
        bool groups = true;     // one combined group of each kind in every class of two divisions or more
    };
    // The shapes the tests and the benchmark draw from.
    static QList<Shape> shapes();

    // One row of the complete week, as a generator writes it to TimeTable.
    struct WeekRow
    {
        int classCode = 0;
        int division = 0;
        int day = 0;
        int period = 0;
        int subject = 0;
        int teacher = 0;
        QString cc; // "Y" on the rows of a generated Combined Class allotment
        QString ct; // "Y" on the rows of a generated Combined Teacher allotment
    };
    struct Summary
    {
        int classDivisions = 0;
        int teachers = 0;
        int allotments = 0;
        int periods = 0; // rows of the complete week: the periods all allotments ask for
        int combinedGroups = 0;
        int freeTypes[4] = {0, 0, 0, 0}; // teachers of free-period type 1 to 3 by their NoOfPeriods
        QList<WeekRow> week;
    };

    // Writes the school into a fresh store (nothing of a school in it) in one transaction. Throws StoreError
    // when the store refuses a row.
    static Summary write(const QSqlDatabase &db, const Shape &shape, quint32 seed);
};
