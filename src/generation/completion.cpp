#include "completion.h"
#include "rulecheck.h"

#include <QElapsedTimer>
#include <limits>

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

bool Completion::occupants(int meeting, int day, int period, QList<int> *found) const
{
    const CompletionModel::Meeting &m = m_model.meetings()[meeting];
    const int slot = m_model.slotOf(day, period);
    found->clear();
    for (int r : m.rows) {
        const CompletionModel::Lesson &lesson = m_model.lessons()[m_model.rows()[r].lesson];
        for (int holder : {m_model.classAt(lesson.klass, slot), m_model.teacherAt(lesson.teacher, slot)}) {
            if (holder == CompletionModel::Free || holder == meeting)
                continue;
            if (holder == CompletionModel::Clash || m_model.meetings()[holder].fixed)
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
    if (m.onlyPeriod > 0 && period != m.onlyPeriod)
        return false;
    return m_model.mayStand(meeting, day, period, evicted);
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

int Completion::breakCount() const
{
    return int(CheckTimetableRules(m_model).size());
}

void Completion::restoreStart()
{
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    for (int m = 0; m < meetings.size(); ++m)
        if (!meetings[m].fixed && meetings[m].day > 0)
            m_model.unplace(m);
    for (int m = 0; m < meetings.size(); ++m)
        if (!meetings[m].fixed && meetings[m].originalDay > 0)
            m_model.place(m, meetings[m].originalDay, meetings[m].originalPeriod);
}

int Completion::openRows() const
{
    int open = 0;
    for (const CompletionModel::Meeting &m : m_model.meetings())
        if (m.day == 0)
            open += int(m.rows.size());
    return open;
}

// A meeting that could stand where it stood before is put back there: nothing moves without need.
void Completion::undoNeedlessMoves()
{
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    for (int m = 0; m < meetings.size(); ++m) {
        const CompletionModel::Meeting &meeting = meetings[m];
        if (meeting.fixed || meeting.day == 0 || meeting.originalDay == 0)
            continue;
        if (meeting.day == meeting.originalDay && meeting.period == meeting.originalPeriod)
            continue;
        const int day = meeting.day;
        const int period = meeting.period;
        QList<int> found;
        if (!occupants(m, meetings[m].originalDay, meetings[m].originalPeriod, &found))
            continue;
        if (found.isEmpty() && allowed(m, meetings[m].originalDay, meetings[m].originalPeriod, {m})) {
            m_model.unplace(m);
            m_model.place(m, meetings[m].originalDay, meetings[m].originalPeriod);
            continue;
        }
        // A new meeting of the same rows standing in its old slot trades places with it: the same allotments
        // hold the same slots, so no rule can mind.
        if (found.size() == 1 && sameRows(m, found.first()) && meetings[found.first()].originalDay == 0) {
            const int twin = found.first();
            m_model.unplace(m);
            m_model.unplace(twin);
            m_model.place(m, meetings[m].originalDay, meetings[m].originalPeriod);
            m_model.place(twin, day, period);
        }
    }
}

bool Completion::sameRows(int a, int b) const
{
    const QList<int> &ra = m_model.meetings()[a].rows;
    const QList<int> &rb = m_model.meetings()[b].rows;
    if (ra.size() != rb.size())
        return false;
    for (int i = 0; i < ra.size(); ++i) {
        const CompletionModel::Row &x = m_model.rows()[ra[i]];
        const CompletionModel::Row &y = m_model.rows()[rb[i]];
        if (x.lesson != y.lesson || x.data.manual != y.data.manual)
            return false;
    }
    return true;
}

// One ejection chain: the open meeting takes the slot that costs least, what it moved out takes the next, and
// so on until nothing waits; a chain that runs too long or meets a meeting with no slot at all is undone.
bool Completion::chain(int start, int maxSteps, SplitMix &random)
{
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    const SchoolCalendar &cal = m_model.calendar();
    QList<int> waiting{start};
    QList<int> moved{start};
    QList<QPair<int, int>> before{{meetings[start].day, meetings[start].period}};
    QList<int> found, chosen;
    auto undo = [&] {
        for (int m : std::as_const(moved))
            if (meetings[m].day > 0)
                m_model.unplace(m);
        for (int i = 0; i < moved.size(); ++i)
            if (before[i].first > 0)
                m_model.place(moved[i], before[i].first, before[i].second);
    };
    for (int step = 0; !waiting.isEmpty(); ++step) {
        if (step >= maxSteps) {
            undo();
            return false;
        }
        const int m = waiting.takeLast();
        const int leftSlot = before[moved.indexOf(m)].first > 0
            ? m_model.slotOf(before[moved.indexOf(m)].first, before[moved.indexOf(m)].second) : -1;
        int bestCost = std::numeric_limits<int>::max();
        int bestDay = 0, bestPeriod = 0;
        for (int i = 0; i < cal.noOfWorkingDays; ++i) {
            const int day = weekDay(cal, i);
            for (int period = 1; period <= m_model.periodsOn(day); ++period) {
                if (m_model.slotOf(day, period) == leftSlot || !occupants(m, day, period, &found))
                    continue;
                if (!allowed(m, day, period, found) && !widen(m, day, period, &found))
                    continue;
                // What this chain has moved already stays where it went: no going round in circles.
                bool loops = false;
                int cost = random.below(16);
                for (int o : std::as_const(found)) {
                    loops = loops || moved.contains(o);
                    cost += 64 * rowsOf(o) + 16;
                }
                if (loops || cost >= bestCost)
                    continue;
                bestCost = cost;
                bestDay = day;
                bestPeriod = period;
                chosen = found;
            }
        }
        if (bestDay == 0) {
            undo();
            return false;
        }
        for (int o : std::as_const(chosen)) {
            moved.append(o);
            before.append({meetings[o].day, meetings[o].period});
            m_model.unplace(o);
            waiting.append(o);
        }
        m_model.place(m, bestDay, bestPeriod);
    }
    return true;
}

// When no chain places what is left, the search walks the plateau: an open meeting takes a slot anyway,
// moving out what stands there, short chains repair what that opened, and the best state seen is kept.
// Meetings moved lately are spared for a while, so that the walk does not turn back on itself.
void Completion::kick(QList<int> &open, const Settings &settings, const QElapsedTimer &clock, SplitMix &random,
                      Outcome *outcome)
{
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    const SchoolCalendar &cal = m_model.calendar();
    const int count = int(meetings.size());
    auto positions = [&] {
        std::vector<QPair<int, int>> at(count);
        for (int m = 0; m < count; ++m)
            at[m] = {meetings[m].day, meetings[m].period};
        return at;
    };
    auto openRowsOf = [&](const QList<int> &list) {
        int rows = 0, stored = 0;
        for (int m : list) {
            rows += rowsOf(m);
            stored += meetings[m].originalDay > 0 ? rowsOf(m) : 0;
        }
        return qMakePair(rows, stored);
    };
    std::vector<QPair<int, int>> best = positions();
    QList<int> bestOpen = open;
    std::vector<qint64> movedAt(count, -1000);
    QList<int> found, chosen;
    for (qint64 step = 0; !open.isEmpty(); ++step, ++outcome->iterations) {
        if ((settings.cancelRequested && settings.cancelRequested()) || outcome->iterations >= settings.iterationLimit) {
            outcome->cancelled = settings.cancelRequested && settings.cancelRequested();
            break;
        }
        if (clock.elapsed() > settings.timeLimitSeconds * 1000) {
            outcome->timedOut = true;
            break;
        }
        const int m = open[random.below(int(open.size()))];
        const int tenure = 10 + random.below(10);
        int bestCost = std::numeric_limits<int>::max();
        int bestDay = 0, bestPeriod = 0;
        for (int i = 0; i < cal.noOfWorkingDays; ++i) {
            const int day = weekDay(cal, i);
            for (int period = 1; period <= m_model.periodsOn(day); ++period) {
                if (!occupants(m, day, period, &found))
                    continue;
                if (!allowed(m, day, period, found) && !widen(m, day, period, &found))
                    continue;
                int cost = random.below(64);
                for (int o : std::as_const(found))
                    cost += 64 * rowsOf(o) + (step - movedAt[o] < tenure ? 4096 : 0);
                if (cost < bestCost) {
                    bestCost = cost;
                    bestDay = day;
                    bestPeriod = period;
                    chosen = found;
                }
            }
        }
        if (bestDay == 0)
            continue;
        for (int o : std::as_const(chosen)) {
            m_model.unplace(o);
            open.append(o);
            movedAt[o] = step;
        }
        m_model.place(m, bestDay, bestPeriod);
        movedAt[m] = step;
        open.removeOne(m);
        for (int i = 0; i < open.size();) {
            if (chain(open[i], 40, random))
                open.removeAt(i);
            else
                ++i;
        }
        const auto [rows, stored] = openRowsOf(open);
        // A state is the best so far by what it leaves open, and only while it breaks no more rules than the
        // week did before the completion.
        if (stored == 0 && rows < openRowsOf(bestOpen).first && breakCount() <= m_breaksBefore) {
            best = positions();
            bestOpen = open;
            if (settings.progress)
                settings.progress(rows, outcome->openBefore - rows);
        }
    }
    // The best state stands again.
    for (int m = 0; m < count; ++m)
        if (!meetings[m].fixed && meetings[m].day > 0)
            m_model.unplace(m);
    for (int m = 0; m < count; ++m)
        if (!meetings[m].fixed && best[m].first > 0)
            m_model.place(m, best[m].first, best[m].second);
    open = bestOpen;
}

Completion::Outcome Completion::run(const Settings &settings)
{
    Outcome outcome;
    QList<CompletionModel::Meeting> &meetings = m_model.meetings();
    outcome.openBefore = openRows();
    m_breaksBefore = breakCount();
    outcome.breaksBefore = m_breaksBefore;
    QList<int> open;
    for (int m = 0; m < meetings.size(); ++m)
        if (meetings[m].day == 0 && !meetings[m].fixed)
            open.append(m);
    SplitMix random;
    QElapsedTimer clock;
    clock.start();
    int openNow = outcome.openBefore;
    // Rounds over the open meetings, each trying longer chains than the one before, until a round places
    // nothing at its longest chains.
    const QList<int> lengths = {4, 12, 40, 120};
    const QList<int> attempts = {6, 6, 6, 8};
    for (int round = 0; !open.isEmpty(); ++round) {
        const int maxSteps = lengths[qMin<qsizetype>(round, lengths.size() - 1)];
        bool progress = false;
        for (int i = 0; i < open.size();) {
            if (settings.cancelRequested && settings.cancelRequested()) {
                outcome.cancelled = true;
                break;
            }
            if (clock.elapsed() > settings.timeLimitSeconds * 1000) {
                outcome.timedOut = true;
                break;
            }
            const int m = open[i];
            bool placed = false;
            for (int attempt = 0; attempt < attempts[qMin<qsizetype>(round, attempts.size() - 1)] && !placed; ++attempt) {
                ++outcome.iterations;
                placed = chain(m, maxSteps, random);
            }
            if (placed) {
                open.removeAt(i);
                openNow -= rowsOf(m);
                progress = true;
                if (settings.progress)
                    settings.progress(openNow, outcome.openBefore - openNow);
            } else {
                ++i;
            }
        }
        if (outcome.cancelled || outcome.timedOut || (!progress && round >= lengths.size() - 1)
            || outcome.iterations >= settings.iterationLimit)
            break;
    }
    if (!open.isEmpty() && !outcome.cancelled && !outcome.timedOut)
        kick(open, settings, clock, random, &outcome);
    undoNeedlessMoves();
    outcome.breaksAfter = breakCount();
    if (outcome.breaksAfter > outcome.breaksBefore) {
        // Never expected: every step is judged by the rules the check applies. Should one slip through, the
        // week goes back to how it was rather than be written with more breaks.
        restoreStart();
        outcome.breaksAfter = breakCount();
        outcome.undone = true;
    }
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
