#pragma once
#include "schoolsnapshot.h"
#include "timetablestate.h"

#include <QList>
#include <QSqlDatabase>

// One row of a work list: a row of AutoGenPhase1 (group 1 to 4) or of AutoGenPhase2 (group 0).
struct WorkRow
{
    int group = 0;
    int id = 0;
    int classCode = 0;
    int division = 0;
    int teacher = 0;
    int subject = 0;
    int periodCode = 0;
    int p1Insert = 0;
    int p2Insert = 0;
    QString ccSystem;
    QString ctSystem;
    quint64 key() const { return allotmentKey(teacher, classCode, division, subject); }
};

// The rows of the work list that share an ID: placed in one slot or not at all.
struct WorkUnit
{
    int group = 0;
    int id = 0;
    QList<int> rows; // indexes into the list, table order
};

// Expansion of allotments into the rows that must stand with them, with look-ups over the allotment list.
class AllotmentIndex
{
public:
    explicit AllotmentIndex(const QList<Allotment> &allotments);
    // Index of the first allotment with the key, or -1.
    int first(quint64 key) const { return m_firstOfKey.value(key, -1); }
    // The rows that stand with one allotment: its groups' rows, widened once by their group numbers; without
    // group numbers the rows of its key. `withCombinedClass` false leaves CCGroupNo out at both levels (the
    // check grid's demand pass). Empty when the key has no allotment.
    QList<int> expand(quint64 key, bool withCombinedClass = true) const;

private:
    QList<int> matching(const QList<int> &cp, const QList<int> &cc, const QList<int> &ct) const;
    const QList<Allotment> &m_allotments;
    QHash<quint64, int> m_firstOfKey;
    QHash<quint64, QList<int>> m_rowsOfKey;
    QHash<int, QList<int>> m_byCp, m_byCc, m_byCt;
};

// The Phase I work list (AutoGenPhase1): uniform periods, teacher settings, subject settings and combined
// rows, each allotment owned by the first group that lists it, each less what TimeTable already holds.
struct WorkList
{
    QList<WorkRow> rows;
    QList<WorkUnit> unitsOf(int group) const; // by ID; group 4 only units with something left to place
    int balance() const;                      // sum of P1Insert and P2Insert
};

WorkList BuildWorkList(const SchoolSnapshot &snapshot, const AllotmentIndex &index, const QList<TimetableRow> &timetable);
void WriteWorkList(const QSqlDatabase &db, const WorkList &list);

// The Phase II list (AutoGenPhase2): every allotment in table order with what is left of it.
QList<WorkRow> BuildPhaseTwoList(const SchoolSnapshot &snapshot, const TimetableState &timetable);
// The rows of one class division of that list, as it gives them.
QList<WorkRow> BuildPhaseTwoRowsOf(const SchoolSnapshot &snapshot, const TimetableState &timetable, int classCode,
                                   int division);
void WritePhaseTwoList(const QSqlDatabase &db, const QList<WorkRow> &rows);
int PhaseTwoBalance(const QList<WorkRow> &rows);
