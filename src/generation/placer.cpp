#include "placer.h"
#include "placementrules.h"

#include <algorithm>

void Placer::periodsOfDay(int day)
{
    if (m_cal.periodsPerDay == m_cal.periodsOnLastWorkingDay) {
        m_p = m_cal.periodsPerDay;
        return;
    }
    const int last = m_cal.dayCode + m_cal.noOfWorkingDays - 1;
    if (last > 7)
        m_p = day == last - 7 ? m_cal.periodsOnLastWorkingDay : m_cal.periodsPerDay;
    else if (last == 7) {
        // In a seven-day week only the last day sets P; the other days keep the P of the draw before.
        if (day == 7)
            m_p = m_cal.periodsOnLastWorkingDay;
    } else
        m_p = day == last ? m_cal.periodsOnLastWorkingDay : m_cal.periodsPerDay;
}

bool Placer::keepsFreePeriod(int teacher, int day, int period) const
{
    // Counted over the day's P, which in a seven-day week may be the P of the draw before.
    const int type = m_s.freeTypeOf(teacher);
    const PlacementRules::Range range = PlacementRules::FreeTypeRange(m_cal, type, period, m_p);
    return PlacementRules::FreeTypeAllows(type, m_tt.teacherFreeCount(teacher, day, range.from, range.to));
}

bool Placer::dayWorks(int classCode, int day) const
{
    return day <= m_s.workingDaysOf(classCode);
}

void Placer::flags(int count, bool *daily, bool *twice) const
{
    // The generator judges the spreading by the school's week, whatever days the class works.
    const PlacementRules::Spread spread =
        PlacementRules::SpreadOf(count, m_cal.noOfWorkingDays, m_cal.periodsOnLastWorkingDay != m_cal.periodsPerDay);
    *daily = spread.daily;
    *twice = spread.twice;
}

bool Placer::secondPeriodAllowed(quint64 key, int day, int period, bool daily, bool twice) const
{
    const int held = m_tt.placedOnDay(key, day);
    return PlacementRules::AnotherPeriodAllowed(m_cal, {daily, twice}, held, held == 1 ? m_tt.onlyPeriodOnDay(key, day) : 0,
                                                period);
}

bool Placer::phaseOneSlotPasses(const WorkList &list, const WorkUnit &unit, int day, int period, Pass pass,
                                bool daily, bool twice) const
{
    for (int i : unit.rows) {
        const WorkRow &row = list.rows[i];
        if (m_s.teacherNoPeriods.value(row.teacher).contains(period)
            || m_s.subjectNoPeriods.value(row.subject).contains(period))
            return false;
        if (pass == Pass::First ? m_tt.placedOnDay(row.key(), day) >= 1
                                : !secondPeriodAllowed(row.key(), day, period, daily, twice))
            return false;
        if (!keepsFreePeriod(row.teacher, day, period) || !m_tt.classFree(row.classCode, row.division, day, period)
            || !m_tt.teacherFree(row.teacher, day, period) || !dayWorks(row.classCode, day))
            return false;
    }
    return true;
}

bool Placer::phaseTwoSlotPasses(const WorkRow &row, int day, int period, Pass pass, bool daily, bool twice) const
{
    if (pass == Pass::First ? m_tt.placedOnDay(row.key(), day) >= 1
                            : !secondPeriodAllowed(row.key(), day, period, daily, twice))
        return false;
    return keepsFreePeriod(row.teacher, day, period) && m_tt.classFree(row.classCode, row.division, day, period)
        && m_tt.teacherFree(row.teacher, day, period) && dayWorks(row.classCode, day);
}

void Placer::insertRow(const WorkRow &row, int day, int period, const char *manual)
{
    m_tt.add({row.classCode, row.division, day, period, row.subject, row.teacher, QString::fromLatin1(manual),
              row.ccSystem, row.ctSystem});
    ++m_control.value;
    if (m_control.placed)
        m_control.placed(m_control.value, m_control.maximum);
}

void Placer::insertUnit(const WorkList &list, const WorkUnit &unit, int day, int period, bool ownPeriods)
{
    for (int i : unit.rows)
        insertRow(list.rows[i], day, ownPeriods ? list.rows[i].periodCode : period, "1");
}

void Placer::insertUniformPeriods(const WorkList &list)
{
    m_p = 0;
    for (const WorkUnit &unit : list.unitsOf(1)) {
        const WorkRow &first = list.rows[unit.rows.first()];
        int remaining = first.p1Insert;
        int days = m_cal.noOfWorkingDays;
        if (m_cal.periodsOnLastWorkingDay != m_cal.periodsPerDay && first.periodCode > m_cal.periodsOnLastWorkingDay)
            days = m_cal.noOfWorkingDays - 1; // the short last day cannot hold this period
        for (int i = 0; i < days && remaining >= 1; ++i) {
            if (m_control.stop())
                return;
            const int day = weekDay(m_cal, i);
            periodsOfDay(day);
            bool failed = false;
            for (int r : unit.rows) {
                const WorkRow &row = list.rows[r];
                if (!keepsFreePeriod(row.teacher, day, row.periodCode)
                    || !m_tt.classFree(row.classCode, row.division, day, row.periodCode)
                    || !m_tt.teacherFree(row.teacher, day, row.periodCode) || !dayWorks(row.classCode, day))
                    failed = true;
            }
            // A day that fails is lost: the uniform period is not tried on another day.
            if (!failed) {
                insertUnit(list, unit, day, 0, true);
                --remaining;
            }
        }
    }
}

bool Placer::randomAttempt(const WorkList &list, const WorkUnit &unit, bool daily, bool twice)
{
    const int day = m_random.draw(m_cal.noOfWorkingDays);
    periodsOfDay(day);
    const int period = m_random.draw(m_p);
    if (!phaseOneSlotPasses(list, unit, day, period, Pass::Second, daily, twice))
        return false;
    insertUnit(list, unit, day, period, false);
    return true;
}

void Placer::insertUniformRemainder(const WorkList &list)
{
    m_p = 0;
    for (const WorkUnit &unit : list.unitsOf(1)) {
        const WorkRow &first = list.rows[unit.rows.first()];
        int remaining = first.p2Insert;
        bool daily, twice;
        flags(first.p1Insert + first.p2Insert, &daily, &twice);
        // No attempt limit of its own: only the caller's cap or a cancel ends a unit that cannot be placed.
        qint64 attempts = 0;
        while (remaining >= 1) {
            if (m_control.stop())
                return;
            if (m_control.uniformRemainderCap > 0 && attempts >= m_control.uniformRemainderCap) {
                m_control.unitsGivenUp.append(unit.id);
                break;
            }
            ++attempts;
            if (randomAttempt(list, unit, daily, twice))
                --remaining;
        }
    }
}

template<typename Passes, typename Insert, typename TriesLeft>
bool Placer::firstPass(bool twice, int *remaining, Passes passes, Insert insert, TriesLeft triesLeft)
{
    for (int i = 0; i < m_cal.noOfWorkingDays; ++i) {
        const int day = weekDay(m_cal, i);
        // With two periods a day, the first of them sits at a period that every day has.
        if (twice)
            m_p = m_cal.periodsOnLastWorkingDay;
        else
            periodsOfDay(day);
        for (int tries = 1;; ++tries) {
            if (m_control.stop())
                return false;
            const int period = m_random.draw(m_p);
            if (passes(day, period)) {
                insert(day, period);
                --*remaining;
                break;
            }
            if (!triesLeft(tries))
                break;
        }
    }
    return true;
}

void Placer::insertGroupPeriods(const WorkList &list, int group)
{
    m_p = 0;
    const int limit = m_cal.periodsPerDay * m_cal.noOfWorkingDays * 10;
    for (const WorkUnit &unit : list.unitsOf(group)) {
        int remaining = list.rows[unit.rows.first()].p2Insert;
        bool daily, twice;
        flags(remaining, &daily, &twice);
        if (daily
            && !firstPass(
                twice, &remaining,
                [&](int day, int period) { return phaseOneSlotPasses(list, unit, day, period, Pass::First, daily, twice); },
                [&](int day, int period) { insertUnit(list, unit, day, period, false); },
                [](int tries) { return tries < 25; }))
            return;
        for (int tries = 1; remaining > 0; ++tries) {
            if (m_control.stop())
                return;
            if (randomAttempt(list, unit, daily, twice))
                --remaining;
            if (tries > limit)
                break;
        }
    }
}

void Placer::placePhaseTwoRow(const WorkRow &row)
{
    int remaining = row.p2Insert;
    bool daily, twice;
    flags(remaining, &daily, &twice);
    if (daily
        && !firstPass(
            twice, &remaining,
            [&](int day, int period) { return phaseTwoSlotPasses(row, day, period, Pass::First, daily, twice); },
            [&](int day, int period) { insertRow(row, day, period, "2"); },
            [this](int tries) { return tries < 3 * m_p; }))
        return;
    const int limit = m_cal.periodsPerDay * m_cal.noOfWorkingDays * 10;
    for (int tries = 1; remaining > 0; ++tries) {
        if (m_control.stop())
            return;
        const int day = m_random.draw(m_cal.noOfWorkingDays);
        periodsOfDay(day);
        const int period = m_random.draw(m_p);
        if (phaseTwoSlotPasses(row, day, period, Pass::Second, daily, twice)) {
            insertRow(row, day, period, "2");
            --remaining;
        }
        if (tries > limit)
            break;
    }
}

void Placer::fillFirstFreeSlots(const QList<WorkRow> &rows)
{
    m_p = 0;
    QList<WorkRow> open;
    for (const WorkRow &row : rows)
        if (row.p2Insert > 0)
            open.append(row);
    std::stable_sort(open.begin(), open.end(), [](const WorkRow &a, const WorkRow &b) { return a.p2Insert > b.p2Insert; });
    for (const WorkRow &row : std::as_const(open)) {
        int remaining = row.p2Insert;
        for (int i = 0; i < m_cal.noOfWorkingDays; ++i) {
            if (m_control.stop())
                return;
            const int day = weekDay(m_cal, i);
            periodsOfDay(day);
            for (int p = 1; p <= m_p && remaining >= 1; ++p) {
                if (m_tt.classFree(row.classCode, row.division, day, p) && m_tt.teacherFree(row.teacher, day, p)
                    && dayWorks(row.classCode, day)) {
                    insertRow(row, day, p, "2");
                    --remaining;
                }
            }
        }
    }
}
