#include "completionmodel.h"

#include <numeric>

namespace {
int findRoot(std::vector<int> &parent, int i)
{
    while (parent[i] != i) {
        parent[i] = parent[parent[i]];
        i = parent[i];
    }
    return i;
}
}

CompletionModel::CompletionModel(const SchoolSnapshot &snapshot, const QList<TimetableRow> &rows, const QList<qint64> &rowids)
    : m_s(snapshot)
{
    const SchoolCalendar &cal = m_s.calendar;
    m_periods = qMax<int>(1, cal.periodsPerDay);
    for (const TeacherRow &t : m_s.teachers)
        if (!m_teacherNames.contains(t.code))
            m_teacherNames.insert(t.code, t.name);
    m_slots = 7 * m_periods;

    // Lessons: the first allotment of each key, joined into groups by their combined group numbers.
    const QList<Allotment> &allotments = m_s.allotments;
    for (int i = 0; i < allotments.size(); ++i) {
        const Allotment &a = allotments[i];
        if (m_lessonOfKey.contains(a.key()))
            continue;
        Lesson lesson;
        lesson.allotment = i;
        lesson.teacher = ensureTeacher(a.teacher);
        lesson.klass = ensureClass(a.classCode, a.division);
        lesson.periods = a.periods;
        lesson.days = m_s.workingDaysOf(a.classCode);
        lesson.shortLastDay = cal.periodsPerDay != cal.periodsOnLastWorkingDay && lesson.days >= cal.noOfWorkingDays;
        lesson.spread = PlacementRules::SpreadOf(lesson.periods, lesson.days, lesson.shortLastDay);
        for (int p : m_s.teacherNoPeriods.value(a.teacher))
            lesson.noMask |= 1u << qBound(0, p, 31);
        for (int p : m_s.subjectNoPeriods.value(a.subject))
            lesson.noMask |= 1u << qBound(0, p, 31);
        lesson.freeType = m_s.freeTypeOf(a.teacher);
        if (m_s.uniformWanted()) {
            for (const ClassTeacher &ct : m_s.classTeachers)
                if (ct.teacher == a.teacher && ct.classCode == a.classCode && ct.division == a.division && ct.subject == a.subject)
                    lesson.uniformPeriod = ct.periodCode;
        }
        m_lessonOfKey.insert(a.key(), int(m_lessons.size()));
        m_lessons.append(lesson);
    }
    std::vector<int> parent(m_lessons.size());
    std::iota(parent.begin(), parent.end(), 0);
    QHash<QPair<int, int>, int> firstWithNumber; // (kind, group number) -> lesson
    for (int l = 0; l < m_lessons.size(); ++l) {
        const Allotment &a = allotments[m_lessons[l].allotment];
        const int numbers[3] = {a.cp, a.cc, a.ct};
        for (int kind = 0; kind < 3; ++kind) {
            if (numbers[kind] <= 0)
                continue;
            const auto key = qMakePair(kind, numbers[kind]);
            if (firstWithNumber.contains(key))
                parent[findRoot(parent, l)] = findRoot(parent, firstWithNumber.value(key));
            else
                firstWithNumber.insert(key, l);
        }
    }
    for (int l = 0; l < m_lessons.size(); ++l)
        m_lessons[l].group = findRoot(parent, l);

    m_lessonRows.resize(m_lessons.size());
    // Rows, and the meetings they form: the rows of one group in one slot.
    QHash<quint64, int> meetingOf; // (group, day, period) -> meeting
    for (int i = 0; i < rows.size(); ++i) {
        Row row;
        row.data = rows[i];
        row.rowid = i < rowids.size() ? rowids[i] : 0;
        row.lesson = lessonOf(allotmentKey(rows[i].teacher, rows[i].classCode, rows[i].division, rows[i].subject));
        row.day = rows[i].day;
        row.period = rows[i].period;
        const bool inWeek = row.day >= 1 && row.day <= 7 && row.period >= 1 && row.period <= m_periods;
        const int r = int(m_rows.size());
        m_rows.append(row);
        int meeting = NoMeeting;
        const quint64 place = row.lesson < 0 ? 0
                                             : (quint64(m_lessons[row.lesson].group) << 32) | (quint64(row.day) << 16)
                                                   | quint64(quint16(row.period));
        if (row.lesson >= 0 && inWeek)
            meeting = meetingOf.value(place, NoMeeting);
        if (meeting < 0) {
            meeting = int(m_meetings.size());
            m_meetings.append(Meeting());
            if (row.lesson >= 0 && inWeek)
                meetingOf.insert(place, meeting);
        }
        Meeting &m = m_meetings[meeting];
        m.rows.append(r);
        m_rows[r].meeting = meeting;
        if (!isGeneratorRow(m_rows[r]) || !inWeek)
            m.fixed = true;
    }
    m_classOcc.assign(size_t(m_classCodes.size() + 1) * m_slots, Free);
    m_teacherOcc.assign(size_t(m_teacherCodes.size() + 1) * m_slots, Free);
    for (int m = 0; m < m_meetings.size(); ++m) {
        const Row &first = m_rows[m_meetings[m].rows.first()];
        if (first.day < 1 || first.day > 7 || first.period < 1 || first.period > m_periods)
            continue;
        m_meetings[m].originalDay = first.day;
        m_meetings[m].originalPeriod = first.period;
        place(m, first.day, first.period);
    }
}

int CompletionModel::ensureTeacher(int code)
{
    auto it = m_teacherIndex.find(code);
    if (it != m_teacherIndex.end())
        return it.value();
    m_teacherCodes.append(code);
    m_teacherIndex.insert(code, int(m_teacherCodes.size()) - 1);
    return int(m_teacherCodes.size()) - 1;
}

int CompletionModel::ensureClass(int classCode, int division)
{
    const quint32 key = quint32(classCode) << 16 | quint32(quint16(division));
    auto it = m_classIndex.find(key);
    if (it != m_classIndex.end())
        return it.value();
    m_classCodes.append({classCode, division});
    m_classIndex.insert(key, int(m_classCodes.size()) - 1);
    return int(m_classCodes.size()) - 1;
}

QString CompletionModel::className(int klass) const
{
    const auto [code, division] = m_classCodes.at(klass);
    return m_s.classNames.value(code) + QLatin1Char(' ') + m_s.divisionNames.value(quint32(code) << 16 | quint32(division));
}

QString CompletionModel::teacherName(int teacher) const
{
    const int code = m_teacherCodes.at(teacher);
    return m_teacherNames.value(code, QString::number(code));
}

bool CompletionModel::isUniform(const Row &row) const
{
    return row.lesson >= 0 && m_lessons[row.lesson].uniformPeriod > 0 && row.period == m_lessons[row.lesson].uniformPeriod
        && row.data.manual == QLatin1String("1");
}

bool CompletionModel::isGeneratorRow(const Row &row) const
{
    return row.lesson >= 0 && (row.data.manual == QLatin1String("1") || row.data.manual == QLatin1String("2"))
        && !isUniform(row);
}

int CompletionModel::addOpenMeeting(const QList<int> &lessons, const QString &manual, int onlyPeriod)
{
    const int meeting = int(m_meetings.size());
    Meeting m;
    m.onlyPeriod = onlyPeriod;
    for (int l : lessons) {
        const Allotment &a = m_s.allotments[m_lessons[l].allotment];
        Row row;
        row.data = {a.classCode, a.division, 0, 0, a.subject, a.teacher, manual, a.ccSystem, a.ctSystem};
        row.lesson = l;
        row.meeting = meeting;
        m.rows.append(int(m_rows.size()));
        m_rows.append(row);
    }
    m_meetings.append(m);
    return meeting;
}

void CompletionModel::occupy(int meeting, bool on)
{
    const Meeting &m = m_meetings[meeting];
    const int slot = slotOf(m.day, m.period);
    for (int r : m.rows) {
        const Row &row = m_rows[r];
        // A row of no allotment still holds its class and teacher.
        const int klass = row.lesson >= 0 ? m_lessons[row.lesson].klass : ensureClass(row.data.classCode, row.data.division);
        const int teacher = row.lesson >= 0 ? m_lessons[row.lesson].teacher : ensureTeacher(row.data.teacher);
        if (size_t(klass + 1) * m_slots > m_classOcc.size())
            m_classOcc.resize(size_t(klass + 1) * m_slots, Free);
        if (size_t(teacher + 1) * m_slots > m_teacherOcc.size())
            m_teacherOcc.resize(size_t(teacher + 1) * m_slots, Free);
        occupyCell(m_classOcc, size_t(klass) * m_slots + slot, false, meeting, on);
        occupyCell(m_teacherOcc, size_t(teacher) * m_slots + slot, true, meeting, on);
    }
}

// A cell holds its one meeting, or Clash with the meetings listed aside; a clash ends when all but one leave.
void CompletionModel::occupyCell(std::vector<int> &cells, size_t cell, bool teacher, int meeting, bool on)
{
    int &holder = cells[cell];
    const quint64 key = quint64(cell) | (quint64(teacher) << 63);
    if (on) {
        if (holder == Free) {
            holder = meeting;
        } else if (holder == Clash) {
            QList<int> &list = m_clashes[key];
            if (!list.contains(meeting))
                list.append(meeting);
        } else if (holder != meeting) {
            m_clashes.insert(key, {holder, meeting});
            holder = Clash;
        }
        return;
    }
    if (holder == meeting) {
        holder = Free;
    } else if (holder == Clash) {
        QList<int> &list = m_clashes[key];
        list.removeAll(meeting);
        if (list.size() == 1) {
            holder = list.first();
            m_clashes.remove(key);
        }
    }
}

QList<int> CompletionModel::holders(const std::vector<int> &cells, size_t cell, bool teacher) const
{
    const int holder = cells[cell];
    if (holder == Free)
        return {};
    if (holder == Clash)
        return m_clashes.value(quint64(cell) | (quint64(teacher) << 63));
    return {holder};
}

unsigned CompletionModel::slotBars(int lesson, int day, int period, bool phaseOneRow) const
{
    const Lesson &l = m_lessons[lesson];
    unsigned bars = 0;
    if (day > l.days)
        bars |= DayNotWorked;
    if (period > periodsOn(day))
        bars |= OutsideWeek;
    if (phaseOneRow && (l.noMask & (1u << qBound(0, period, 31))))
        bars |= SetFree;
    const PlacementRules::Range range = PlacementRules::FreeTypeRange(calendar(), l.freeType, period, periodsOn(day));
    if (!PlacementRules::FreeTypeAllows(l.freeType, range.to - range.from + 1))
        bars |= NeverFree;
    return bars;
}

bool CompletionModel::keepsFreePeriod(int lesson, int day, int period, const QList<int> &leaving) const
{
    const Lesson &l = m_lessons[lesson];
    const PlacementRules::Range range = PlacementRules::FreeTypeRange(calendar(), l.freeType, period, periodsOn(day));
    int free = 1;
    for (int p = range.from; p <= range.to; ++p) {
        if (p == period)
            continue;
        const int holder = teacherAt(l.teacher, slotOf(day, p));
        free += holder == Free || leaving.contains(holder);
    }
    return PlacementRules::FreeTypeAllows(l.freeType, free);
}

bool CompletionModel::spreadKept(int lesson, int day, const QList<int> &leaving, int adding) const
{
    int held = adding > 0 ? 1 : 0;
    int periods[2] = {adding, 0};
    for (int r : m_lessonRows[lesson]) {
        const Row &row = m_rows[r];
        if (row.day != day || leaving.contains(row.meeting))
            continue;
        if (held < 2)
            periods[held] = row.period;
        ++held;
    }
    return PlacementRules::DayHoldingAllowed(calendar(), m_lessons[lesson].spread, held, periods[0], periods[1]);
}

bool CompletionModel::mayStand(int meeting, int day, int period, const QList<int> &leaving) const
{
    const Meeting &m = m_meetings[meeting];
    Q_ASSERT(m.day == 0 || leaving.contains(meeting));
    QList<int> lessons;
    for (int r : m.rows) {
        const Row &row = m_rows[r];
        if (slotBars(row.lesson, day, period, row.data.manual == QLatin1String("1")) != 0
            || !spreadKept(row.lesson, day, leaving, period))
            return false;
        // A teacher's free period is counted once, however many of the meeting's rows are the teacher's.
        bool teacherDone = false;
        for (int other : std::as_const(lessons))
            teacherDone = teacherDone || m_lessons[other].teacher == m_lessons[row.lesson].teacher;
        if (!teacherDone && !keepsFreePeriod(row.lesson, day, period, leaving))
            return false;
        lessons.append(row.lesson);
    }
    for (int gone : leaving) {
        const Meeting &g = m_meetings[gone];
        if (g.day == 0)
            continue;
        for (int r : g.rows) {
            const int lesson = m_rows[r].lesson;
            if (lesson < 0 || (g.day == day && lessons.contains(lesson)))
                continue; // judged above, with the new period
            if (!spreadKept(lesson, g.day, leaving, 0) && spreadKept(lesson, g.day, {}, 0))
                return false;
        }
    }
    return true;
}

void CompletionModel::place(int meeting, int day, int period)
{
    Meeting &m = m_meetings[meeting];
    m.day = day;
    m.period = period;
    for (int r : m.rows) {
        m_rows[r].day = day;
        m_rows[r].period = period;
        if (m_rows[r].lesson >= 0)
            m_lessonRows[m_rows[r].lesson].append(r);
    }
    occupy(meeting, true);
}

void CompletionModel::unplace(int meeting)
{
    occupy(meeting, false);
    Meeting &m = m_meetings[meeting];
    for (int r : m.rows) {
        if (m_rows[r].lesson >= 0)
            m_lessonRows[m_rows[r].lesson].removeOne(r);
        m_rows[r].day = 0;
        m_rows[r].period = 0;
    }
    m.day = 0;
    m.period = 0;
}
