#include "feasibility.h"

#include <QSet>

namespace Feasibility {

namespace {

class Bounds
{
public:
    Bounds(const CompletionModel &model, bool phaseOne) : m(model), s(model.snapshot()), cal(model.calendar()), phaseOne(phaseOne)
    {
        for (int l = 0; l < m.lessons().size(); ++l) {
            groups[m.lessons()[l].group].append(l);
            lessonsOfClass[m.lessons()[l].klass].append(l);
        }
    }

    QStringList reasons(int lesson)
    {
        QStringList found;
        const CompletionModel::Lesson &l = m.lessons()[lesson];
        // A class or teacher is judged once, however many of its allotments ask.
        if (!classTexts.contains(l.klass))
            classTexts.insert(l.klass, classBound(l.klass));
        if (!teacherTexts.contains(l.teacher))
            teacherTexts.insert(l.teacher, teacherBound(l.teacher));
        const QString classText = classTexts.value(l.klass);
        if (!classText.isEmpty())
            found << classText;
        const QString teacherText = teacherTexts.value(l.teacher);
        if (!teacherText.isEmpty())
            found << teacherText;
        const QString groupText = slotBound(lesson);
        if (!groupText.isEmpty())
            found << groupText;
        return found;
    }

private:
    QString className(int klass) const { return m.className(klass); }
    QString teacherName(int teacher) const { return m.teacherName(teacher); }
    QString subjectName(int lesson) const { return s.subjectNames.value(s.allotments[m.lessons()[lesson].allotment].subject); }
    int weekDays() const { return cal.noOfWorkingDays; }

    // Periods a resource must hold: a group counts once, with its longest member there.
    template<typename Belongs>
    int demand(Belongs belongs) const
    {
        int total = 0;
        for (auto it = groups.cbegin(); it != groups.cend(); ++it) {
            int most = 0;
            for (int l : it.value())
                if (belongs(m.lessons()[l]))
                    most = qMax(most, m.lessons()[l].periods);
            total += most;
        }
        return total;
    }

    int classNeed(int klass) const
    {
        return demand([klass](const CompletionModel::Lesson &l) { return l.klass == klass; });
    }

    int classDays(int klass) const
    {
        int days = 0;
        for (int lesson : lessonsOfClass.value(klass))
            days = m.lessons()[lesson].days;
        return qMin(days, weekDays());
    }

    // The periods of the class's working days.
    int classWeek(int klass) const
    {
        int have = 0;
        for (int i = 0; i < classDays(klass); ++i)
            have += m.periodsOn(weekDay(cal, i));
        return have;
    }

    QString classBound(int klass) const
    {
        const int need = classNeed(klass);
        const int have = classWeek(klass);
        if (need > have)
            return QStringLiteral("Class %1 Needs %2 Periods But Has Only %3 Periods On Its Working Days")
                .arg(className(klass)).arg(need).arg(have);
        // Periods of the week none of the class's teachers can ever take, by the rules alone.
        int usable = 0;
        for (int i = 0; i < classDays(klass); ++i) {
            const int day = weekDay(cal, i);
            for (int p = 1; p <= m.periodsOn(day); ++p)
                usable += !ableTeachers(klass, day, p).isEmpty();
        }
        if (need > usable)
            return QStringLiteral("Class %1 Needs %2 Periods But Its Teachers Can Take Only %3 Periods Of Its Week")
                .arg(className(klass)).arg(need).arg(usable);
        return {};
    }

    // The teachers of the class who may ever take the period: the class works that day, no "No" setting
    // holds it and the teacher's free-period type leaves room in that session or day.
    QSet<int> ableTeachers(int klass, int day, int period) const
    {
        QSet<int> able;
        for (int lesson : lessonsOfClass.value(klass))
            if (m.slotOpen(lesson, day, period, phaseOne))
                able.insert(m.lessons()[lesson].teacher);
        return able;
    }

public:
    // Periods that every class of a set must fill, but whose able teachers are fewer than the classes: each
    // class needs a teacher of its own there.
    QStringList slotBounds() const
    {
        QStringList found;
        QList<int> full; // classes that need every period of their week
        for (int k = 0; k < m.classCount(); ++k) {
            const int need = classNeed(k);
            if (need > 0 && need >= classWeek(k))
                full.append(k);
        }
        for (int i = 0; i < weekDays(); ++i) {
            const int day = weekDay(cal, i);
            for (int p = 1; p <= m.periodsOn(day); ++p) {
                QSet<int> teachers;
                int classes = 0;
                for (int k : std::as_const(full)) {
                    const QSet<int> able = ableTeachers(k, day, p);
                    if (able.isEmpty())
                        continue; // said by the class's own count
                    ++classes;
                    teachers.unite(able);
                }
                if (teachers.size() < classes)
                    found << QStringLiteral("Period %1 Of Day %2 Is Needed By %3 Full Classes But Only %4 Of Their Teachers Can Take It")
                                 .arg(p).arg(day).arg(classes).arg(teachers.size());
            }
        }
        return found;
    }

private:

    // Periods of a day that a teacher can give with the free-period type kept.
    int teacherDay(const CompletionModel::Lesson &any, int day, quint32 noMask) const
    {
        const int periods = m.periodsOn(day);
        auto usable = [&](int from, int to) {
            int n = 0;
            for (int p = from; p <= to; ++p)
                n += !(noMask & (1u << p));
            return n;
        };
        switch (any.freeType) {
        case 1:
            return qMin(usable(1, periods), periods - 1);
        case 2: {
            const int morning = qMin<int>(cal.periodsInMorningSession, periods);
            return qMax(0, qMin(usable(1, morning), morning - 1)) + qMax(0, qMin(usable(morning + 1, periods), periods - morning - 1));
        }
        case 3:
            return usable(1, periods);
        default:
            return 0;
        }
    }

    QString teacherBound(int teacher) const
    {
        const int need = demand([teacher](const CompletionModel::Lesson &l) { return l.teacher == teacher; });
        const CompletionModel::Lesson *any = nullptr;
        int days = 0;
        for (const CompletionModel::Lesson &l : m.lessons()) {
            if (l.teacher != teacher)
                continue;
            any = &l;
            days = qMax(days, l.days);
        }
        if (!any || need == 0)
            return {};
        quint32 noMask = 0;
        if (phaseOne)
            for (int p : s.teacherNoPeriods.value(m.teacherCode(teacher)))
                noMask |= 1u << qBound(0, p, 31);
        int have = 0;
        for (int i = 0; i < qMin(days, weekDays()); ++i)
            have += teacherDay(*any, weekDay(cal, i), noMask);
        if (need <= have)
            return {};
        return QStringLiteral("Teacher %1 Has %2 Periods To Place But Only %3 Periods Are Left Free By The 'No' Settings "
                              "And The Free Period Type")
            .arg(teacherName(teacher)).arg(need).arg(have);
    }

    // Can every member take the slot, as far as what never moves is concerned?
    bool memberCanTake(int lesson, int day, int period) const
    {
        const CompletionModel::Lesson &l = m.lessons()[lesson];
        if (!m.slotOpen(lesson, day, period, phaseOne))
            return false;
        const int slot = m.slotOf(day, period);
        for (int holder : {m.classAt(l.klass, slot), m.teacherAt(l.teacher, slot)}) {
            if (holder == CompletionModel::Clash)
                return false;
            if (holder >= 0 && m.meetings()[holder].fixed) {
                // A fixed meeting of the group itself is one of its own periods.
                const int r = m.meetings()[holder].rows.first();
                if (m.rows()[r].lesson < 0 || m.lessons()[m.rows()[r].lesson].group != l.group)
                    return false;
            }
        }
        return true;
    }

    QString slotBound(int lesson) const
    {
        const CompletionModel::Lesson &l = m.lessons()[lesson];
        const QList<int> &members = groups.value(l.group);
        int capacity = 0;
        int common = 0;
        for (int i = 0; i < weekDays(); ++i) {
            const int day = weekDay(cal, i);
            int open = 0;
            for (int p = 1; p <= m.periodsOn(day); ++p) {
                bool all = true;
                for (int member : members)
                    all = all && memberCanTake(member, day, p);
                open += all;
            }
            common += open;
            const int cap = l.spread.daily && l.spread.twice ? open : (l.spread.daily || l.spread.twice ? 2 : 1);
            capacity += qMin(open, cap);
        }
        if (members.size() > 1 && common == 0)
            return QStringLiteral("Combined Group Of %1 In Class %2 Has No Period That All Its Members Can Take")
                .arg(subjectName(lesson), className(l.klass));
        if (capacity >= l.periods)
            return {};
        if (members.size() > 1)
            return QStringLiteral("Combined Group Of %1 In Class %2 Needs %3 Periods But Its Members Can All Take Only %4")
                .arg(subjectName(lesson), className(l.klass)).arg(l.periods).arg(capacity);
        return QStringLiteral("%1 Of Class %2 Needs %3 Periods But Only %4 Of The Week %5 Open To It")
            .arg(subjectName(lesson), className(l.klass)).arg(l.periods)
            .arg(capacity == 1 ? QStringLiteral("1 Period") : QStringLiteral("%1 Periods").arg(capacity))
            .arg(capacity == 1 ? QStringLiteral("Is") : QStringLiteral("Are"));
    }

    const CompletionModel &m;
    const SchoolSnapshot &s;
    const SchoolCalendar &cal;
    QHash<int, QList<int>> groups;
    QHash<int, QList<int>> lessonsOfClass;
    QHash<int, QString> classTexts, teacherTexts;
    bool phaseOne; // the rows to place are Phase I rows, held to the "No" settings
};

QStringList unique(const QStringList &texts)
{
    QStringList out;
    for (const QString &text : texts)
        if (!out.contains(text))
            out << text;
    return out;
}

}

QStringList ReasonsFor(const CompletionModel &model, int lesson, bool phaseOne)
{
    return Bounds(model, phaseOne).reasons(lesson);
}

QStringList OpenPeriodReasons(const CompletionModel &model, bool phaseOne)
{
    Bounds bounds(model, phaseOne);
    QStringList texts = bounds.slotBounds();
    QSet<int> done;
    for (const CompletionModel::Meeting &meeting : model.meetings()) {
        if (meeting.day != 0)
            continue;
        for (int r : meeting.rows) {
            const int lesson = model.rows()[r].lesson;
            if (lesson >= 0 && !done.contains(lesson)) {
                done.insert(lesson);
                texts << bounds.reasons(lesson);
            }
        }
    }
    return unique(texts);
}

QStringList Impossibilities(const CompletionModel &model)
{
    Bounds bounds(model, true);
    QStringList texts = bounds.slotBounds();
    for (int l = 0; l < model.lessons().size(); ++l)
        texts << bounds.reasons(l);
    return unique(texts);
}

}
