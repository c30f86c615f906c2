#include "sampleplan.h"

#include <algorithm>
#include <random>
#include <vector>

// The complete week behind a sample school. The class teachers' periods are pinned to period 1 and the
// combined groups placed first; then slot by slot every class division is matched to a teacher it has
// periods with, the most pressed lessons and teachers first, and what is left over goes where it costs
// least. A search then swaps the periods of two slots, for a class division and every division its groups
// reach, or along a Kempe chain that also follows the teachers, until no teacher stands in two places,
// every teacher keeps the free periods of the teacher's type and every lesson is spread over the week as
// the generators spread it. A search that stalls starts afresh from another seed.
namespace SampleSchool {
namespace {

bool contains(const std::vector<int> &list, int value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

// A lone allotment, or the rows of a combined group, which stand in the same slots.
struct Lesson
{
    std::vector<int> classes;  // class division indexes
    std::vector<int> teachers; // each teacher once
    std::vector<int> allotments;
    std::vector<int> units; // its periods
    int periods = 0;
    bool daily = false;   // a second period on a day may stand in the other session
    bool twice = false;   // a third may stand beside two
    bool uniform = false; // the class teacher's: at period 1 every day
    bool grouped = false;
};

// Periods of a day, and of them in the morning.
struct Count
{
    int all = 0;
    int morning = 0;
};

struct Unit
{
    int lesson = 0;
    int slot = -1;
    bool pinned = false;
};

// Which units a swap of two slots moves: those of every class division the swap reaches.
struct Swap
{
    std::vector<int> fromP, fromQ;
    std::vector<int> teachers, lessons, classes;
};

class WeekLayout
{
public:
    static constexpr int StallLimit = 6000; // moves without a new lowest cost before the search gives up
    static constexpr int SlotsTried = 16;   // slots a period is tried in, each move
    static constexpr int LongestSwap = 40;  // periods a swap may move at most
    static constexpr int WorseTaken = 15;   // percent of the moves that make things worse that are taken
    WeekLayout(const Plan &plan, quint32 seed) : m_w(plan.week), m_random(seed)
    {
        m_perDay = m_w.periodsPerDay;
        m_slots = m_w.days * m_perDay;
        for (int s = 0; s < m_slots; ++s)
            if (periodOf(s) <= m_w.periodsOn(dayOf(s)))
                m_valid.push_back(s);
        m_order = m_valid;
        m_classes = int(plan.divisions.size());
        m_teachers = int(plan.teachers.size());
        for (const Teacher &t : plan.teachers)
            m_freeType.push_back(t.freeType);
        buildLessons(plan);
        m_classAt.assign(size_t(m_classes) * m_slots, -1);
        m_teacherAt.assign(size_t(m_teachers) * m_slots, 0);
        m_teacherUnits.assign(size_t(m_teachers) * m_slots, {});
        m_teacherDay.assign(size_t(m_teachers) * m_w.days, {});
        m_lessonDay.assign(m_lessons.size() * size_t(m_w.days), {});
        m_classMark.assign(m_classes, 0);
        m_teacherMark.assign(m_teachers, 0);
        m_lessonMark.assign(m_lessons.size(), 0);
        m_unitMark.assign(m_units.size(), 0);
        m_tabu.assign(m_units.size() * size_t(m_slots), -1);
    }

    bool run()
    {
        pinUniformPeriods();
        placeGroups();
        for (int s : m_valid)
            fillSlot(s);
        fillHoles();
        if (std::any_of(m_units.begin(), m_units.end(), [](const Unit &u) { return u.slot < 0; }))
            return false;
        return search(40000 + 40 * int(m_units.size()));
    }

    void write(Plan &plan) const
    {
        plan.placed = QList<QList<Slot>>(plan.allotments.size());
        for (const Unit &u : m_units)
            for (int a : m_lessons[u.lesson].allotments)
                plan.placed[a].append({dayOf(u.slot), periodOf(u.slot)});
        for (QList<Slot> &list : plan.placed)
            std::sort(list.begin(), list.end(),
                      [](Slot x, Slot y) { return std::make_pair(x.day, x.period) < std::make_pair(y.day, y.period); });
    }

private:
    int dayOf(int s) const { return s / m_perDay + 1; }
    int periodOf(int s) const { return s % m_perDay + 1; }
    int slotOf(int day, int period) const { return (day - 1) * m_perDay + period - 1; }
    bool morning(int s) const { return m_w.isMorning(periodOf(s)); }
    int &classAt(int c, int s) { return m_classAt[size_t(c) * m_slots + s]; }
    int classAt(int c, int s) const { return m_classAt[size_t(c) * m_slots + s]; }
    int teacherAt(int t, int s) const { return m_teacherAt[size_t(t) * m_slots + s]; }
    int random(int n) { return n > 0 ? int(m_random() % quint32(n)) : 0; }

    void buildLessons(const Plan &plan)
    {
        const auto addLesson = [&](const QList<int> &allotments, bool grouped) {
            Lesson l;
            for (int a : allotments) {
                const Allotment &row = plan.allotments[a];
                l.allotments.push_back(a);
                if (!contains(l.classes, row.division))
                    l.classes.push_back(row.division);
                if (!contains(l.teachers, row.teacher))
                    l.teachers.push_back(row.teacher);
            }
            const Allotment &first = plan.allotments[allotments.first()];
            const Teacher &teacher = plan.teachers[first.teacher];
            l.periods = first.periods;
            l.daily = l.periods >= m_w.days;
            l.twice = m_w.shortLastDay() ? l.periods >= 2 * m_w.days - 1 : l.periods >= 2 * m_w.days;
            l.uniform = !grouped && teacher.classDivision == first.division && teacher.classSubject == first.subject;
            l.grouped = grouped;
            const int index = int(m_lessons.size());
            for (int p = 0; p < l.periods; ++p) {
                l.units.push_back(int(m_units.size()));
                m_units.push_back({index, -1, false});
            }
            m_lessons.push_back(l);
        };
        for (const Group &g : plan.groups)
            addLesson(g.allotments, true);
        for (int a = 0; a < plan.allotments.size(); ++a)
            if (plan.allotments[a].group < 0)
                addLesson({a}, false);
        m_lessonsOf.assign(m_classes, {});
        m_lessonLeft.assign(m_lessons.size(), 0);
        m_teacherLeft.assign(m_teachers, 0);
        for (int l = 0; l < int(m_lessons.size()); ++l) {
            for (int c : m_lessons[l].classes)
                m_lessonsOf[c].push_back(l);
            for (int t : m_lessons[l].teachers)
                m_teacherLeft[t] += m_lessons[l].periods;
            m_lessonLeft[l] = m_lessons[l].periods;
        }
    }

    void place(int u, int s)
    {
        Unit &unit = m_units[u];
        const Lesson &l = m_lessons[unit.lesson];
        for (int c : l.classes)
            classAt(c, s) = u;
        const size_t day = size_t(dayOf(s) - 1);
        const bool isMorning = morning(s);
        for (int t : l.teachers) {
            if (m_teacherAt[size_t(t) * m_slots + s]++ == 0) {
                ++m_teacherDay[size_t(t) * m_w.days + day].all;
                m_teacherDay[size_t(t) * m_w.days + day].morning += isMorning;
            }
            m_teacherUnits[size_t(t) * m_slots + s].push_back(u);
            --m_teacherLeft[t];
        }
        ++m_lessonDay[size_t(unit.lesson) * m_w.days + day].all;
        m_lessonDay[size_t(unit.lesson) * m_w.days + day].morning += isMorning;
        --m_lessonLeft[unit.lesson];
        unit.slot = s;
    }

    void unplace(int u)
    {
        Unit &unit = m_units[u];
        const Lesson &l = m_lessons[unit.lesson];
        for (int c : l.classes)
            classAt(c, unit.slot) = -1;
        const size_t day = size_t(dayOf(unit.slot) - 1);
        const bool isMorning = morning(unit.slot);
        for (int t : l.teachers) {
            if (--m_teacherAt[size_t(t) * m_slots + unit.slot] == 0) {
                --m_teacherDay[size_t(t) * m_w.days + day].all;
                m_teacherDay[size_t(t) * m_w.days + day].morning -= isMorning;
            }
            std::vector<int> &units = m_teacherUnits[size_t(t) * m_slots + unit.slot];
            units.erase(std::find(units.begin(), units.end(), u));
            ++m_teacherLeft[t];
        }
        --m_lessonDay[size_t(unit.lesson) * m_w.days + day].all;
        m_lessonDay[size_t(unit.lesson) * m_w.days + day].morning -= isMorning;
        ++m_lessonLeft[unit.lesson];
        unit.slot = -1;
    }

    int unplacedUnit(int lesson) const
    {
        for (int u : m_lessons[lesson].units)
            if (m_units[u].slot < 0)
                return u;
        return -1;
    }

    // --- What breaks a rule ---

    int clash(int t, int s) const { return std::max(0, teacherAt(t, s) - 1); }

    // Type 1 keeps a free period in the day, type 2 in each session it teaches in.
    int freeBreak(int t, int day) const
    {
        const int type = m_freeType[t];
        if (type == 3)
            return 0;
        const Count &busy = m_teacherDay[size_t(t) * m_w.days + size_t(day - 1)];
        const int n = m_w.periodsOn(day);
        if (type == 1)
            return std::max(0, busy.all - (n - 1));
        const int m = std::min(m_w.morning, n);
        const int afternoon = busy.all - busy.morning;
        return (busy.morning > 0 ? std::max(0, busy.morning - (m - 1)) : 0)
            + (afternoon > 0 ? std::max(0, afternoon - (n - m - 1)) : 0);
    }

    // One period a day below a period a day; a second in the other session; a third only for twice a day.
    int spreadBreak(int lesson, int day) const
    {
        const Lesson &l = m_lessons[lesson];
        const Count &held = m_lessonDay[size_t(lesson) * m_w.days + size_t(day - 1)];
        if (held.all <= 1)
            return 0;
        if (!l.daily)
            return held.all - 1;
        if (held.all == 2)
            return held.morning == 1 ? 0 : 1;
        return l.twice ? 0 : held.all - 2;
    }

    int localCost(const Swap &swap, int p, int q) const
    {
        const int dp = dayOf(p), dq = dayOf(q);
        int cost = 0;
        for (int t : swap.teachers) {
            cost += 3 * (clash(t, p) + clash(t, q)) + freeBreak(t, dp);
            if (dq != dp)
                cost += freeBreak(t, dq);
        }
        for (int l : swap.lessons) {
            cost += spreadBreak(l, dp);
            if (dq != dp)
                cost += spreadBreak(l, dq);
        }
        return cost;
    }

    int totalCost() const
    {
        int cost = 0;
        for (int t = 0; t < m_teachers; ++t) {
            for (int s : m_valid)
                cost += 3 * clash(t, s);
            for (int d = 1; d <= m_w.days; ++d)
                cost += freeBreak(t, d);
        }
        for (int l = 0; l < int(m_lessons.size()); ++l)
            for (int d = 1; d <= m_w.days; ++d)
                cost += spreadBreak(l, d);
        return cost;
    }

    // The cost that placing unit `u` at `s` adds.
    int placingCost(int u, int s)
    {
        const Lesson &l = m_lessons[m_units[u].lesson];
        const int day = dayOf(s);
        const auto cost = [&] {
            int c = 0;
            for (int t : l.teachers)
                c += 3 * clash(t, s) + freeBreak(t, day);
            return c + spreadBreak(m_units[u].lesson, day);
        };
        const int before = cost();
        place(u, s);
        const int after = cost();
        unplace(u);
        return after - before;
    }

    // --- The first layout ---

    // The class teacher's lesson holds period 1 of every day, and nothing moves it.
    void pinUniformPeriods()
    {
        for (Lesson &l : m_lessons) {
            if (!l.uniform)
                continue;
            for (int d = 1; d <= m_w.days; ++d) {
                const int u = l.units[size_t(d - 1)];
                place(u, slotOf(d, 1));
                m_units[u].pinned = true;
            }
        }
    }

    // Combined groups first, while the week is open: each period where it costs least.
    void placeGroups()
    {
        std::vector<int> order;
        for (int l = 0; l < int(m_lessons.size()); ++l)
            if (m_lessons[l].grouped)
                order.push_back(l);
        Shuffle(order, m_random);
        for (int l : order) {
            for (int u : m_lessons[l].units) {
                int best = -1, bestCost = 0;
                for (int s : m_valid) {
                    bool open = true;
                    for (int c : m_lessons[l].classes)
                        open = open && classAt(c, s) < 0;
                    if (!open)
                        continue;
                    const int cost = 8 * placingCost(u, s) + random(8);
                    if (best < 0 || cost < bestCost) {
                        best = s;
                        bestCost = cost;
                    }
                }
                if (best >= 0)
                    place(u, best);
            }
        }
    }

    // How pressed a lesson is at slot `s`: its periods still to place over the places left for them.
    double lessonPressure(int lesson, int s) const
    {
        const Lesson &l = m_lessons[lesson];
        const int today = dayOf(s);
        int room = 0;
        for (int d = today; d <= m_w.days; ++d) {
            bool used[2] = {false, false};
            for (int u : l.units) {
                const int at = m_units[u].slot;
                if (at >= 0 && dayOf(at) == d)
                    used[morning(at) ? 0 : 1] = true;
            }
            if (!l.daily) {
                room += !used[0] && !used[1];
                continue;
            }
            if (!used[0] && (d > today || morning(s)))
                ++room;
            if (m_w.periodsOn(d) > m_w.morning && !used[1])
                ++room;
        }
        return room > 0 ? double(m_lessonLeft[lesson]) / room : 10.0;
    }

    // How pressed a teacher is: periods still to place over the open slots left, less the free periods
    // the teacher's type keeps.
    double teacherPressure(int t, int s) const
    {
        int open = 0;
        const int today = dayOf(s);
        for (int d = today; d <= m_w.days; ++d) {
            const int n = m_w.periodsOn(d);
            const int first = d == today ? periodOf(s) : 1;
            int openDay = 0, openMorning = 0, openAfternoon = 0;
            for (int p = first; p <= n; ++p) {
                if (teacherAt(t, slotOf(d, p)) > 0)
                    continue;
                ++openDay;
                (m_w.isMorning(p) ? openMorning : openAfternoon) += 1;
            }
            int keep = 0;
            if (m_freeType[t] == 1)
                keep = 1;
            else if (m_freeType[t] == 2)
                keep = (openMorning > 0 ? 1 : 0) + (openAfternoon > 0 ? 1 : 0);
            if (d == today && keep > 0) {
                // A free period already passed today counts.
                int passedFree = 0;
                for (int p = 1; p < first; ++p)
                    passedFree += teacherAt(t, slotOf(d, p)) == 0;
                if (passedFree > 0 && m_freeType[t] == 1)
                    keep = 0;
            }
            open += std::max(0, openDay - keep);
        }
        return open > 0 ? double(m_teacherLeft[t]) / open : 10.0;
    }

    // Matches every open class division at slot `s` to a lesson whose teacher is free there and whose
    // rules allow it, trying the most pressed lessons first; a division left unmatched keeps a hole.
    void fillSlot(int s)
    {
        std::vector<int> open;
        for (int c = 0; c < m_classes; ++c)
            if (classAt(c, s) < 0)
                open.push_back(c);
        if (open.empty())
            return;
        const int day = dayOf(s);
        std::vector<double> pressure(m_teachers, -1);
        std::vector<std::vector<int>> candidates(m_classes);
        std::vector<double> top(m_classes, 0);
        for (int c : open) {
            std::vector<std::pair<double, int>> scored;
            for (int l : m_lessonsOf[c]) {
                const Lesson &lesson = m_lessons[l];
                if (lesson.grouped || m_lessonLeft[l] == 0)
                    continue;
                const int t = lesson.teachers.front();
                if (teacherAt(t, s) > 0)
                    continue;
                const int u = unplacedUnit(l);
                place(u, s);
                const bool allowed = spreadBreak(l, day) == 0 && freeBreak(t, day) == 0;
                unplace(u);
                if (!allowed)
                    continue;
                if (pressure[t] < 0)
                    pressure[t] = teacherPressure(t, s);
                scored.push_back({std::max(lessonPressure(l, s), pressure[t]) + random(1000) * 1e-6, l});
            }
            std::stable_sort(scored.begin(), scored.end(), [](auto a, auto b) { return a.first > b.first; });
            for (const auto &[score, l] : scored)
                candidates[c].push_back(l);
            top[c] = scored.empty() ? 0 : scored.front().first;
        }
        Shuffle(open, m_random);
        std::stable_sort(open.begin(), open.end(), [&](int a, int b) { return top[a] > top[b]; });
        std::vector<int> ownerOf(m_teachers, -1); // teacher -> class division at this slot
        std::vector<int> choice(m_classes, -1);
        for (int c : open) {
            std::vector<char> seen(m_teachers, 0);
            match(c, candidates, ownerOf, choice, seen);
        }
        for (int c : open)
            if (choice[c] >= 0)
                place(unplacedUnit(choice[c]), s);
    }

    bool match(int c, const std::vector<std::vector<int>> &candidates, std::vector<int> &ownerOf,
               std::vector<int> &choice, std::vector<char> &seen)
    {
        for (int l : candidates[c]) {
            const int t = m_lessons[l].teachers.front();
            if (seen[t])
                continue;
            seen[t] = 1;
            if (ownerOf[t] < 0 || match(ownerOf[t], candidates, ownerOf, choice, seen)) {
                ownerOf[t] = c;
                choice[c] = l;
                return true;
            }
        }
        return false;
    }

    // Whatever is left goes into the holes of its class division where it costs least.
    void fillHoles()
    {
        for (int c = 0; c < m_classes; ++c) {
            for (int s : m_valid) {
                if (classAt(c, s) >= 0)
                    continue;
                int best = -1, bestCost = 0;
                for (int l : m_lessonsOf[c]) {
                    if (m_lessons[l].grouped || m_lessonLeft[l] == 0)
                        continue;
                    const int u = unplacedUnit(l);
                    const int cost = placingCost(u, s);
                    if (best < 0 || cost < bestCost) {
                        best = u;
                        bestCost = cost;
                    }
                }
                if (best >= 0)
                    place(best, s);
            }
        }
    }

    // --- The search ---

    // The units that a swap of slots p and q in class division c moves; false when a pinned one would. A
    // plain swap takes every class division the moved units reach; a Kempe swap also every teacher, so
    // that a teacher who stood in only one of the two slots still does.
    bool collect(int c, int p, int q, bool kempe, Swap &swap) const
    {
        swap.fromP.clear();
        swap.fromQ.clear();
        swap.teachers.clear();
        swap.lessons.clear();
        swap.classes.clear();
        ++m_stamp;
        const auto mark = [&](std::vector<int> &marks, int index) {
            if (marks[size_t(index)] == m_stamp)
                return false;
            marks[size_t(index)] = m_stamp;
            return true;
        };
        const auto add = [&](int u, int slot) {
            if (m_units[u].pinned)
                return false;
            if (!mark(m_unitMark, u))
                return true;
            (slot == p ? swap.fromP : swap.fromQ).push_back(u);
            const Lesson &l = m_lessons[m_units[u].lesson];
            for (int other : l.classes)
                if (mark(m_classMark, other))
                    swap.classes.push_back(other);
            for (int t : l.teachers)
                if (mark(m_teacherMark, t))
                    swap.teachers.push_back(t);
            if (mark(m_lessonMark, m_units[u].lesson))
                swap.lessons.push_back(m_units[u].lesson);
            return true;
        };
        mark(m_classMark, c);
        swap.classes.push_back(c);
        size_t nextClass = 0, nextTeacher = 0;
        while (nextClass < swap.classes.size() || (kempe && nextTeacher < swap.teachers.size())) {
            if (swap.fromP.size() + swap.fromQ.size() > size_t(LongestSwap))
                return false;
            if (nextClass < swap.classes.size()) {
                const int cl = swap.classes[nextClass++];
                for (int slot : {p, q}) {
                    const int u = classAt(cl, slot);
                    if (u >= 0 && !add(u, slot))
                        return false;
                }
                continue;
            }
            // A pinned period stays, and the teacher with it: the swap may then leave a clash, which its
            // cost tells.
            const int t = swap.teachers[nextTeacher++];
            for (int slot : {p, q})
                for (int u : m_teacherUnits[size_t(t) * m_slots + slot])
                    if (!m_units[u].pinned && !add(u, slot))
                        return false;
        }
        return true;
    }

    void apply(const Swap &swap, int p, int q)
    {
        for (int u : swap.fromP)
            unplace(u);
        for (int u : swap.fromQ)
            unplace(u);
        for (int u : swap.fromP)
            place(u, q);
        for (int u : swap.fromQ)
            place(u, p);
    }

    bool isBad(int u) const
    {
        const Unit &unit = m_units[u];
        if (unit.pinned || unit.slot < 0)
            return false;
        const Lesson &l = m_lessons[unit.lesson];
        const int day = dayOf(unit.slot);
        for (int t : l.teachers)
            if (clash(t, unit.slot) > 0 || freeBreak(t, day) > 0)
                return true;
        return spreadBreak(unit.lesson, day) > 0;
    }

    bool search(int iterations)
    {
        int cost = totalCost();
        int lowest = cost, lowestAt = 0;
        std::vector<int> bad;
        Swap swap;
        std::vector<std::pair<int, int>> best; // (q, Kempe swap)
        // A search that finds no new lowest cost for a while gives up: a fresh start does better.
        for (int iteration = 0; cost > 0 && iteration < iterations && iteration - lowestAt <= StallLimit; ++iteration) {
            if (iteration % 64 == 0 || bad.empty()) {
                bad.clear();
                for (int u = 0; u < int(m_units.size()); ++u)
                    if (isBad(u))
                        bad.push_back(u);
                if (bad.empty()) // only pinned periods are at fault: nothing can be moved
                    return false;
            }
            const size_t pick = size_t(random(int(bad.size())));
            const int u = bad[pick];
            if (!isBad(u)) {
                bad[pick] = bad.back();
                bad.pop_back();
                continue;
            }
            const Lesson &l = m_lessons[m_units[u].lesson];
            const int c = l.classes[size_t(random(int(l.classes.size())))];
            const int p = m_units[u].slot;
            int bestDelta = 0;
            best.clear();
            // A few slots drawn at random, each tried with a plain and a Kempe swap.
            for (int k = 0; k < std::min(SlotsTried, int(m_order.size())); ++k) {
                std::swap(m_order[size_t(k)], m_order[size_t(k + random(int(m_order.size()) - k))]);
                const int q = m_order[size_t(k)];
                if (q == p || m_tabu[size_t(u) * m_slots + q] > iteration)
                    continue;
                size_t plainSize = 0;
                for (int kempe = 0; kempe < 2; ++kempe) {
                    if (!collect(c, p, q, kempe, swap))
                        continue;
                    const size_t size = swap.fromP.size() + swap.fromQ.size();
                    if (kempe && size == plainSize)
                        continue;
                    plainSize = size;
                    const int before = localCost(swap, p, q);
                    apply(swap, p, q);
                    const int delta = localCost(swap, p, q) - before;
                    apply(swap, q, p);
                    if (best.empty() || delta < bestDelta) {
                        best.clear();
                        bestDelta = delta;
                    }
                    if (delta == bestDelta)
                        best.push_back({q, kempe});
                }
            }
            if (best.empty())
                continue;
            if (bestDelta > 0 && random(100) >= WorseTaken)
                continue;
            const auto [q, kempe] = best[size_t(random(int(best.size())))];
            collect(c, p, q, kempe, swap);
            apply(swap, p, q);
            cost += bestDelta;
            for (int moved : swap.fromP)
                m_tabu[size_t(moved) * m_slots + p] = iteration + 8 + random(8);
            if (cost < lowest) {
                lowest = cost;
                lowestAt = iteration;
            }
        }
        return cost == 0 && totalCost() == 0;
    }


    Week m_w;
    std::mt19937 m_random;
    int m_perDay = 0;
    int m_slots = 0;
    int m_classes = 0;
    int m_teachers = 0;
    std::vector<int> m_valid; // the slots of the week, in order
    std::vector<int> m_order; // the same, drawn from
    std::vector<int> m_freeType;
    std::vector<Lesson> m_lessons;
    std::vector<Unit> m_units;
    std::vector<std::vector<int>> m_lessonsOf;      // class division -> lessons
    std::vector<int> m_lessonLeft;                  // periods of a lesson not yet placed
    std::vector<int> m_teacherLeft;
    std::vector<int> m_classAt;   // class division x slot -> unit, -1 when open
    std::vector<int> m_teacherAt; // teacher x slot -> units
    std::vector<std::vector<int>> m_teacherUnits; // teacher x slot -> the units
    std::vector<Count> m_teacherDay; // teacher x day -> busy periods
    std::vector<Count> m_lessonDay;  // lesson x day -> periods held
    // Marks of what a swap has reached, by stamp.
    mutable int m_stamp = 0;
    mutable std::vector<int> m_classMark, m_teacherMark, m_lessonMark, m_unitMark;
    std::vector<int> m_tabu;      // unit x slot -> iteration before which the unit may not return there
};

}

bool PlantWeek(Plan &plan, quint32 seed)
{
    WeekLayout layout(plan, seed);
    if (!layout.run())
        return false;
    layout.write(plan);
    return true;
}

}
