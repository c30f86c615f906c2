#pragma once
#include "manualentry.h"

#include <QStringList>

// One cell of a week grid on the manual screen.
struct WeekCell
{
    QString text;             // empty: a free slot
    bool ofSelection = false; // the row shown is the selected allotment's own
    bool filled() const { return !text.isEmpty(); }
};

// The headings of both week grids: a row per working day, a column per period of an ordinary day.
struct WeekLayout
{
    QList<int> days; // DayCode of each row, in the order of the week
    QStringList dayNames;
    QStringList periodNames; // PeriodCode 1 first
};

// A class division's or a teacher's week as the grid shows it: cells[row][PeriodCode - 1].
struct WeekGrid
{
    QList<QList<WeekCell>> cells;
    int occupied = 0; // teacher's week: the teacher's rows of the selected class division and subject

    WeekCell at(int row, int period) const { return cells.value(row).value(period - 1); }
};

// One line of Periods To Be Filled: a subject of the class division with periods still to place.
struct SubjectBalance
{
    int subject = 0;
    QString subjectName;
    int allotted = 0;
    int filled = 0;
    int balance() const { return allotted - filled; }
};

// What the manual screen shows of the stored timetable: both weeks, the counters and the panels of free
// slots and open periods. Each week is read with one query, so a click redraws cheaply even on a large
// school; nothing is cached, since the screen must always show the stored rows.
class ManualWeek
{
public:
    ManualWeek(const QSqlDatabase &db, const SchoolCalendar &calendar) : m_db(db), m_calendar(calendar) {}

    WeekLayout layout() const;
    // The class division's subjects, slot by slot; the main row of a combined teacher group shows.
    WeekGrid classWeek(const ManualSelection &selection) const;
    // The teacher's class divisions, slot by slot; the main class division of a combined class group shows.
    WeekGrid teacherWeek(const ManualSelection &selection) const;
    // NoOfSectionPeriods of the selected allotment; 0 without one.
    int allottedPeriods(const ManualSelection &selection) const;

    // Slots where every teacher of the combined subject group is free, a line per working day.
    QString teachersFree(int cpGroup) const;
    // Slots where no class division of the combined subject group is taken, in the same layout.
    QString teachersClassesFree(int cpGroup) const;
    // The class division's subjects with periods still open (or over-filled), by subject name.
    QList<SubjectBalance> periodsToBeFilled(int classCode, int division) const;

private:
    WeekGrid emptyWeek() const;
    // "  MON    P1, P2": the periods of each working day that are not among `busy`.
    QString freeSlotLines(const QList<PeriodSlot> &busy) const;
    QList<PeriodSlot> busySlots(const QString &statement, int cpGroup) const;

    QSqlDatabase m_db;
    SchoolCalendar m_calendar;
};
