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
    int teacherIndex(int teacher) const { return m_teachers.value(teacher, -1); }
    int classIndex(int classCode, int division) const
    {
        return m_classes.value(quint32(classCode) << 16 | quint32(quint16(division)), -1);
    }
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
};
