#include "completion.h"

#include <QElapsedTimer>
#include <deque>
#include <limits>

namespace {
// A small generator of its own: the completion must not take draws from the program's generator, whose
// sequence belongs to the generation screens.
class SplitMix
{
public:
    quint64 next()
    {
        quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    int below(int n) { return n <= 1 ? 0 : int(next() % quint64(n)); }

private:
    quint64 m_state = 0x5A4C4F2024ull;
};

constexpr int TabuPenalty = 1000;
}

bool Completion::occupants(int meeting, int day, int period, QList<int> *found) const
{
    const CompletionModel::Meeting &m = m_model.meetings()[meeting];
    const int slot = m_model.slotOf(day, period);
    found->clear();
    for (int r : m.rows) {
        const CompletionModel::Lesson &lesson = m_model.lessons()[m_model.rows()[r].lesson];
        for (int holder : {m_model.classAt(lesson.klass, slot), m_model.teacherAt(lesson.teacher, slot)}) {
            if (holder == -1 || holder == meeting)
                continue;
            if (holder == -2 || m_model.meetings()[holder].fixed)
                return false;
            if (!found->contains(holder))
                found->append(holder);
        }
    }
    return true;
}

bool Completion::allowed(int meeting, int day, int period, const QList<int> &evicted) const
{
    const CompletionModel::Meeting &m = m_model.meetings()[meeting];
    const SchoolCalendar &cal = m_model.calendar();
    const int periods = m_model.periodsOn(day);
    if (period > periods || (m.onlyPeriod > 0 && period != m.onlyPeriod))
        return false;
    QList<int> teachersDone;
    for (int r : m.rows) {
        const CompletionModel::Row &row = m_model.rows()[r];
        const CompletionModel::Lesson &lesson = m_model.lessons()[row.lesson];
        if (day > lesson.days)
            return false;
        // Phase I rows keep the "No" periods of the teacher and subject settings.
        if (row.data.manual == QLatin1String("1") && (lesson.noMask & (1u << period)))
            return false;
        // The spreading over the week, counted without the rows that would move away.
        int held = 0;
        int heldPeriod = 0;
        for (int other : m_model.lessonRows(row.lesson)) {
            const CompletionModel::Row &placed = m_model.rows()[other];
            if (placed.day == day && !evicted.contains(placed.meeting)) {
                ++held;
                heldPeriod = placed.period;
            }
        }
        if (!PlacementRules::AnotherPeriodAllowed(cal, lesson.spread, held, heldPeriod, period))
            return false;
        // The teacher's free-period type, once a teacher.
        if (teachersDone.contains(lesson.teacher))
            continue;
        teachersDone.append(lesson.teacher);
        const PlacementRules::Range range = PlacementRules::FreeTypeRange(cal, lesson.freeType, period, periods);
        int free = 0;
        for (int p = range.from; p <= range.to; ++p) {
            const int holder = m_model.teacherAt(lesson.teacher, m_model.slotOf(day, p));
            free += holder == -1 || holder == meeting || evicted.contains(holder);
        }
        if (!PlacementRules::FreeTypeAllows(lesson.freeType, free))
            return false;
    }
    return true;
}

bool Completion::widen(int meeting, int day, int period, QList<int> *evicted) const
{
    const CompletionModel::Meeting &m = m_model.meetings()[meeting];
    auto movable = [this](int holder) { return holder >= 0 && !m_model.meetings()[holder].fixed; };
    QList<int> teacherMeetings;
    for (int r : m.rows) {
        const CompletionModel::Row &row = m_model.rows()[r];
        const CompletionModel::Lesson &lesson = m_model.lessons()[row.lesson];
        for (int other : m_model.lessonRows(row.lesson)) {
            const int holder = m_model.rows()[other].meeting;
            if (m_model.rows()[other].day == day && movable(holder) && !evicted->contains(holder))
                evicted->append(holder);
        }
        const PlacementRules::Range range =
            PlacementRules::FreeTypeRange(m_model.calendar(), lesson.freeType, period, m_model.periodsOn(day));
        for (int p = range.from; p <= range.to; ++p) {
            const int holder = m_model.teacherAt(lesson.teacher, m_model.slotOf(day, p));
            if (movable(holder) && !evicted->contains(holder) && !teacherMeetings.contains(holder))
                teacherMeetings.append(holder);
        }
    }
    if (allowed(meeting, day, period, *evicted))
        return true;
    for (int holder : std::as_const(teacherMeetings)) {
        evicted->append(holder);
        if (allowed(meeting, day, period, *evicted))
            return true;
        evicted->removeLast();
    }
    return false;
}

int Completion::openRows() const
{
    int open = 0;
    for (const CompletionModel::Meeting &m : m_model.meetings())
        if (m.day == 0)
            open += int(m.rows.size());
    return open;
}

void Completion::restore(const std::vector<QPair<int, int>> &saved)
{
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    for (int m = 0; m < meetings.size(); ++m)
        if (!meetings[m].fixed && meetings[m].day > 0)
            m_model.unplace(m);
    for (int m = 0; m < meetings.size(); ++m)
        if (!meetings[m].fixed && saved[m].first > 0)
            m_model.place(m, saved[m].first, saved[m].second);
}

// A meeting that could stand where it stood before is put back there: nothing moves without need.
void Completion::undoNeedlessMoves()
{
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    QList<int> none;
    for (int m = 0; m < meetings.size(); ++m) {
        const CompletionModel::Meeting &meeting = meetings[m];
        if (meeting.fixed || meeting.day == 0 || meeting.originalDay == 0)
            continue;
        if (meeting.day == meeting.originalDay && meeting.period == meeting.originalPeriod)
            continue;
        const int day = meeting.day;
        const int period = meeting.period;
        m_model.unplace(m);
        QList<int> found;
        if (occupants(m, meetings[m].originalDay, meetings[m].originalPeriod, &found) && found.isEmpty()
            && allowed(m, meetings[m].originalDay, meetings[m].originalPeriod, none))
            m_model.place(m, meetings[m].originalDay, meetings[m].originalPeriod);
        else
            m_model.place(m, day, period);
    }
}

Completion::Outcome Completion::run(const Settings &settings)
{
    Outcome outcome;
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    const SchoolCalendar &cal = m_model.calendar();
    const int meetingCount = int(meetings.size());
    std::vector<QPair<int, int>> start(meetingCount), best(meetingCount);
    std::deque<int> open;
    for (int m = 0; m < meetingCount; ++m) {
        start[m] = {meetings[m].day, meetings[m].period};
        if (meetings[m].day == 0 && !meetings[m].fixed)
            open.push_back(m);
    }
    best = start;
    outcome.openBefore = openRows();
    int bestOpen = outcome.openBefore;
    int currentOpen = bestOpen;
    int storedOpen = 0; // rows that stood before the completion and are open now: a state with any is no result

    std::vector<qint64> placedAt(meetingCount, std::numeric_limits<qint64>::min() / 2);
    std::vector<qint64> leftAt(meetingCount, std::numeric_limits<qint64>::min() / 2);
    std::vector<int> leftSlot(meetingCount, -1);
    SplitMix random;
    QElapsedTimer clock;
    clock.start();
    int stuckInARow = 0;
    QList<int> found, chosen;

    qint64 iteration = 0;
    qint64 lastBetter = 0;
    for (; !open.empty() && iteration < settings.iterationLimit && iteration - lastBetter < settings.stallLimit; ++iteration) {
        if ((iteration & 255) == 0) {
            if (settings.cancelRequested && settings.cancelRequested()) {
                outcome.cancelled = true;
                break;
            }
            if (clock.elapsed() > settings.timeLimitSeconds * 1000) {
                outcome.timedOut = true;
                break;
            }
            if (settings.progress)
                settings.progress(currentOpen, outcome.openBefore - currentOpen);
        }
        const int m = open.front();
        open.pop_front();
        // The tabu tenure varies a little, so that two meetings cannot chase each other for ever.
        const int tenure = 7 + random.below(8);
        int bestCost = std::numeric_limits<int>::max();
        int bestDay = 0, bestPeriod = 0;
        for (int i = 0; i < cal.noOfWorkingDays; ++i) {
            const int day = weekDay(cal, i);
            for (int period = 1; period <= m_model.periodsOn(day); ++period) {
                if (!occupants(m, day, period, &found))
                    continue;
                if (!allowed(m, day, period, found) && !widen(m, day, period, &found))
                    continue;
                int cost = random.below(4);
                for (int o : found) {
                    cost += 8 * rowsOf(o) + 4;
                    if (iteration - placedAt[o] < tenure)
                        cost += TabuPenalty;
                }
                if (leftSlot[m] == m_model.slotOf(day, period) && iteration - leftAt[m] < tenure)
                    cost += TabuPenalty;
                if (cost < bestCost) {
                    bestCost = cost;
                    bestDay = day;
                    bestPeriod = period;
                    chosen = found;
                }
            }
        }
        if (bestDay == 0) {
            // No slot at all, whatever moves: the meeting waits, and the search ends when every open one does.
            open.push_back(m);
            if (++stuckInARow >= int(open.size()))
                break;
            continue;
        }
        stuckInARow = 0;
        for (int o : std::as_const(chosen)) {
            leftSlot[o] = m_model.slotOf(meetings[o].day, meetings[o].period);
            leftAt[o] = iteration;
            m_model.unplace(o);
            open.push_back(o);
            currentOpen += rowsOf(o);
            if (meetings[o].originalDay > 0)
                storedOpen += rowsOf(o);
        }
        m_model.place(m, bestDay, bestPeriod);
        placedAt[m] = iteration;
        currentOpen -= rowsOf(m);
        if (meetings[m].originalDay > 0)
            storedOpen -= rowsOf(m);
        if (currentOpen < bestOpen && storedOpen == 0) {
            bestOpen = currentOpen;
            lastBetter = iteration;
            for (int i = 0; i < meetingCount; ++i)
                best[i] = {meetings[i].day, meetings[i].period};
        }
    }

    outcome.iterations = iteration;
    // The best state stands; one no better than the start leaves everything where it was.
    restore(bestOpen < outcome.openBefore ? best : start);
    undoNeedlessMoves();
    outcome.openAfter = openRows();
    for (const CompletionModel::Meeting &meeting : std::as_const(meetings)) {
        if (meeting.fixed || meeting.day == 0)
            continue;
        if (meeting.originalDay == 0)
            outcome.placed += int(meeting.rows.size());
        else if (meeting.day != meeting.originalDay || meeting.period != meeting.originalPeriod)
            outcome.moved += int(meeting.rows.size());
    }
    if (settings.progress)
        settings.progress(outcome.openAfter, outcome.openBefore - outcome.openAfter);
    return outcome;
}
