#include "rulecheck.h"

#include <QHash>
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

    void clashesAndSplits()
    {
        QHash<quint64, int> classHolder, teacherHolder; // resource << 32 | slot -> meeting
        QSet<quint64> reported;
        for (int mi = 0; mi < m.meetings().size(); ++mi) {
            const CompletionModel::Meeting &meeting = m.meetings()[mi];
            if (meeting.day == 0)
                continue;
            const quint64 slot = quint64(m.slotOf(meeting.day, meeting.period));
            QSet<int> lessons;
            for (int r : meeting.rows) {
                const CompletionModel::Row &row = m.rows()[r];
                if (row.lesson < 0)
                    continue;
                const CompletionModel::Lesson &lesson = m.lessons()[row.lesson];
                if (lessons.contains(row.lesson) && m.isGeneratorRow(row))
                    breaks << QStringLiteral("Class %1 Has The Same Period Twice In %2").arg(className(lesson.klass), at(meeting.day, meeting.period));
                lessons.insert(row.lesson);
                const quint64 c = quint64(lesson.klass) << 32 | slot;
                const quint64 t = quint64(lesson.teacher) << 32 | slot | (quint64(1) << 63);
                for (const auto &[key, holders, text] :
                     {std::tuple{c, &classHolder, QStringLiteral("Class %1 Has Two Different Periods In %2").arg(className(lesson.klass), at(meeting.day, meeting.period))},
                      std::tuple{t, &teacherHolder, QStringLiteral("Teacher %1 Is In Two Places In %2").arg(teacherName(lesson.teacher), at(meeting.day, meeting.period))}}) {
                    const int holder = holders->value(key, -1);
                    if (holder < 0)
                        holders->insert(key, mi);
                    else if (holder != mi && !reported.contains(key)
                             && (bindsAny(meeting.rows) || bindsAny(m.meetings()[holder].rows))) {
                        reported.insert(key);
                        breaks << text;
                    }
                }
            }
            splitGroup(meeting, lessons);
        }
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
        if (row.day > lesson.days)
            breaks << QStringLiteral("Class %1 Does Not Work In %2").arg(className(lesson.klass), where);
        if (row.period > m.periodsOn(row.day))
            breaks << QStringLiteral("%1 Is Not A Period Of The Week").arg(where);
        if (row.data.manual == QLatin1String("1") && (lesson.noMask & (1u << row.period)))
            breaks << QStringLiteral("Teacher %1 Or The Subject Is Set Free In %2").arg(teacherName(lesson.teacher), where);
        const PlacementRules::Range range = PlacementRules::FreeTypeRange(cal, lesson.freeType, row.period, m.periodsOn(row.day));
        int free = 0;
        for (int p = range.from; p <= range.to; ++p)
            free += m.teacherAt(lesson.teacher, m.slotOf(row.day, p)) == CompletionModel::Free;
        // The rule asked for more than one free period before the placement, so one at least after it.
        if (!PlacementRules::FreeTypeAllows(lesson.freeType, free + 1)) {
            const QString key = QStringLiteral("%1/%2/%3").arg(lesson.teacher).arg(row.day).arg(range.from);
            if (!m_freeReported.contains(key)) {
                m_freeReported.insert(key);
                breaks << QStringLiteral("Teacher %1 Has No Free Period Left In Day %2").arg(teacherName(lesson.teacher)).arg(row.day);
            }
        }
    }

    void spreading()
    {
        for (int l = 0; l < m.lessons().size(); ++l) {
            const CompletionModel::Lesson &lesson = m.lessons()[l];
            QHash<int, QList<int>> byDay;
            for (int r : m.lessonRows(l))
                byDay[m.rows()[r].day].append(r);
            for (auto it = byDay.cbegin(); it != byDay.cend(); ++it) {
                const QList<int> &rows = it.value();
                if (rows.size() < 2 || !bindsAny(rows))
                    continue;
                const bool fine = rows.size() == 2
                    ? PlacementRules::AnotherPeriodAllowed(cal, lesson.spread, 1, m.rows()[rows[0]].period, m.rows()[rows[1]].period)
                    : lesson.spread.daily && lesson.spread.twice;
                if (!fine)
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
