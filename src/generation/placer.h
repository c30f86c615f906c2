#pragma once
#include "random.h"
#include "schoolsnapshot.h"
#include "timetablestate.h"
#include "worklist.h"

#include <functional>

// Where a run reports and how it is stopped: a progress figure after each placed row, a cancel request
// checked inside every loop, and a cap on the attempts of a unit that has none of its own.
struct RunControl
{
    std::function<void(int value, int maximum)> placed; // after each inserted row
    std::function<bool()> cancelRequested;
    qint64 uniformRemainderCap = 0; // 0: no cap, as on the screens
    int value = 0;
    int maximum = 1;
    bool cancelled = false;
    QList<int> unitsGivenUp; // IDs given up at the cap

    bool stop()
    {
        if (!cancelled && cancelRequested && cancelRequested())
            cancelled = true;
        return cancelled;
    }
};

// The placement routines of both phases over the in-memory TimeTable. `P`, the periods of the day drawn
// from, lives here: each routine starts it at 0 and it carries from draw to draw and unit to unit.
class Placer
{
public:
    Placer(const SchoolSnapshot &snapshot, TimetableState &timetable, RandomSource &random, RunControl &control)
        : m_s(snapshot), m_cal(snapshot.calendar), m_tt(timetable), m_random(random), m_control(control) {}

    // Phase I.
    void insertUniformPeriods(const WorkList &list);
    void insertUniformRemainder(const WorkList &list);
    void insertGroupPeriods(const WorkList &list, int group);
    // Phase II and Fix Balance Periods; `resetP` runs at the start of each routine, not of each row.
    void resetP() { m_p = 0; }
    void placePhaseTwoRow(const WorkRow &row);
    void fillFirstFreeSlots(const QList<WorkRow> &rows);

    // The rules, public for the pending reasons and for tests.
    void periodsOfDay(int day);
    int p() const { return m_p; }
    bool keepsFreePeriod(int teacher, int day, int period) const;
    bool dayWorks(int classCode, int day) const;
    // The spreading flags of a count to place: a period every day, and two on (nearly) every day.
    void flags(int count, bool *daily, bool *twice) const;

private:
    enum class Pass { First, Second };
    bool phaseOneSlotPasses(const WorkList &list, const WorkUnit &unit, int day, int period, Pass pass,
                            bool daily, bool twice) const;
    bool secondPeriodAllowed(quint64 key, int day, int period, bool daily, bool twice) const;
    bool phaseTwoSlotPasses(const WorkRow &row, int day, int period, Pass pass, bool daily, bool twice) const;
    // The first pass: each working day in turn draws a period until one passes or the tries run out.
    // False when a cancel stopped it.
    template<typename Passes, typename Insert, typename TriesLeft>
    bool firstPass(bool twice, int *remaining, Passes passes, Insert insert, TriesLeft triesLeft);
    bool randomAttempt(const WorkList &list, const WorkUnit &unit, bool daily, bool twice);
    void insertUnit(const WorkList &list, const WorkUnit &unit, int day, int period, bool ownPeriods);
    void insertRow(const WorkRow &row, int day, int period, const char *manual);

    const SchoolSnapshot &m_s;
    const SchoolCalendar &m_cal;
    TimetableState &m_tt;
    RandomSource &m_random;
    RunControl &m_control;
    int m_p = 0;
};
