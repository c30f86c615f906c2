#include "worklist.h"
#include "storedrows.h"

#include <QSet>
#include <algorithm>

AllotmentIndex::AllotmentIndex(const QList<Allotment> &allotments) : m_allotments(allotments)
{
    for (int i = 0; i < allotments.size(); ++i) {
        const Allotment &a = allotments[i];
        if (!m_firstOfKey.contains(a.key()))
            m_firstOfKey.insert(a.key(), i);
        m_rowsOfKey[a.key()].append(i);
        if (a.cp > 0)
            m_byCp[a.cp].append(i);
        if (a.cc > 0)
            m_byCc[a.cc].append(i);
        if (a.ct > 0)
            m_byCt[a.ct].append(i);
    }
}

QList<int> AllotmentIndex::matching(const QList<int> &cp, const QList<int> &cc, const QList<int> &ct) const
{
    QList<int> rows;
    for (int g : cp)
        rows += m_byCp.value(g);
    for (int g : cc)
        rows += m_byCc.value(g);
    for (int g : ct)
        rows += m_byCt.value(g);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

QList<int> AllotmentIndex::expand(quint64 key, bool withCombinedClass) const
{
    const int at = first(key);
    if (at < 0)
        return {};
    const Allotment &own = m_allotments[at];
    const int cc = withCombinedClass ? own.cc : 0;
    if (own.cp <= 0 && cc <= 0 && own.ct <= 0)
        return m_rowsOfKey.value(key);
    const QList<int> firstLevel = matching(own.cp > 0 ? QList<int>{own.cp} : QList<int>{},
                                           cc > 0 ? QList<int>{cc} : QList<int>{},
                                           own.ct > 0 ? QList<int>{own.ct} : QList<int>{});
    QList<int> cps, ccs, cts;
    for (int i : firstLevel) {
        const Allotment &a = m_allotments[i];
        if (a.cp > 0)
            cps << a.cp;
        if (withCombinedClass && a.cc > 0)
            ccs << a.cc;
        if (a.ct > 0)
            cts << a.ct;
    }
    if (cps.isEmpty() && ccs.isEmpty() && cts.isEmpty())
        return m_rowsOfKey.value(key);
    return matching(cps, ccs, cts);
}

namespace {

// Placed rows of each key, and of each key at one period, for the balances.
struct PlacedCounts
{
    QHash<quint64, int> total;
    QHash<quint64, QHash<int, int>> atPeriod;
    explicit PlacedCounts(const QList<TimetableRow> &timetable)
    {
        for (const TimetableRow &r : timetable) {
            const quint64 key = allotmentKey(r.teacher, r.classCode, r.division, r.subject);
            ++total[key];
            ++atPeriod[key][r.period];
        }
    }
};

template<typename Less>
QList<int> ordered(QList<int> rows, const QList<Allotment> &allotments, Less)
{
    std::stable_sort(rows.begin(), rows.end(), [&](int a, int b) {
        return std::pair(allotments[a].classCode, allotments[a].division)
            < std::pair(allotments[b].classCode, allotments[b].division);
    });
    return rows;
}

class Builder
{
public:
    Builder(const SchoolSnapshot &s, const AllotmentIndex &index, const QList<TimetableRow> &timetable)
        : m_s(s), m_index(index), m_placed(timetable) {}

    WorkList build()
    {
        if (m_s.uniformWanted())
            addUniformRows();
        for (WorkRow &row : m_list.rows) {
            row.p1Insert -= m_placed.atPeriod.value(row.key()).value(row.periodCode);
            const int elsewhere = m_placed.total.value(row.key()) - m_placed.atPeriod.value(row.key()).value(row.periodCode);
            if (row.p2Insert == 0)
                row.p1Insert -= elsewhere;
            else
                row.p2Insert -= elsewhere;
        }
        QList<int> rows;
        for (int code : m_s.settingTeachers) {
            rows.clear();
            for (int i = 0; i < m_s.allotments.size(); ++i)
                if (m_s.allotments[i].teacher == code)
                    rows << i;
            addRows(2, ordered(rows, m_s.allotments, 0));
        }
        balance(2);
        for (int code : m_s.settingSubjects) {
            rows.clear();
            for (int i = 0; i < m_s.allotments.size(); ++i)
                if (m_s.allotments[i].subject == code)
                    rows << i;
            addRows(3, ordered(rows, m_s.allotments, 0));
        }
        balance(3);
        rows.clear();
        for (int i = 0; i < m_s.allotments.size(); ++i) {
            const Allotment &a = m_s.allotments[i];
            if (a.cp > 0 || a.cc > 0 || a.ct > 0)
                rows << i;
        }
        addRows(4, ordered(rows, m_s.allotments, 0));
        balance(4);
        return m_list;
    }

private:
    // A class teacher's uniform period: one period a day on the days the class works; a day's excess goes to
    // P2Insert. W and WL carry from row to row when a class has no row of its own.
    void addUniformRows()
    {
        QList<ClassTeacher> teachers = m_s.classTeachers;
        std::stable_sort(teachers.begin(), teachers.end(), [](const ClassTeacher &a, const ClassTeacher &b) {
            return std::pair(a.classCode, a.division) < std::pair(b.classCode, b.division);
        });
        const SchoolCalendar &cal = m_s.calendar;
        const bool shortLastDay = cal.periodsPerDay != cal.periodsOnLastWorkingDay;
        const int uniformDays = shortLastDay ? cal.noOfWorkingDays - 1 : cal.noOfWorkingDays;
        int w = 0;
        int wl = 0;
        for (const ClassTeacher &t : teachers) {
            ++m_id;
            const quint64 key = allotmentKey(t.teacher, t.classCode, t.division, t.subject);
            const int own = m_index.first(key);
            if (own < 0)
                continue;
            const int n = m_s.allotments[own].periods;
            for (int i : m_index.expand(key)) {
                const Allotment &a = m_s.allotments[i];
                if (m_listed.contains(a.key()))
                    break;
                if (m_s.classDays.contains(a.classCode)) {
                    w = m_s.classDays.value(a.classCode);
                    wl = shortLastDay ? w - 1 : uniformDays;
                }
                const int d = t.periodCode <= cal.periodsOnLastWorkingDay ? w : wl;
                append({1, m_id, a.classCode, a.division, a.teacher, a.subject, t.periodCode, n > d ? d : n,
                        n > d ? n - d : 0, a.ccSystem, a.ctSystem});
            }
        }
    }

    void addRows(int group, const QList<int> &allotments)
    {
        for (int at : allotments) {
            ++m_id;
            for (int i : m_index.expand(m_s.allotments[at].key())) {
                const Allotment &a = m_s.allotments[i];
                if (!m_listed.contains(a.key()))
                    append({group, m_id, a.classCode, a.division, a.teacher, a.subject, 0, 0, a.periods, a.ccSystem,
                            a.ctSystem});
            }
        }
    }

    void balance(int group)
    {
        for (WorkRow &row : m_list.rows)
            if (row.group == group)
                row.p2Insert -= m_placed.total.value(row.key());
    }

    void append(const WorkRow &row)
    {
        m_listed.insert(row.key());
        m_list.rows.append(row);
    }

    const SchoolSnapshot &m_s;
    const AllotmentIndex &m_index;
    PlacedCounts m_placed;
    WorkList m_list;
    QSet<quint64> m_listed;
    qint16 m_id = 0;
};

}

QList<WorkUnit> WorkList::unitsOf(int group) const
{
    QList<WorkUnit> units;
    QHash<int, int> unitOfId;
    for (int i = 0; i < rows.size(); ++i) {
        if (rows[i].group != group)
            continue;
        auto it = unitOfId.constFind(rows[i].id);
        if (it == unitOfId.cend()) {
            it = unitOfId.insert(rows[i].id, int(units.size()));
            units.append({group, rows[i].id, {}});
        }
        units[it.value()].rows.append(i);
    }
    std::sort(units.begin(), units.end(), [](const WorkUnit &a, const WorkUnit &b) { return a.id < b.id; });
    if (group == 4)
        units.removeIf([this](const WorkUnit &u) {
            return std::none_of(u.rows.cbegin(), u.rows.cend(),
                                [this](int i) { return rows[i].p1Insert + rows[i].p2Insert > 0; });
        });
    return units;
}

int WorkList::balance() const
{
    int sum = 0;
    for (const WorkRow &r : rows)
        sum += r.p1Insert + r.p2Insert;
    return sum;
}

WorkList BuildWorkList(const SchoolSnapshot &snapshot, const AllotmentIndex &index, const QList<TimetableRow> &timetable)
{
    return Builder(snapshot, index, timetable).build();
}

void WriteWorkList(const QSqlDatabase &db, const WorkList &list)
{
    QList<QVariantList> values;
    values.reserve(list.rows.size());
    for (const WorkRow &r : list.rows)
        values.append({r.group, r.id, r.classCode, r.division, r.teacher, r.subject, r.periodCode, r.p1Insert,
                       r.p2Insert, 0, 0, r.ccSystem, r.ctSystem, QString()});
    ReplaceTableRows(db, QStringLiteral("AutoGenPhase1"), values);
}

QList<WorkRow> BuildPhaseTwoList(const SchoolSnapshot &snapshot, const TimetableState &timetable)
{
    QList<WorkRow> rows;
    rows.reserve(snapshot.allotments.size());
    int id = 0;
    for (const Allotment &a : snapshot.allotments)
        rows.append({0, ++id, a.classCode, a.division, a.teacher, a.subject, 0, 0,
                     a.periods - timetable.placedCount(a.key()), a.ccSystem, a.ctSystem});
    return rows;
}

QList<WorkRow> BuildPhaseTwoRowsOf(const SchoolSnapshot &snapshot, const TimetableState &timetable, int classCode,
                                   int division)
{
    QList<WorkRow> rows;
    int id = 0;
    for (const Allotment &a : snapshot.allotments) {
        ++id;
        if (a.classCode == classCode && a.division == division)
            rows.append({0, id, a.classCode, a.division, a.teacher, a.subject, 0, 0,
                         a.periods - timetable.placedCount(a.key()), a.ccSystem, a.ctSystem});
    }
    return rows;
}

void WritePhaseTwoList(const QSqlDatabase &db, const QList<WorkRow> &rows)
{
    QList<QVariantList> values;
    values.reserve(rows.size());
    for (const WorkRow &r : rows)
        values.append({r.id, r.classCode, r.division, r.teacher, r.subject, 0, 0, r.p2Insert, 0, 0, r.ccSystem,
                       r.ctSystem, QString()});
    ReplaceTableRows(db, QStringLiteral("AutoGenPhase2"), values);
}

int PhaseTwoBalance(const QList<WorkRow> &rows)
{
    int sum = 0;
    for (const WorkRow &r : rows)
        sum += r.p1Insert + r.p2Insert;
    return sum;
}
