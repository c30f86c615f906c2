#include "rulecheck.h"

#include <QHash>
#include <QMap>
#include <QSet>

namespace {

class RuleCheck
{
public:
    explicit RuleCheck(const CompletionModel &model) : m(model), s(model.snapshot()), cal(model.calendar()) {}

    QStringList run()
    {
        clashesAndSplits();
        for (int r = 0; r < m.rows().size(); ++r) {
            const CompletionModel::Row &row = m.rows()[r];
            if (row.day > 0 && m.isGeneratorRow(row))
                rowRules(row);
        }
        spreading();
        return breaks;
    }

private:
    QString className(int klass) const { return m.className(klass); }
    QString teacherName(int teacher) const { return m.teacherName(teacher); }
    static QString at(int day, int period)
    {
        return QStringLiteral("Day %1 Period %2").arg(day).arg(period);
    }
    bool bindsAny(const QList<int> &rows) const
    {
        for (int r : rows)
            if (m.isGeneratorRow(m.rows()[r]))
                return true;
        return false;
    }

    // A clash is said once per class or teacher and slot, at the second meeting there in table order, when
    // either of the first two meetings holds a row the rules bind. Rows of no allotment are the user's own.
    void clashesAndSplits()
    {
        QSet<quint64> reported;
        for (int mi = 0; mi < m.meetings().size(); ++mi) {
            const CompletionModel::Meeting &meeting = m.meetings()[mi];
            if (meeting.day == 0)
                continue;
            const int slot = m.slotOf(meeting.day, meeting.period);
            QSet<int> lessons;
            for (int r : meeting.rows) {
                const CompletionModel::Row &row = m.rows()[r];
                if (row.lesson < 0)
                    continue;
                const CompletionModel::Lesson &lesson = m.lessons()[row.lesson];
                if (lessons.contains(row.lesson) && m.isGeneratorRow(row))
                    breaks << QStringLiteral("Class %1 Has The Same Period Twice In %2").arg(className(lesson.klass), at(meeting.day, meeting.period));
                lessons.insert(row.lesson);
                const quint64 c = quint64(lesson.klass) << 32 | quint64(slot);
                const quint64 t = quint64(lesson.teacher) << 32 | quint64(slot) | (quint64(1) << 63);
                if (clashesWithEarlier(mi, m.classHolders(lesson.klass, slot), c, reported))
                    breaks << QStringLiteral("Class %1 Has Two Different Periods In %2").arg(className(lesson.klass), at(meeting.day, meeting.period));
                if (clashesWithEarlier(mi, m.teacherHolders(lesson.teacher, slot), t, reported))
                    breaks << QStringLiteral("Teacher %1 Is In Two Places In %2").arg(teacherName(lesson.teacher), at(meeting.day, meeting.period));
            }
            splitGroup(meeting, lessons);
        }
    }

    bool clashesWithEarlier(int meeting, const QList<int> &holders, quint64 key, QSet<quint64> &reported) const
    {
        if (holders.size() < 2 || reported.contains(key))
            return false;
        int first = meeting;
        for (int h : holders)
            if (m.rows()[m.meetings()[h].rows.first()].lesson >= 0)
                first = qMin(first, h);
        if (first == meeting || !(bindsAny(m.meetings()[meeting].rows) || bindsAny(m.meetings()[first].rows)))
            return false;
        reported.insert(key);
        return true;
    }

    // A combined group's members stand together: a slot of the group lacks none of its members.
    void splitGroup(const CompletionModel::Meeting &meeting, const QSet<int> &present)
    {
        if (present.isEmpty() || !bindsAny(meeting.rows))
            return;
        const int group = m.lessons()[*present.cbegin()].group;
        const QList<int> &members = groupMembers(group);
        if (members.size() < 2)
            return;
        for (int l : members) {
            if (present.contains(l))
                continue;
            // Members of unequal length cannot all stand in every slot of the group.
            if (m.lessons()[l].periods != m.lessons()[*present.cbegin()].periods)
                continue;
            breaks << QStringLiteral("Combined Group Of Class %1 Is Split In %2")
                          .arg(className(m.lessons()[l].klass), at(meeting.day, meeting.period));
            return;
        }
    }

    const QList<int> &groupMembers(int group)
    {
        if (m_groups.isEmpty())
            for (int l = 0; l < m.lessons().size(); ++l)
                m_groups[m.lessons()[l].group].append(l);
        return m_groups[group];
    }

    void rowRules(const CompletionModel::Row &row)
    {
        const CompletionModel::Lesson &lesson = m.lessons()[row.lesson];
        const QString where = at(row.day, row.period);
        const unsigned bars = m.slotBars(row.lesson, row.day, row.period, row.data.manual == QLatin1String("1"));
        if (bars & CompletionModel::DayNotWorked)
            breaks << QStringLiteral("Class %1 Does Not Work In %2").arg(className(lesson.klass), where);
        if (bars & CompletionModel::OutsideWeek)
            breaks << QStringLiteral("%1 Is Not A Period Of The Week").arg(where);
        if (bars & CompletionModel::SetFree)
            breaks << QStringLiteral("Teacher %1 Or The Subject Is Set Free In %2").arg(teacherName(lesson.teacher), where);
        if (!m.keepsFreePeriod(row.lesson, row.day, row.period, {})) {
            // Said once for the teacher's day, or session where the type counts sessions.
            const int from = PlacementRules::FreeTypeRange(cal, lesson.freeType, row.period, m.periodsOn(row.day)).from;
            const QString key = QStringLiteral("%1/%2/%3").arg(lesson.teacher).arg(row.day).arg(from);
            if (!m_freeReported.contains(key)) {
                m_freeReported.insert(key);
                breaks << QStringLiteral("Teacher %1 Has No Free Period Left In Day %2").arg(teacherName(lesson.teacher)).arg(row.day);
            }
        }
    }

    // An allotment's days in order: a day of two or more periods is judged as the search judges a placement.
    void spreading()
    {
        for (int l = 0; l < m.lessons().size(); ++l) {
            const CompletionModel::Lesson &lesson = m.lessons()[l];
            QMap<int, QList<int>> byDay;
            for (int r : m.lessonRows(l))
                byDay[m.rows()[r].day].append(r);
            for (auto it = byDay.cbegin(); it != byDay.cend(); ++it) {
                const QList<int> &rows = it.value();
                if (rows.size() < 2 || !bindsAny(rows) || m.spreadKept(l, it.key(), {}, 0))
                    continue;
                breaks << QStringLiteral("%1 Of Class %2 Has %3 Periods In Day %4")
                              .arg(s.subjectNames.value(s.allotments[lesson.allotment].subject), className(lesson.klass))
                              .arg(rows.size())
                              .arg(it.key());
            }
        }
    }

    const CompletionModel &m;
    const SchoolSnapshot &s;
    const SchoolCalendar &cal;
    QStringList breaks;
    QHash<int, QList<int>> m_groups;
    QSet<QString> m_freeReported;
};

}

QStringList CheckTimetableRules(const CompletionModel &model)
{
    return RuleCheck(model).run();
}
