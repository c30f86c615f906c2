#include "randomschool.h"
#include "routines.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"

#include <algorithm>
#include <random>
#include <vector>

namespace {

using Random = std::mt19937;

int below(Random &random, int n)
{
    return n <= 1 ? 0 : int(random() % quint32(n));
}

template<typename List>
void shuffle(List &list, Random &random)
{
    for (qsizetype i = qsizetype(list.size()) - 1; i > 0; --i)
        std::swap(list[i], list[below(random, int(i) + 1)]);
}

// The week as a grid of days x PeriodsPerDay; the short last day leaves its last cells unused.
struct Calendar
{
    int days = 0;
    int periods = 0;
    int lastDay = 0;
    int morning = 0;
    int periodsOn(int day) const { return day == days ? lastDay : periods; }
    int week() const { return (days - 1) * periods + lastDay; }
    int cells() const { return days * periods; }
    int slot(int day, int period) const { return (day - 1) * periods + period - 1; }
    int dayOf(int slot) const { return slot / periods + 1; }
    int periodOf(int slot) const { return slot % periods + 1; }
    bool morningPeriod(int period) const { return period <= morning; }
    QList<int> weekSlots() const
    {
        QList<int> all;
        for (int day = 1; day <= days; ++day)
            for (int p = 1; p <= periodsOn(day); ++p)
                all.append(slot(day, p));
        return all;
    }
};

enum class Mark { None, CombinedSubject, CombinedClassMain, CombinedClassAdded, CombinedTeacherMain, CombinedTeacherAdded };

struct Allotment
{
    int division = 0; // index into the class divisions
    int subject = 0;
    int periods = 0;
    Mark mark = Mark::None;
    int group = -1;
    int teacher = -1;
    QList<int> placed; // the slots of the complete week
    bool ownsClassSlots() const { return mark != Mark::CombinedTeacherAdded; }
};

struct Teacher
{
    int type = 3; // the free-period type the teacher's week keeps
    int load = 0;
    std::vector<bool> busy;
};

class Planner
{
public:
    Planner(const RandomSchool::Shape &shape, quint32 seed)
        : m_shape(shape), m_cal{shape.days, shape.periodsPerDay, shape.lastDay, shape.morning}, m_random(seed)
    {
    }

    void run()
    {
        for (int c = 0; c < m_shape.classes; ++c)
            planClass(c);
        packTeachers();
    }

    const Calendar &calendar() const { return m_cal; }
    const QList<Allotment> &allotments() const { return m_allotments; }
    const QList<Teacher> &teachers() const { return m_teachers; }
    int divisionCount() const { return m_shape.classes * m_shape.divisions; }
    int divisionsPerClass() const { return m_shape.divisions; }
    int classOf(int division) const { return division / m_shape.divisions + 1; }
    int divisionCodeOf(int division) const { return division % m_shape.divisions + 1; }
    int groupCount() const { return m_groups; }
    int subjectCount() const { return m_subjects; }

    // The NoOfPeriods that gives the teacher's type: free periods a day of 2 or more, 1 or more, fewer.
    int noOfPeriods(const Teacher &t) const
    {
        const int week = m_cal.week();
        if (t.type == 2)
            return t.load;
        if (t.type == 1)
            return qMax(t.load, week - 2 * m_cal.days + 1);
        return qMax(t.load, week - m_cal.days + 1);
    }

private:
    // Subject codes: the two-a-day subjects first, then the daily ones, then the rest; a combined subject
    // partner and a combined teacher's subject have codes of their own past them.
    QList<int> curriculum()
    {
        const int d = m_cal.days;
        QList<int> counts;
        for (int i = 0; i < m_shape.twiceSubjects; ++i)
            counts << 2 * d;
        for (int i = 0; i < m_shape.dailySubjects; ++i)
            counts << d;
        int left = m_cal.week() - m_shape.twiceSubjects * 2 * d - m_shape.dailySubjects * d;
        while (left > 0) {
            int count = 1 + below(m_random, d - 1);
            if (d >= 3 && below(m_random, 4) == 0)
                count = d + 1 + below(m_random, d - 2);
            count = qMin(count, left);
            counts << count;
            left -= count;
        }
        m_subjects = qMax(m_subjects, int(counts.size()));
        return counts;
    }

    static constexpr int PartnerSubjects = 100;
    static constexpr int AddedSubjects = 200;

    int addAllotment(int division, int subject, int periods, Mark mark = Mark::None, int group = -1)
    {
        Allotment a;
        a.division = division;
        a.subject = subject;
        a.periods = periods;
        a.mark = mark;
        a.group = group;
        m_allotments.append(a);
        return int(m_allotments.size()) - 1;
    }

    void planClass(int c)
    {
        const QList<int> counts = curriculum();
        const int first = c * m_shape.divisions;
        const int fixed = m_shape.twiceSubjects + m_shape.dailySubjects;
        // Three of the smaller subjects of two periods or more carry the groups, where there are three.
        QList<int> candidates;
        for (int s = fixed; s < counts.size(); ++s)
            if (counts[s] >= 2)
                candidates << s;
        shuffle(candidates, m_random);
        const bool grouped = m_shape.groups && m_shape.divisions >= 2 && candidates.size() >= 3;
        for (int v = 0; v < m_shape.divisions; ++v) {
            const int division = first + v;
            QList<int> locked; // allotments whose slots a group partner in division A decides
            for (int s = 0; s < counts.size(); ++s) {
                const int subject = s + 1;
                if (grouped && v == 0 && s == candidates[0])
                    m_ccMain = addAllotment(division, subject, counts[s], Mark::CombinedClassMain, m_groups++);
                else if (grouped && v == 1 && s == candidates[0])
                    locked << addAllotment(division, subject, counts[s], Mark::CombinedClassAdded, m_allotments[m_ccMain].group);
                else if (grouped && v == 0 && s == candidates[1])
                    m_cpMain = addAllotment(division, subject, counts[s], Mark::CombinedSubject, m_groups++);
                else if (grouped && v == 1 && s == candidates[1])
                    locked << addAllotment(division, PartnerSubjects + c + 1, counts[s], Mark::CombinedSubject,
                                           m_allotments[m_cpMain].group);
                else if (grouped && v == 0 && s == candidates[2])
                    m_ctMain = addAllotment(division, subject, counts[s], Mark::CombinedTeacherMain, m_groups++);
                else
                    addAllotment(division, subject, counts[s]);
            }
            if (grouped && v == 0)
                addAllotment(division, AddedSubjects + c + 1, counts[candidates[2]], Mark::CombinedTeacherAdded,
                             m_allotments[m_ctMain].group);
            for (int a : std::as_const(locked))
                m_allotments[a].placed = m_allotments[m_allotments[a].mark == Mark::CombinedClassAdded ? m_ccMain : m_cpMain].placed;
            plantDivision(division);
        }
    }

    // Periods the allotment holds on the day beyond what the spreading allows: one a day below D a week, two
    // in different sessions from D, any number from 2D (one less with the short last day).
    int crowding(const std::vector<int> &at, int allotment, int day) const
    {
        int n = 0;
        int held[2] = {0, 0};
        for (int p = 1; p <= m_cal.periodsOn(day); ++p) {
            if (at[m_cal.slot(day, p)] != allotment)
                continue;
            if (n < 2)
                held[n] = p;
            ++n;
        }
        if (n <= 1)
            return 0;
        const int periods = m_allotments[allotment].periods;
        const bool daily = periods >= m_cal.days;
        const bool twice = daily && periods >= 2 * m_cal.days - (m_cal.lastDay != m_cal.periods ? 1 : 0);
        if (n == 2)
            return daily && m_cal.morningPeriod(held[0]) != m_cal.morningPeriod(held[1]) ? 0 : 1;
        return daily && twice ? 0 : n - 1;
    }

    // Lays the division's allotments over its week: random, then swaps that never crowd a day more, until
    // no day is crowded; a layout that stays crowded is thrown away for another.
    void plantDivision(int division)
    {
        QList<int> mine;
        for (int a = 0; a < m_allotments.size(); ++a)
            if (m_allotments[a].division == division && m_allotments[a].ownsClassSlots())
                mine << a;
        for (int attempt = 0; attempt < 50; ++attempt) {
            std::vector<int> at(size_t(m_cal.cells()), -1);
            QList<int> units;
            for (int a : std::as_const(mine)) {
                if (!m_allotments[a].placed.isEmpty()) {
                    for (int s : m_allotments[a].placed)
                        at[size_t(s)] = a;
                    continue;
                }
                for (int i = 0; i < m_allotments[a].periods; ++i)
                    units << a;
            }
            QList<int> open;
            for (int s : m_cal.weekSlots())
                if (at[size_t(s)] < 0)
                    open << s;
            Q_ASSERT(open.size() == units.size());
            shuffle(units, m_random);
            for (int i = 0; i < open.size(); ++i)
                at[size_t(open[i])] = units[i];
            if (!relieve(at, mine, open))
                continue;
            for (int a : std::as_const(mine))
                if (m_allotments[a].placed.isEmpty())
                    for (int s : m_cal.weekSlots())
                        if (at[size_t(s)] == a)
                            m_allotments[a].placed << s;
            // The combined teacher's added row stands in its main row's slots.
            for (Allotment &a : m_allotments)
                if (a.division == division && a.mark == Mark::CombinedTeacherAdded)
                    a.placed = m_allotments[m_ctMain].placed;
            return;
        }
        throw StoreError(QStringLiteral("No week found for a random school"));
    }

    bool relieve(std::vector<int> &at, const QList<int> &mine, const QList<int> &open)
    {
        int total = 0;
        for (int a : mine)
            for (int day = 1; day <= m_cal.days; ++day)
                total += crowding(at, a, day);
        for (int step = 0; step < 400 * open.size() && total > 0; ++step) {
            const int x = open[below(m_random, int(open.size()))];
            const int y = open[below(m_random, int(open.size()))];
            const int ax = at[size_t(x)], ay = at[size_t(y)];
            if (ax == ay)
                continue;
            const int days[2] = {m_cal.dayOf(x), m_cal.dayOf(y)};
            auto cost = [&] {
                int sum = 0;
                for (int a : {ax, ay})
                    for (int i = 0; i < 2; ++i)
                        if (i == 0 || days[1] != days[0])
                            sum += crowding(at, a, days[i]);
                return sum;
            };
            const int before = cost();
            std::swap(at[size_t(x)], at[size_t(y)]);
            const int after = cost();
            if (after > before)
                std::swap(at[size_t(x)], at[size_t(y)]);
            else
                total += after - before;
        }
        return total == 0;
    }

    int capOf(int type) const
    {
        const int week = m_cal.week();
        if (type == 2)
            return week - 2 * m_cal.days;
        if (type == 1)
            return week - m_cal.days;
        return week * m_shape.loadPercent / 100;
    }

    // The teacher takes the slots and still keeps a free period where the type asks for one: in every day
    // taught (type 1), in every session taught (type 2).
    bool fits(const Teacher &t, const QList<int> &taken) const
    {
        if (t.load + taken.size() > capOf(t.type))
            return false;
        std::vector<bool> busy = t.busy;
        for (int s : taken) {
            if (busy[size_t(s)])
                return false;
            busy[size_t(s)] = true;
        }
        if (t.type == 3)
            return true;
        for (int day = 1; day <= m_cal.days; ++day) {
            const int last = m_cal.periodsOn(day);
            const QList<QPair<int, int>> ranges = t.type == 2 ? QList<QPair<int, int>>{{1, qMin(m_cal.morning, last)}, {m_cal.morning + 1, last}}
                                                                : QList<QPair<int, int>>{{1, last}};
            for (const auto &[from, to] : ranges) {
                int taught = 0;
                for (int p = from; p <= to; ++p)
                    taught += busy[size_t(m_cal.slot(day, p))];
                if (taught > 0 && taught == to - from + 1)
                    return false;
            }
        }
        return true;
    }

    // Largest first, each to the first teacher it fits, else to a new teacher of a random type; a generated
    // Combined Class row goes with its main row's teacher.
    void packTeachers()
    {
        QList<int> jobs;
        for (int a = 0; a < m_allotments.size(); ++a)
            if (m_allotments[a].mark != Mark::CombinedClassAdded)
                jobs << a;
        shuffle(jobs, m_random);
        std::stable_sort(jobs.begin(), jobs.end(),
                         [this](int x, int y) { return m_allotments[x].periods > m_allotments[y].periods; });
        for (int a : std::as_const(jobs)) {
            const QList<int> &taken = m_allotments[a].placed;
            int chosen = -1;
            for (int t = 0; t < m_teachers.size() && chosen < 0; ++t)
                if (fits(m_teachers[t], taken))
                    chosen = t;
            if (chosen < 0) {
                Teacher fresh;
                fresh.busy.assign(size_t(m_cal.cells()), false);
                const int draw = below(m_random, 20);
                fresh.type = draw < 8 ? 3 : draw < 15 ? 1 : 2;
                if (!fits(fresh, taken))
                    fresh.type = 3;
                m_teachers.append(fresh);
                chosen = int(m_teachers.size()) - 1;
            }
            Teacher &t = m_teachers[chosen];
            for (int s : taken)
                t.busy[size_t(s)] = true;
            t.load += int(taken.size());
            m_allotments[a].teacher = chosen;
            if (m_allotments[a].mark == Mark::CombinedClassMain)
                for (Allotment &added : m_allotments)
                    if (added.mark == Mark::CombinedClassAdded && added.group == m_allotments[a].group)
                        added.teacher = chosen;
        }
    }

    RandomSchool::Shape m_shape;
    Calendar m_cal;
    Random m_random;
    QList<Allotment> m_allotments;
    QList<Teacher> m_teachers;
    int m_groups = 0;
    int m_subjects = 0;
    int m_ccMain = -1, m_cpMain = -1, m_ctMain = -1; // of the class being planned
};

void writeSchool(const Sql &sql, const Planner &plan)
{
    const Calendar &cal = plan.calendar();
    sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala')"));
    sql.run(QStringLiteral("INSERT INTO CityMaster VALUES (1, 1, 'Kochi')"));
    sql.run(QStringLiteral("INSERT INTO SchoolSetup VALUES ('Random School', 'Main Road', 'Ward 4', 1, '682001', ?, ?, ?, ?, 1)"),
            {cal.days, cal.periods, cal.lastDay, cal.morning});
    for (int p = 1; p <= cal.periods; ++p)
        sql.run(QStringLiteral("INSERT INTO PeriodDuration VALUES (?, ?, 45)"), {p, QStringLiteral("P%1").arg(p)});
    const int divisions = plan.divisionCount();
    for (int v = 0; v < divisions; ++v) {
        if (plan.divisionCodeOf(v) == 1) {
            const int classCode = plan.classOf(v);
            sql.run(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?)"),
                    {classCode, QStringLiteral("Class %1").arg(classCode), plan.divisionsPerClass(), classCode});
            sql.run(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays VALUES (?, ?)"), {classCode, cal.days});
        }
        sql.run(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"),
                {plan.classOf(v), QString(QChar(u'A' + plan.divisionCodeOf(v) - 1)), plan.divisionCodeOf(v)});
    }
    QList<int> subjects;
    for (const Allotment &a : plan.allotments())
        if (!subjects.contains(a.subject))
            subjects << a.subject;
    std::sort(subjects.begin(), subjects.end());
    for (int s : std::as_const(subjects))
        sql.run(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?)"),
                {s, QStringLiteral("Subject %1").arg(s), QStringLiteral("S%1").arg(s)});
    for (int t = 0; t < plan.teachers().size(); ++t)
        sql.run(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, 0, ?, ?, NULL, 'S', NULL, NULL, '', '', '', 0, '', '', 0, "
                               "'', ?, ?, 0, 0, 0, 0)"),
                {t + 1, QStringLiteral("Teacher %1").arg(t + 1), QStringLiteral("T%1").arg(t + 1),
                 plan.noOfPeriods(plan.teachers()[t]), t + 1});
}

void writeAllotments(const QSqlDatabase &db, const Sql &sql, const Planner &plan)
{
    QHash<int, int> groupNumbers; // planned group -> its number of the kind
    for (const Allotment &a : plan.allotments()) {
        QString kind;
        if (a.mark == Mark::CombinedSubject)
            kind = QStringLiteral("CP");
        else if (a.mark == Mark::CombinedClassMain || a.mark == Mark::CombinedClassAdded)
            kind = QStringLiteral("CC");
        else if (a.mark == Mark::CombinedTeacherMain || a.mark == Mark::CombinedTeacherAdded)
            kind = QStringLiteral("CT");
        if (!kind.isEmpty() && !groupNumbers.contains(a.group))
            groupNumbers.insert(a.group, NextGroupNo(db, kind));
        const int number = groupNumbers.value(a.group, 0);
        sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                {a.teacher + 1, plan.classOf(a.division), plan.divisionCodeOf(a.division), a.subject, a.periods,
                 kind == QLatin1String("CP") ? kind : QString(), kind == QLatin1String("CC") ? kind : QString(),
                 kind == QLatin1String("CT") ? kind : QString(), kind == QLatin1String("CP") ? number : 0,
                 kind == QLatin1String("CC") ? number : 0, kind == QLatin1String("CT") ? number : 0,
                 a.mark == Mark::CombinedClassAdded ? QStringLiteral("Y") : QString(),
                 a.mark == Mark::CombinedTeacherAdded ? QStringLiteral("Y") : QString()});
    }
}

}

QList<RandomSchool::Shape> RandomSchool::shapes()
{
    //       name                     days periods last morning classes divisions daily twice load groups
    return {
        {"five days of eight",          5, 8, 8, 4, 3, 2, 2, 1, 100, true},
        {"six days, short last day",    6, 8, 5, 4, 2, 3, 2, 1, 95, true},
        {"long days of nine",           5, 9, 9, 5, 2, 2, 3, 1, 100, true},
        {"two doubles a day",           6, 9, 9, 4, 2, 2, 1, 2, 100, true},
        {"ten periods, short last day", 5, 10, 6, 5, 3, 2, 2, 2, 100, true},
        {"tight, no groups",            6, 8, 8, 4, 3, 2, 2, 1, 100, false},
    };
}

RandomSchool::Summary RandomSchool::write(const QSqlDatabase &db, const Shape &shape, quint32 seed)
{
    Planner plan(shape, seed);
    plan.run();
    const Sql sql(db);
    Transaction transaction(db);
    writeSchool(sql, plan);
    writeAllotments(db, sql, plan);
    transaction.commit();

    Summary summary;
    summary.classDivisions = plan.divisionCount();
    summary.teachers = int(plan.teachers().size());
    summary.allotments = int(plan.allotments().size());
    summary.combinedGroups = plan.groupCount();
    for (const Teacher &t : plan.teachers())
        ++summary.freeTypes[t.type];
    const Calendar &cal = plan.calendar();
    for (const Allotment &a : plan.allotments()) {
        summary.periods += a.periods;
        for (int s : a.placed)
            summary.week.append({plan.classOf(a.division), plan.divisionCodeOf(a.division), cal.dayOf(s), cal.periodOf(s),
                                 a.subject, a.teacher + 1,
                                 a.mark == Mark::CombinedClassAdded ? QStringLiteral("Y") : QString(),
                                 a.mark == Mark::CombinedTeacherAdded ? QStringLiteral("Y") : QString()});
    }
    return summary;
}
