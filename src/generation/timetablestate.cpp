#include "timetablestate.h"
#include "storedrows.h"

void TimetableState::reset(const SchoolSnapshot &snapshot)
{
    m_periodsPerDay = qMax(1, int(snapshot.calendar.periodsPerDay));
    m_slots = 7 * m_periodsPerDay;
    m_entries.clear();
    m_alive = 0;
    m_added = 0;
    m_keyTotal.clear();
    m_teachers.clear();
    m_classes.clear();
    m_keys.clear();
    m_teacherBusy.clear();
    m_classBusy.clear();
    m_keyDayCount.clear();
    m_keyDayPeriodSum.clear();
    m_clearedClasses.clear();
    m_lastTeacher = m_lastClass = m_lastKey = LookUp();
    for (const TimetableRow &row : snapshot.timetable) {
        m_entries.append({row, true, true});
        track(row, 1);
        ++m_alive;
    }
}

int TimetableState::slotOf(int day, int period) const
{
    if (day < 1 || day > 7 || period < 1 || period > m_periodsPerDay)
        return -1;
    return (day - 1) * m_periodsPerDay + period - 1;
}

int TimetableState::count(const std::vector<quint16> &busy, int index, int day, int period) const
{
    const int slot = slotOf(day, period);
    if (index < 0 || slot < 0)
        return 0;
    return busy[size_t(index) * m_slots + slot];
}

int TimetableState::ensureTeacher(int teacher)
{
    auto it = m_teachers.constFind(teacher);
    if (it != m_teachers.cend())
        return it.value();
    const int index = int(m_teachers.size());
    m_teachers.insert(teacher, index);
    m_lastTeacher.valid = false;
    m_teacherBusy.resize(m_teacherBusy.size() + m_slots, 0);
    return index;
}

int TimetableState::ensureClass(int classCode, int division)
{
    const quint32 id = quint32(classCode) << 16 | quint32(quint16(division));
    auto it = m_classes.constFind(id);
    if (it != m_classes.cend())
        return it.value();
    const int index = int(m_classes.size());
    m_classes.insert(id, index);
    m_lastClass.valid = false;
    m_classBusy.resize(m_classBusy.size() + m_slots, 0);
    return index;
}

int TimetableState::ensureKey(quint64 key)
{
    auto it = m_keys.constFind(key);
    if (it != m_keys.cend())
        return it.value();
    const int index = int(m_keys.size());
    m_keys.insert(key, index);
    m_lastKey.valid = false;
    m_keyDayCount.resize(m_keyDayCount.size() + 8, 0);
    m_keyDayPeriodSum.resize(m_keyDayPeriodSum.size() + 8, 0);
    return index;
}

void TimetableState::track(const TimetableRow &row, int delta)
{
    m_keyTotal[allotmentKey(row.teacher, row.classCode, row.division, row.subject)] += delta;
    const int slot = slotOf(row.day, row.period);
    if (slot >= 0) {
        m_teacherBusy[size_t(ensureTeacher(row.teacher)) * m_slots + slot] += delta;
        m_classBusy[size_t(ensureClass(row.classCode, row.division)) * m_slots + slot] += delta;
    }
    if (row.day >= 1 && row.day <= 7) {
        const size_t at = size_t(ensureKey(allotmentKey(row.teacher, row.classCode, row.division, row.subject))) * 8
            + row.day;
        m_keyDayCount[at] += delta;
        m_keyDayPeriodSum[at] += delta * row.period;
    }
}

int TimetableState::teacherFreeCount(int teacher, int day, int from, int to) const
{
    if (to < from)
        return 0;
    const int index = teacherIndex(teacher);
    if (index < 0 || day < 1 || day > 7)
        return to - from + 1;
    // Periods outside the day hold nobody, as teacherFree tells them.
    const int first = qMax(from, 1);
    const int last = qMin(to, m_periodsPerDay);
    int free = to - from + 1 - qMax(0, last - first + 1);
    const quint16 *day0 = m_teacherBusy.data() + size_t(index) * m_slots + size_t(day - 1) * m_periodsPerDay;
    for (int period = first; period <= last; ++period)
        free += day0[period - 1] == 0;
    return free;
}

void TimetableState::add(const TimetableRow &row)
{
    m_entries.append({row, false, true});
    track(row, 1);
    ++m_alive;
    ++m_added;
}

void TimetableState::removePhaseTwoRows(int classCode, int division)
{
    for (Entry &entry : m_entries) {
        if (entry.alive && entry.row.classCode == classCode && entry.row.division == division
            && entry.row.manual.compare(QLatin1String("2"), Qt::CaseInsensitive) == 0) {
            entry.alive = false;
            track(entry.row, -1);
            --m_alive;
        }
    }
    m_clearedClasses.append({classCode, division});
}

int TimetableState::placedCount(quint64 key) const
{
    return m_keyTotal.value(key, 0);
}

int TimetableState::placedOnDay(quint64 key, int day) const
{
    const int index = keyIndex(key);
    if (index < 0 || day < 1 || day > 7)
        return 0;
    return m_keyDayCount[size_t(index) * 8 + day];
}

int TimetableState::onlyPeriodOnDay(quint64 key, int day) const
{
    const int index = keyIndex(key);
    if (index < 0 || day < 1 || day > 7)
        return 0;
    return m_keyDayPeriodSum[size_t(index) * 8 + day];
}

QList<TimetableRow> TimetableState::rows() const
{
    QList<TimetableRow> list;
    list.reserve(m_alive);
    for (const Entry &entry : m_entries)
        if (entry.alive)
            list.append(entry.row);
    return list;
}

int TimetableState::newRowCount() const
{
    int n = 0;
    for (const Entry &entry : m_entries)
        n += entry.alive && !entry.stored;
    return n;
}

void TimetableState::write(const QSqlDatabase &db)
{
    if (!m_clearedClasses.isEmpty()) {
        RowStatement clear(db, QStringLiteral("DELETE FROM TimeTable WHERE ClassCode = ? AND DivisionCode = ? AND Manual = '2'"));
        for (const auto &[classCode, division] : std::as_const(m_clearedClasses))
            clear.run({classCode, division});
        m_clearedClasses.clear();
    }
    RowInserter insert(db, QStringLiteral("INSERT INTO TimeTable (ClassCode, DivisionCode, DayCode, PeriodCode, SubjectCode, "
                                          "TeacherCode, Manual, Spare, CC, CT) VALUES"),
                       QStringLiteral("(?, ?, ?, ?, ?, ?, ?, '', ?, ?)"));
    QList<Entry> kept;
    kept.reserve(m_alive);
    for (Entry &entry : m_entries) {
        if (!entry.alive)
            continue;
        if (!entry.stored) {
            const TimetableRow &r = entry.row;
            insert.insert({r.classCode, r.division, r.day, r.period, r.subject, r.teacher, r.manual, r.cc, r.ct});
            entry.stored = true;
        }
        kept.append(entry);
    }
    insert.finish();
    m_entries = kept;
}
