#include "sampleplan.h"

#include <QHash>
#include <algorithm>
#include <cmath>

// Who teaches what in a sample school. The rows go out in the order a school hands its subjects out, each
// teacher taking a run of them near the band's load; loads outside the band are evened out by moving or
// swapping rows; then the class teachers are chosen and each teacher's working periods set.
namespace SampleSchool {
namespace {

// The order in which a school hands its subjects out: a teacher's periods run along it, so that a teacher
// takes one subject, or two neighbouring ones, through consecutive classes.
int subjectRank(int subject)
{
    static const int order[] = {English, Malayalam, Hindi, Sanskrit, Maths, Computer, Evs, Science, Physics, Chemistry,
                                Biology, Social, MoralScience, PhysicalEducation, Art, WorkExperience, Music, Library};
    return int(std::find(std::begin(order), std::end(order), subject) - std::begin(order));
}

bool isActivity(int subject)
{
    return subject == MoralScience || subject == PhysicalEducation || subject == Art || subject == WorkExperience
        || subject == Music || subject == Library;
}

// A maximum flow by augmenting paths, for the small networks of the plan.
class Flow
{
public:
    explicit Flow(int nodes) : m_edges(nodes) {}
    // Returns the edge, for flowOn().
    QPair<int, int> add(int from, int to, int capacity)
    {
        m_edges[from].append({to, capacity, int(m_edges[to].size())});
        m_edges[to].append({from, 0, int(m_edges[from].size()) - 1});
        return {from, int(m_edges[from].size()) - 1};
    }
    void run(int source, int sink)
    {
        for (;;) {
            QList<bool> seen(m_edges.size(), false);
            if (push(source, sink, seen) == 0)
                return;
        }
    }
    int flowOn(QPair<int, int> edge) const
    {
        const Edge &e = m_edges[edge.first][edge.second];
        return e.original - e.capacity;
    }

private:
    struct Edge
    {
        Edge(int t, int c, int r) : to(t), capacity(c), reverse(r), original(c) {}
        int to, capacity, reverse, original;
    };
    int push(int node, int sink, QList<bool> &seen)
    {
        if (node == sink)
            return 1;
        seen[node] = true;
        for (Edge &e : m_edges[node]) {
            if (e.capacity <= 0 || seen[e.to])
                continue;
            if (push(e.to, sink, seen)) {
                --e.capacity;
                ++m_edges[e.to][e.reverse].capacity;
                return 1;
            }
        }
        return 0;
    }
    QList<QList<Edge>> m_edges;
};

class Staffer
{
public:
    Staffer(Plan &plan, const Staffing &staffing, std::mt19937 &random)
        : m_plan(plan), m_staffing(staffing), m_random(random)
    {
    }

    void run()
    {
        assignTeachers();
        chooseClassTeachers();
        setWorkingPeriods();
    }

private:
    const Week &week() const { return m_plan.week; }

    // The rows a teacher is given one by one: every row but the generated Combined Class rows, which
    // follow their main row's teacher.
    struct Item
    {
        int allotment;
        int periods;
    };

    // The class divisions a row binds its teacher to beyond its own: those of its generated Combined Class
    // rows, and its own when it is a generated Combined Teacher row. A teacher holds nothing else there.
    QList<int> boundDivisions(int allotment) const
    {
        const Allotment &a = m_plan.allotments[allotment];
        QList<int> bound;
        if (a.mark == Allotment::Mark::CombinedTeacherAdded)
            bound << a.division;
        if (a.mark == Allotment::Mark::CombinedClassMain)
            for (int other : m_plan.groups[a.group].allotments)
                if (other != allotment)
                    bound << m_plan.allotments[other].division;
        return bound;
    }

    bool fits(int teacher, int allotment) const
    {
        const Allotment &a = m_plan.allotments[allotment];
        const QList<int> bound = boundDivisions(allotment);
        for (int held : m_held.value(teacher)) {
            const Allotment &h = m_plan.allotments[held];
            if (a.group >= 0 && h.group == a.group)
                return false; // the members of a combined subject or teacher group have teachers of their own
            if (bound.contains(h.division) || boundDivisions(held).contains(a.division))
                return false;
        }
        return true;
    }

    bool outsideGroup(int teacher, int allotment) const
    {
        const int group = m_plan.allotments[allotment].group;
        for (int held : m_held.value(teacher))
            if (group >= 0 && m_plan.allotments[held].group == group)
                return false;
        return true;
    }

    void give(int teacher, const Item &item)
    {
        m_plan.allotments[item.allotment].teacher = teacher;
        m_held[teacher].append(item.allotment);
        m_plan.teachers[teacher].load += item.periods;
    }

    void take(int teacher, const Item &item)
    {
        m_plan.allotments[item.allotment].teacher = -1;
        m_held[teacher].removeOne(item.allotment);
        m_plan.teachers[teacher].load -= item.periods;
    }

    // Each band's rows go to as many teachers as its load asks for, in the school's order, each teacher
    // taking a run of rows near the band's load; then loads outside the band are evened out.
    void assignTeachers()
    {
        QList<Item> bands[2];
        QList<Item> left; // the generated Combined Teacher rows, and what no teacher of its band could take
        for (int i = 0; i < m_plan.allotments.size(); ++i) {
            const Allotment &a = m_plan.allotments[i];
            if (a.mark == Allotment::Mark::CombinedClassAdded)
                continue;
            if (a.mark == Allotment::Mark::CombinedTeacherAdded)
                left.append({i, a.periods});
            else
                bands[!m_staffing.oneBand && isActivity(a.subject) ? 1 : 0].append({i, a.periods});
        }
        for (int b = 0; b < 2; ++b) {
            if (bands[b].isEmpty())
                continue;
            const LoadBand band = b == 0 ? m_staffing.academic : m_staffing.activity;
            std::stable_sort(bands[b].begin(), bands[b].end(), [&](const Item &x, const Item &y) {
                const Allotment &a = m_plan.allotments[x.allotment];
                const Allotment &c = m_plan.allotments[y.allotment];
                return std::make_pair(subjectRank(a.subject), a.division) < std::make_pair(subjectRank(c.subject), c.division);
            });
            left += runOut(bands[b], band);
        }
        // These go to the least loaded teacher who may take them; failing that, to the least loaded who is
        // not in the row's group.
        for (const Item &item : std::as_const(left)) {
            int best = -1;
            for (bool strict : {true, false}) {
                for (int t = 0; t < m_plan.teachers.size(); ++t) {
                    if (strict ? !fits(t, item.allotment) : !outsideGroup(t, item.allotment))
                        continue;
                    if (best < 0 || m_plan.teachers[t].load < m_plan.teachers[best].load)
                        best = t;
                }
                if (best >= 0)
                    break;
            }
            if (best < 0)
                best = newTeacher();
            give(best, item);
        }
        for (const Group &g : std::as_const(m_plan.groups))
            if (g.kind == Group::Kind::Class)
                for (int a : g.allotments)
                    m_plan.allotments[a].teacher = m_plan.allotments[g.allotments.first()].teacher;
        for (int t = 0; t < m_plan.teachers.size(); ++t) {
            QHash<int, int> bySubject;
            for (int a : m_held.value(t))
                bySubject[m_plan.allotments[a].subject] += m_plan.allotments[a].periods;
            int subject = 0;
            for (auto it = bySubject.cbegin(); it != bySubject.cend(); ++it) {
                const int most = bySubject.value(subject);
                if (subject == 0 || it.value() > most || (it.value() == most && it.key() < subject))
                    subject = it.key();
            }
            m_plan.teachers[t].subject = subject;
        }
    }

    int newTeacher()
    {
        m_plan.teachers.append(Teacher());
        return int(m_plan.teachers.size()) - 1;
    }

    // The rows of one band handed out in order; returns those no teacher of the band could take.
    QList<Item> runOut(const QList<Item> &items, const LoadBand &band)
    {
        const int weekPeriods = week().periods();
        int total = 0;
        for (const Item &item : items)
            total += item.periods;
        const int lowest = int(std::ceil(band.lowest * weekPeriods));
        const int highest = qMin(weekPeriods, int(std::floor(band.highest * weekPeriods)));
        int count = m_staffing.oneBand ? total / qMax(1, lowest) : int(std::lround(total / (band.target * weekPeriods)));
        count = qMax(count, (total + weekPeriods - 1) / weekPeriods);
        count = qMax(1, count);
        const int first = int(m_plan.teachers.size());
        for (int k = 0; k < count; ++k)
            newTeacher();

        QList<bool> given(items.size(), false);
        int remaining = total;
        for (int k = 0; k < count; ++k) {
            const int t = first + k;
            const double target = double(remaining) / (count - k);
            const bool last = k == count - 1;
            for (;;) {
                int next = pickAhead(t, items, given, 0, 1, [](int) { return 0.0; }, 1);
                if (next < 0)
                    break;
                const int load = m_plan.teachers[t].load;
                if (!last && m_staffing.oneBand) {
                    // Every teacher at the lowest load or a little above: the next row, or one further on
                    // that lands the teacher in the band nearest its foot.
                    if (load >= lowest)
                        break;
                    if (load + items[next].periods > lowest) {
                        const int filler = pickAhead(t, items, given, next, 60, [&](int after) {
                            return after >= lowest && after <= highest ? after : 1e9;
                        }, 1e9);
                        next = filler >= 0 ? filler : next;
                    }
                } else if (!last && load + items[next].periods - target >= target - load) {
                    // A smaller row further on may bring the teacher nearer the load.
                    next = pickAhead(t, items, given, next + 1, 40, [&](int after) { return std::abs(target - after); },
                                     target - load);
                    if (next < 0)
                        break;
                }
                given[next] = true;
                give(t, items[next]);
            }
            remaining -= m_plan.teachers[t].load;
        }
        QList<Item> left;
        for (int i = 0; i < items.size(); ++i)
            if (!given[i])
                left << items[i];
        evenOut(first, count, lowest, highest);
        return left;
    }

    // Among the next `window` rows from `from` on that teacher `t` may take, the one whose load after it
    // scores lowest, if below `bound`; -1 when none.
    template<typename Score>
    int pickAhead(int t, const QList<Item> &items, const QList<bool> &given, int from, int window, Score score,
                  double bound) const
    {
        int best = -1;
        for (int i = from, seen = 0; i < items.size() && seen < window; ++i) {
            if (given[i] || !fits(t, items[i].allotment))
                continue;
            ++seen;
            const double value = score(m_plan.teachers[t].load + items[i].periods);
            if (value < bound) {
                bound = value;
                best = i;
            }
        }
        return best;
    }

    int outside(int load, int lowest, int highest) const
    {
        return qMax(0, lowest - load) + qMax(0, load - highest);
    }

    // Moves a row, or swaps two, between the band's teachers while that brings loads into the band.
    void evenOut(int first, int count, int lowest, int highest)
    {
        for (int round = 0; round < 4 * count + 20; ++round) {
            int worst = -1;
            int worstBy = 0;
            for (int t = first; t < first + count; ++t) {
                const int by = outside(m_plan.teachers[t].load, lowest, highest);
                if (by > worstBy) {
                    worst = t;
                    worstBy = by;
                }
            }
            if (worst < 0 || !improve(worst, first, count, lowest, highest))
                return;
        }
    }

    bool improve(int a, int first, int count, int lowest, int highest)
    {
        struct Best
        {
            int gain = 0;
            bool sameSubject = false;
            int from = -1, to = -1, itemA = -1, itemB = -1;
        } best;
        const auto consider = [&](int b, int itemA, int itemB) {
            const int pa = itemA >= 0 ? m_plan.allotments[itemA].periods : 0;
            const int pb = itemB >= 0 ? m_plan.allotments[itemB].periods : 0;
            const int la = m_plan.teachers[a].load, lb = m_plan.teachers[b].load;
            const int before = outside(la, lowest, highest) + outside(lb, lowest, highest);
            const int after = outside(la - pa + pb, lowest, highest) + outside(lb + pa - pb, lowest, highest);
            const int gain = before - after;
            if (gain <= 0)
                return;
            const bool same = itemA >= 0 && itemB >= 0
                && m_plan.allotments[itemA].subject == m_plan.allotments[itemB].subject;
            if (gain > best.gain || (gain == best.gain && same && !best.sameSubject))
                best = {gain, same, a, b, itemA, itemB};
        };
        const QList<int> mine = m_held.value(a);
        for (int b = first; b < first + count; ++b) {
            if (b == a)
                continue;
            const QList<int> theirs = m_held.value(b);
            for (int x : mine) {
                if (movable(x, a, b, -1))
                    consider(b, x, -1);
                for (int y : theirs)
                    if (movable(x, a, b, y) && movable(y, b, a, x))
                        consider(b, x, y);
            }
            for (int y : theirs)
                if (movable(y, b, a, -1))
                    consider(b, -1, y);
        }
        if (best.gain <= 0)
            return false;
        if (best.itemA >= 0)
            take(best.from, {best.itemA, m_plan.allotments[best.itemA].periods});
        if (best.itemB >= 0)
            take(best.to, {best.itemB, m_plan.allotments[best.itemB].periods});
        if (best.itemA >= 0)
            give(best.to, {best.itemA, m_plan.allotments[best.itemA].periods});
        if (best.itemB >= 0)
            give(best.from, {best.itemB, m_plan.allotments[best.itemB].periods});
        return true;
    }

    // May row `allotment` go from teacher `from` to `to`, which gives up `leaving` (or nothing) in return?
    bool movable(int allotment, int from, int to, int leaving)
    {
        Q_UNUSED(from);
        if (leaving >= 0)
            m_held[to].removeOne(leaving);
        const bool ok = fits(to, allotment);
        if (leaving >= 0)
            m_held[to].append(leaving);
        return ok;
    }

    // A class teacher teaches the class division a subject with a period every day, in no group; each
    // teacher has one class at most. The most class divisions that can have one do, in class order, up
    // to the school's number, as long as the others can still fill period 1 every day.
    void chooseClassTeachers()
    {
        const int divisions = int(m_plan.divisions.size());
        QList<QList<int>> candidates(divisions); // allotments
        for (int i = 0; i < m_plan.allotments.size(); ++i) {
            const Allotment &a = m_plan.allotments[i];
            if (a.mark == Allotment::Mark::None && a.periods >= week().days && a.periods < 2 * week().days)
                candidates[a.division] << i;
        }
        for (QList<int> &list : candidates)
            Shuffle(list, m_random);
        QList<int> ownerOf(m_plan.teachers.size(), -1); // teacher -> division
        QList<int> chosen(divisions, -1);               // division -> allotment
        for (int d = 0; d < divisions; ++d) {
            QList<bool> seen(m_plan.teachers.size(), false);
            augment(d, candidates, ownerOf, chosen, seen);
        }
        const int most = m_staffing.classTeachers > 0 ? m_staffing.classTeachers : divisions;
        int kept = 0;
        for (int d = 0; d < divisions; ++d) {
            if (chosen[d] >= 0 && kept++ >= most)
                chosen[d] = -1;
        }
        // A division short of period 1 loses a class teacher who teaches it, so that the teacher may take
        // its period 1; a teacher short of period 1 gets a division of its own without a class teacher.
        for (int shortOne = periodOneShortOf(chosen); shortOne != -1; shortOne = periodOneShortOf(chosen)) {
            int release = -1, mostPeriods = 0;
            for (int d = 0; d < divisions; ++d) {
                if (chosen[d] < 0)
                    continue;
                const int teacher = shortOne >= 0 ? m_plan.allotments[chosen[d]].teacher : -2 - shortOne;
                const int division = shortOne >= 0 ? shortOne : d;
                int periods = 0;
                for (const Allotment &a : std::as_const(m_plan.allotments))
                    if (a.teacher == teacher && a.division == division && a.mark == Allotment::Mark::None)
                        periods += a.periods;
                if (periods > mostPeriods) {
                    mostPeriods = periods;
                    release = d;
                }
            }
            if (release < 0)
                break;
            chosen[release] = -1;
        }
        for (int d = 0; d < divisions; ++d) {
            if (chosen[d] < 0)
                continue;
            const Allotment &a = m_plan.allotments[chosen[d]];
            m_plan.teachers[a.teacher].classDivision = d;
            m_plan.teachers[a.teacher].classSubject = a.subject;
        }
    }

    // The periods 1 a teacher with fewer free periods than days must teach.
    int leastPeriodOnes(int teacher) const
    {
        return qMax(0, week().days - (week().periods() - m_plan.teachers[teacher].load));
    }

    // Period 1 of every day of a class division without a class teacher goes to a teacher who is no class
    // teacher, for the class teachers hold it in their own divisions; and a teacher with fewer free periods
    // than days must teach in period 1 on the other days, so in such divisions. A flow with lower bounds
    // tells whether that can be: a division takes one such period a day, a teacher gives one a day at
    // most, a lesson no more than its periods and one a day. Returns a division that falls short (from 0),
    // or a teacher (-2 - teacher), or -1.
    int periodOneShortOf(const QList<int> &chosen) const
    {
        const int divisions = int(m_plan.divisions.size());
        const int teachers = int(m_plan.teachers.size());
        const int days = week().days;
        QList<bool> classTeacher(teachers, false);
        for (int allotment : chosen)
            if (allotment >= 0)
                classTeacher[m_plan.allotments[allotment].teacher] = true;
        // Nodes: 0 source, 1 sink, 2 and 3 the source and sink of the lower bounds, then divisions and
        // teachers. A lower bound l on an edge u -> v becomes l from 2 to v and from u to 3.
        const int division0 = 4, teacher0 = 4 + divisions;
        Flow flow(teacher0 + teachers);
        QHash<QPair<int, int>, int> capacity;
        for (const Allotment &a : std::as_const(m_plan.allotments))
            if (a.mark == Allotment::Mark::None && chosen[a.division] < 0 && !classTeacher[a.teacher])
                capacity[{a.division, a.teacher}] += qMin(a.periods, days);
        for (auto it = capacity.cbegin(); it != capacity.cend(); ++it)
            flow.add(division0 + it.key().first, teacher0 + it.key().second, it.value());
        QList<QPair<int, QPair<int, int>>> bounds; // node (division or teacher) and its lower-bound edge
        int divisionsNeeding = 0, teachersNeeding = 0;
        for (int d = 0; d < divisions; ++d)
            if (chosen[d] < 0) {
                bounds.append({division0 + d, flow.add(2, division0 + d, days)});
                ++divisionsNeeding;
            }
        for (int t = 0; t < teachers; ++t) {
            if (classTeacher[t])
                continue;
            const int least = leastPeriodOnes(t);
            flow.add(teacher0 + t, 1, days - least);
            if (least > 0) {
                bounds.append({teacher0 + t, flow.add(teacher0 + t, 3, least)});
                teachersNeeding += least;
            }
        }
        flow.add(2, 1, teachersNeeding); // the sink's share of the teachers' lower bounds
        flow.add(0, 3, divisionsNeeding * days);
        flow.add(1, 0, divisionsNeeding * days + teachersNeeding + 1);
        flow.run(2, 3);
        for (const auto &[node, edge] : std::as_const(bounds)) {
            const int wanted = node < teacher0 ? days : leastPeriodOnes(node - teacher0);
            if (flow.flowOn(edge) < wanted)
                return node < teacher0 ? node - division0 : -2 - (node - teacher0);
        }
        return -1;
    }

    bool augment(int division, const QList<QList<int>> &candidates, QList<int> &ownerOf, QList<int> &chosen,
                 QList<bool> &seen)
    {
        for (int allotment : candidates[division]) {
            const int teacher = m_plan.allotments[allotment].teacher;
            if (seen[teacher])
                continue;
            seen[teacher] = true;
            const int other = ownerOf[teacher];
            if (other < 0 || augment(other, candidates, ownerOf, chosen, seen)) {
                ownerOf[teacher] = division;
                chosen[division] = allotment;
                return true;
            }
        }
        return false;
    }

    // Each teacher's working periods: the load and a few spare, kept where the free-period type leaves the
    // teacher room for two more periods than the load.
    void setWorkingPeriods()
    {
        const int weekPeriods = week().periods();
        for (Teacher &t : m_plan.teachers) {
            int periods = qMin(weekPeriods, t.load + int(m_random() % 4));
            const auto room = [&](int p) {
                const int type = week().freeTypeOf(p);
                const int kept = type == 3 ? 0 : type == 1 ? week().days : 2 * week().days; // free periods kept
                return weekPeriods - kept - t.load;
            };
            while (periods < weekPeriods && week().freeTypeOf(periods) != 3 && room(periods) < 2)
                ++periods;
            t.noOfPeriods = periods;
            t.freeType = week().freeTypeOf(periods);
        }
    }

    Plan &m_plan;
    const Staffing &m_staffing;
    std::mt19937 &m_random;
    QHash<int, QList<int>> m_held; // teacher -> allotments
};

}

void StaffPlan(Plan &plan, const Staffing &staffing, std::mt19937 &random)
{
    Staffer(plan, staffing, random).run();
}

}
