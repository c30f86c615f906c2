#pragma once
#include "schoolsnapshot.h"

#include <QHash>
#include <QList>
#include <QSqlDatabase>
#include <vector>

// The TimeTable of a run in memory, with the occupancy of every teacher and class division by slot and the
// count of each allotment's rows by day, so that the placement tests are look-ups instead of queries. New
// rows and deletions are kept apart until write() puts them into the store.
class TimetableState
{
public:
    void reset(const SchoolSnapshot &snapshot);

    void add(const TimetableRow &row);
    // Forgets the class division's rows placed by Phase II (Manual "2").
    void removePhaseTwoRows(int classCode, int division);

    bool teacherFree(int teacher, int day, int period) const { return count(m_teacherBusy, teacherIndex(teacher), day, period) == 0; }
    // How many of periods `from` to `to` the teacher has free on the day: teacherFree counted over the range.
    int teacherFreeCount(int teacher, int day, int from, int to) const;
    bool classFree(int classCode, int division, int day, int period) const
    {
        return count(m_classBusy, classIndex(classCode, division), day, period) == 0;
    }
    // Rows of the allotment on the day (CountPlacedOnDay) and, when that is one, the period it holds.
    int placedOnDay(quint64 key, int day) const;
    int onlyPeriodOnDay(quint64 key, int day) const;

    int rowCount() const { return m_alive; }
    // Rows of the allotment in the whole week (PlacedCount).
    int placedCount(quint64 key) const;
    // Rows added since the reset, whether or not they were removed again.
    int addedCount() const { return m_added; }
    // The live rows, in table order.
    QList<TimetableRow> rows() const;
    int newRowCount() const;

    // Deletes what was removed and inserts the new rows, in the order they were placed. The caller holds
    // the transaction.
    void write(const QSqlDatabase &db);

private:
    struct Entry
    {
        TimetableRow row;
        bool stored = false;
        bool alive = true;
    };
    int slotOf(int day, int period) const;
    int count(const std::vector<quint16> &busy, int index, int day, int period) const;
    // The placement tests ask about one row's teacher, class and allotment many times before they move on:
    // each index keeps its last look-up.
    struct LookUp
    {
        quint64 key = 0;
        int index = -1;
        bool valid = false;
    };
    template<typename Hash>
    static int lookUp(const Hash &hash, quint64 key, LookUp &last)
    {
        if (!last.valid || last.key != key)
            last = {key, hash.value(typename Hash::key_type(key), -1), true};
        return last.index;
    }
    int teacherIndex(int teacher) const { return lookUp(m_teachers, quint64(qint64(teacher)), m_lastTeacher); }
    int classIndex(int classCode, int division) const
    {
        return lookUp(m_classes, quint32(classCode) << 16 | quint32(quint16(division)), m_lastClass);
    }
    int keyIndex(quint64 key) const { return lookUp(m_keys, key, m_lastKey); }
    int ensureTeacher(int teacher);
    int ensureClass(int classCode, int division);
    int ensureKey(quint64 key);
    void track(const TimetableRow &row, int delta);

    int m_periodsPerDay = 1;
    int m_slots = 7;
    QList<Entry> m_entries;
    int m_alive = 0;
    int m_added = 0;
    QHash<quint64, int> m_keyTotal;
    QHash<int, int> m_teachers;
    QHash<quint32, int> m_classes;
    QHash<quint64, int> m_keys;
    std::vector<quint16> m_teacherBusy;
    std::vector<quint16> m_classBusy;
    std::vector<int> m_keyDayCount;     // 8 a key: index 1 to 7 by DayCode
    std::vector<int> m_keyDayPeriodSum; // sum of the periods held that day: the period itself when one
    QList<QPair<int, int>> m_clearedClasses;
    mutable LookUp m_lastTeacher, m_lastClass, m_lastKey;
};
