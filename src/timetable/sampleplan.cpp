#include "sampleplan.h"
#include "storeerror.h"

#include <algorithm>

namespace SampleSchool {
namespace {

struct Shape
{
    Week week;
    int firstGrade = 1;
    int classes = 0;
    int divisions = 0;
    LoadBand academic; // the teachers of the school subjects
    LoadBand activity; // physical education, art, music and the like
    bool oneBand = false; // every teacher in the academic band
    int combinedClasses = 0;
    int combinedTeachers = 0;
    int classTeachers = 0; // at most this many class divisions have a class teacher; 0: as many as can
};

Shape shapeOf(Size size)
{
    const LoadBand usual{0.87, 0.77, 0.95};
    const LoadBand lighter{0.68, 0.55, 0.85};
    switch (size) {
    case Size::Small:
        return {{5, 7, 5, 4}, 6, 3, 2, usual, lighter, false, 1, 1, 4};
    case Size::Medium:
        return {{6, 7, 5, 4}, 1, 10, 3, usual, lighter, false, 2, 2, 0};
    case Size::Large:
        return {{6, 8, 8, 4}, 1, 12, 10, usual, lighter, false, 6, 4, 0};
    case Size::Tight:
        return {{6, 7, 7, 4}, 3, 8, 3, {0.97, 0.95, 1.0}, {}, true, 2, 2, 0};
    }
    return {};
}

QString romanOf(int grade)
{
    static const char *const names[] = {"I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII"};
    return QString::fromLatin1(names[grade - 1]);
}

// What a class studies, by weight: the week is shared out in these proportions.
QList<QPair<int, int>> curriculum(int grade)
{
    if (grade <= 4)
        return {{English, 8}, {Malayalam, 6}, {Hindi, 4}, {Maths, 8}, {Evs, 6}, {Art, 2}, {Music, 2},
                {PhysicalEducation, 3}, {Library, 1}, {MoralScience, 1}};
    if (grade <= 8)
        return {{English, 7}, {Malayalam, 5}, {Hindi, 4}, {Maths, 7}, {Science, 6}, {Social, 5}, {Computer, 2},
                {PhysicalEducation, 2}, {Art, 2}, {WorkExperience, 1}, {Library, 1}};
    if (grade <= 10)
        return {{English, 6}, {Malayalam, 4}, {Hindi, 3}, {Maths, 7}, {Physics, 4}, {Chemistry, 4}, {Biology, 4},
                {Social, 6}, {WorkExperience, 2}, {PhysicalEducation, 2}, {Art, 1}};
    return {{English, 6}, {Physics, 8}, {Chemistry, 8}, {Maths, 8}, {Biology, 8}, {PhysicalEducation, 2},
            {Malayalam, 3}};
}

// The subjects a class has every day, when the week has room: the class teacher teaches one of them.
bool isCore(int grade, int subject)
{
    switch (subject) {
    case English:
    case Maths:
        return true;
    case Malayalam:
        return grade <= 8;
    case Evs:
        return grade <= 4;
    case Science:
        return grade >= 5 && grade <= 8;
    case Social:
        return grade >= 5 && grade <= 10;
    case Physics:
    case Chemistry:
    case Biology:
        return grade >= 11;
    default:
        return false;
    }
}

// Shares `week` periods out by weight: each subject its whole share, at least one period and a core
// subject at least `coreAtLeast`; then the periods over or short go by how far each subject stands from its
// exact share.
QList<QPair<int, int>> shareOut(int grade, const QList<QPair<int, int>> &weights, int week, int coreAtLeast)
{
    int total = 0;
    for (const auto &w : weights)
        total += w.second;
    QList<QPair<int, int>> periods;
    QList<double> exact;
    QList<int> least;
    int given = 0;
    for (const auto &[subject, weight] : weights) {
        exact << double(week) * weight / total;
        least << (isCore(grade, subject) ? coreAtLeast : 1);
        periods.append({subject, qMax(least.last(), int(exact.last()))});
        given += periods.last().second;
    }
    const auto pick = [&](bool more) {
        int best = -1;
        for (int i = 0; i < periods.size(); ++i) {
            if (!more && periods[i].second <= least[i])
                continue;
            const double gap = exact[i] - periods[i].second;
            if (best < 0 || (more ? gap > exact[best] - periods[best].second : gap < exact[best] - periods[best].second))
                best = i;
        }
        return best;
    };
    for (; given < week; ++given)
        ++periods[pick(true)].second;
    for (; given > week; --given)
        --periods[pick(false)].second;
    return periods;
}

class Planner
{
public:
    Planner(Size size, quint32 seed) : m_shape(shapeOf(size)), m_random(seed) {}

    Plan run(quint32 seed)
    {
        m_plan.week = m_shape.week;
        planClasses();
        planCombinedClasses();
        planCombinedTeachers();
        StaffPlan(m_plan, {m_shape.academic, m_shape.activity, m_shape.oneBand, m_shape.classTeachers}, m_random);
        for (int attempt = 0; attempt < 16; ++attempt)
            if (PlantWeek(m_plan, seed * 7919u + quint32(attempt) * 104729u + 17u))
                return m_plan;
        throw StoreError(QStringLiteral("No complete week was found for the sample school"));
    }

private:
    const Week &week() const { return m_shape.week; }

    int addAllotment(int division, int subject, int periods)
    {
        Allotment a;
        a.division = division;
        a.subject = subject;
        a.periods = periods;
        a.teacher = -1;
        m_plan.allotments.append(a);
        return int(m_plan.allotments.size()) - 1;
    }

    int allotmentOf(int division, int subject) const
    {
        for (int i = 0; i < m_plan.allotments.size(); ++i)
            if (m_plan.allotments[i].division == division && m_plan.allotments[i].subject == subject)
                return i;
        return -1;
    }

    // Every class division's week, shared out among its subjects. In the top class one division of each
    // pair takes an elective while the other takes its partner subject in the same periods: a combined
    // subject group.
    void planClasses()
    {
        const int top = m_shape.firstGrade + m_shape.classes - 1;
        const QPair<int, int> elective = top >= 9 ? qMakePair(int(Biology), int(Computer))
                                                  : qMakePair(int(Hindi), int(Sanskrit));
        m_plan.divisionsPerClass = m_shape.divisions;
        for (int c = 0; c < m_shape.classes; ++c) {
            const int grade = m_shape.firstGrade + c;
            m_plan.classNames << romanOf(grade);
            const QList<QPair<int, int>> periods = shareOut(grade, curriculum(grade), week().periods(), week().days);
            for (int d = 1; d <= m_shape.divisions; ++d) {
                const int division = int(m_plan.divisions.size());
                m_plan.divisions.append({c + 1, d, grade});
                for (const auto &[subject, count] : periods) {
                    const bool partner = grade == top && d % 2 == 0 && subject == elective.first;
                    addAllotment(division, partner ? elective.second : subject, count);
                }
            }
        }
        for (int d = 0; d + 1 < m_shape.divisions; d += 2) {
            const int first = int(m_plan.divisions.size()) - m_shape.divisions + d;
            addGroup(Group::Kind::Subject, {allotmentOf(first, elective.first), allotmentOf(first + 1, elective.second)},
                     Allotment::Mark::CombinedSubject);
        }
    }

    void addGroup(Group::Kind kind, const QList<int> &allotments, Allotment::Mark mark)
    {
        Group group;
        group.kind = kind;
        group.allotments = allotments;
        for (int a : allotments) {
            m_plan.allotments[a].group = int(m_plan.groups.size());
            m_plan.allotments[a].mark = mark;
        }
        m_plan.groups.append(group);
    }

    // Physical Education of divisions A and B of some classes is taught to both together, from the class
    // below the top downwards: B's row becomes one the Combined Class screen generates.
    void planCombinedClasses()
    {
        for (int g = 0; g < m_shape.combinedClasses && g + 1 < m_shape.classes; ++g) {
            const int first = (m_shape.classes - 2 - g) * m_shape.divisions;
            const int main = allotmentOf(first, PhysicalEducation);
            const int added = allotmentOf(first + 1, PhysicalEducation);
            addGroup(Group::Kind::Class, {main, added}, Allotment::Mark::CombinedClassMain);
            m_plan.allotments[added].mark = Allotment::Mark::CombinedClassAdded;
        }
    }

    // In division A of some classes that have no music, Art is taught with a Music teacher beside the Art
    // teacher, from the lowest such class upwards.
    void planCombinedTeachers()
    {
        int made = 0;
        for (int c = 0; c < m_shape.classes && made < m_shape.combinedTeachers; ++c) {
            const int division = c * m_shape.divisions;
            const int art = allotmentOf(division, Art);
            if (art < 0 || allotmentOf(division, Music) >= 0)
                continue;
            const int music = addAllotment(division, Music, m_plan.allotments[art].periods);
            addGroup(Group::Kind::Teacher, {art, music}, Allotment::Mark::CombinedTeacherMain);
            m_plan.allotments[music].mark = Allotment::Mark::CombinedTeacherAdded;
            ++made;
        }
    }

    Shape m_shape;
    std::mt19937 m_random;
    Plan m_plan;
};

}

int Week::freeTypeOf(int noOfPeriods) const
{
    const int free = periods() - noOfPeriods;
    if (free >= 2 * days)
        return 2;
    if (free >= days)
        return 1;
    return 3;
}

Plan MakePlan(Size size, quint32 seed)
{
    return Planner(size, seed).run(seed);
}

}
