#include "workallotment.h"
#include "sql.h"
#include "transaction.h"

#include <QSqlQuery>

namespace AllotmentTexts {

QString duplicate()
{
    return QStringLiteral("No Two Rows Should Have Same Class-Division-Subject Entry Or\nAlready An Entry Exists For The Same Class-Division-Subject In Work Allotment Entry For Another Teacher");
}

QString exceedsWorkingPeriods()
{
    return QStringLiteral("'Alloted Periods' Should Not Exceed 'No.Of Working Periods'");
}

QString cannotReducePeriods()
{
    return QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods'\nSo You Cannot Reduce 'Periods'");
}

QString timetableBlocksEdit()
{
    return QStringLiteral("TimeTable Entry Exists For This Row\nSo You Cannot Edit This Row");
}

QString deleteWholeListQuestion()
{
    return QStringLiteral("Do You Want To Delete This Work Allotment Entry ?");
}

}

QList<CodeName> WorkAllotment::list(const QString &statement, const QVariantList &values) const
{
    QList<CodeName> entries{{0, QString()}};
    QSqlQuery query = Sql(m_db).run(statement, values);
    while (query.next())
        entries.append({query.value(0).toInt(), query.value(1).toString()});
    return entries;
}

QList<CodeName> WorkAllotment::teachers() const
{
    return list(QStringLiteral("SELECT TeacherCode, TeacherName FROM TeacherMaster WHERE TeacherCode > 0 "
                               "ORDER BY TeacherName"));
}

// Classes keep the school's own order (I, II, ... IX, X), which the names alone would scramble.
QList<CodeName> WorkAllotment::classes() const
{
    return list(QStringLiteral("SELECT ClassCode, ClassName FROM ClassDivisionMaster WHERE ClassCode > 0 "
                               "ORDER BY ClassOrder, ClassName"));
}

QList<CodeName> WorkAllotment::divisions(int classCode) const
{
    return list(QStringLiteral("SELECT DivisionCode, DivisionName FROM ClassDivisionDetails WHERE ClassCode = ? "
                               "AND DivisionCode > 0 ORDER BY DivisionName"),
                {classCode});
}

QList<CodeName> WorkAllotment::subjects() const
{
    return list(QStringLiteral("SELECT SubjectCode, SubjectName FROM SubjectMaster WHERE SubjectCode > 0 "
                               "ORDER BY SubjectName"));
}

WorkAllotment::TeacherLoad WorkAllotment::teacher(int teacher) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT TeacherShortName, NoOfPeriods FROM TeacherMaster WHERE TeacherCode = ?"), {teacher});
    if (!query.next())
        return {};
    return {query.value(0).toString(), query.value(1).toInt()};
}

// Outer joins keep a row whose master went missing in the list: a row the grid does not show would be
// dropped unseen by the next Save.
QList<AllotmentRow> WorkAllotment::rowsOf(int teacher) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral(
            "SELECT w.ClassCode, w.DivisionCode, w.SubjectCode, IFNULL(c.ClassName, ''), IFNULL(d.DivisionName, ''), "
            "IFNULL(s.SubjectName, ''), IFNULL(w.NoOfSectionPeriods, 0), IFNULL(w.CPGroupNo, 0), "
            "IFNULL(w.CCGroupNo, 0), IFNULL(w.CTGroupNo, 0), IFNULL(w.CCSystem, ''), IFNULL(w.CTSystem, ''), "
            "t.TeacherCode IS NOT NULL "
            "FROM WorkAllotmentEntry w "
            "LEFT JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
            "LEFT JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode AND d.DivisionCode = w.DivisionCode "
            "LEFT JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
            "LEFT JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode AND t.ClassCode = w.ClassCode "
            "AND t.DivisionCode = w.DivisionCode AND t.SubjectCode = w.SubjectCode "
            "WHERE w.TeacherCode = ? ORDER BY w.ClassCode, w.DivisionCode, w.rowid"),
        {teacher});
    QList<AllotmentRow> rows;
    while (query.next()) {
        AllotmentRow row;
        row.classCode = query.value(0).toInt();
        row.division = query.value(1).toInt();
        row.subject = query.value(2).toInt();
        row.className = query.value(3).toString();
        row.divisionName = query.value(4).toString();
        row.subjectName = query.value(5).toString();
        row.periods = query.value(6).toInt();
        row.groups = {query.value(7).toInt(), query.value(8).toInt(), query.value(9).toInt()};
        row.ccSystem = query.value(10).toString();
        row.ctSystem = query.value(11).toString();
        row.classTeacher = query.value(12).toBool();
        rows.append(row);
    }
    return rows;
}

int WorkAllotment::allottedPeriods(const QList<AllotmentRow> &rows)
{
    int sum = 0;
    for (const AllotmentRow &row : rows)
        sum += row.countsForTeacher() ? row.periods : 0;
    return sum;
}

GroupNumbers WorkAllotment::combinedGroups(int teacher, const AllotmentRow &row, QString *kind) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT MAX(IFNULL(CPGroupNo, 0)), MAX(IFNULL(CCGroupNo, 0)), MAX(IFNULL(CTGroupNo, 0)) "
                       "FROM WorkAllotmentEntry WHERE TeacherCode = ? AND ClassCode = ? AND DivisionCode = ? "
                       "AND SubjectCode = ?"),
        {teacher, row.classCode, row.division, row.subject});
    GroupNumbers groups;
    if (query.next())
        groups = {query.value(0).toInt(), query.value(1).toInt(), query.value(2).toInt()};
    if (kind) {
        kind->clear();
        if (groups.cc > 0)
            *kind = QStringLiteral("Combined Class Entry");
        if (groups.ct > 0)
            *kind = QStringLiteral("Combined Teacher Entry");
        if (groups.cp > 0)
            *kind = QStringLiteral("Combined Subject entry");
    }
    return groups;
}

bool WorkAllotment::isClassTeacherEntry(int teacher, const AllotmentRow &row) const
{
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM TeacherMaster WHERE TeacherCode = ? AND ClassCode = ? "
                                           "AND DivisionCode = ? AND SubjectCode = ?"),
                            {teacher, row.classCode, row.division, row.subject});
}

int WorkAllotment::placedCount(int teacher, const AllotmentRow &row) const
{
    return Placement::PlacedCount(m_db, teacher, row.classCode, row.division, row.subject);
}

bool WorkAllotment::isDuplicate(int teacher, const QList<AllotmentRow> &rows, int index) const
{
    if (index < 0 || index >= rows.size() || rows.at(index).classCode <= 0)
        return false;
    const AllotmentRow &row = rows.at(index);
    for (int i = 0; i < rows.size(); ++i) {
        if (i != index && rows.at(i).sameKey(row))
            return true;
    }
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE ClassCode = ? AND DivisionCode = ? "
                                           "AND SubjectCode = ? AND TeacherCode <> ?"),
                            {row.classCode, row.division, row.subject, teacher});
}

QList<StoredAllotment> WorkAllotment::snapshot(int teacher) const
{
    QList<StoredAllotment> stored;
    for (const AllotmentRow &row : rowsOf(teacher))
        stored.append({row, teacher, placedCount(teacher, row)});
    return stored;
}

void WorkAllotment::compare(QList<StoredAllotment> &snapshot, const QList<AllotmentRow> &rows)
{
    for (StoredAllotment &stored : snapshot) {
        const AllotmentRow *listed = nullptr;
        for (const AllotmentRow &row : rows) {
            if (row.sameKey(stored.row)) {
                listed = &row;
                break;
            }
        }
        if (stored.placed > 0 && listed) {
            stored.listed = true;
            stored.belowPlaced = stored.placed > listed->periods;
        }
        if (stored.row.classTeacher)
            stored.classTeacherKept = listed && listed->classTeacher;
    }
}

AllotmentRefusal WorkAllotment::checkSave(int teacher, const QList<AllotmentRow> &rows, int currentRow,
                                     QList<StoredAllotment> *snapshotOut) const
{
    using Kind = AllotmentRefusal::Kind;
    if (allottedPeriods(rows) > this->teacher(teacher).workingPeriods)
        return {Kind::ExceedsWorkingPeriods, -1, AllotmentTexts::exceedsWorkingPeriods()};
    if (rows.isEmpty()
        || (rows[0].className.isEmpty() && rows[0].divisionName.isEmpty() && rows[0].subjectName.isEmpty()
            && rows[0].periods == 0))
        return {Kind::NoDetails, 0, QStringLiteral("Enter WorkAllotment Details")};
    for (int i = 0; i < rows.size(); ++i) {
        const AllotmentRow &row = rows.at(i);
        if (!row.className.isEmpty() && (row.divisionName.isEmpty() || row.subjectName.isEmpty() || row.periods <= 0))
            return {Kind::IncompleteRow, i, QStringLiteral("Enter Details Properly")};
    }
    // Each row was checked as it was entered; only the row still being edited can hold a new clash.
    if (isDuplicate(teacher, rows, currentRow))
        return {Kind::Duplicate, currentRow, AllotmentTexts::duplicate()};

    QList<StoredAllotment> stored = snapshot(teacher);
    compare(stored, rows);
    if (snapshotOut)
        *snapshotOut = stored;
    for (const StoredAllotment &s : std::as_const(stored)) {
        if (s.belowPlaced)
            return {Kind::BelowPlaced, -1, QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods'\nSo You Cannot Save This WorkAllotment Entry")};
    }
    for (const StoredAllotment &s : std::as_const(stored)) {
        if (s.placed > 0 && !s.listed)
            return {Kind::PlacedRowRemoved, -1, QStringLiteral("Changes You Made Is Not Saved\nBecause Time Table Entry Already Exists")};
    }
    for (const StoredAllotment &s : std::as_const(stored)) {
        if (s.row.classTeacher && !s.classTeacherKept)
            return {Kind::ClassTeacherRowRemoved, -1, QStringLiteral("Changes You Made Is Not Saved\nBecause Class Teacher Entry Already Exists")};
    }
    return {};
}

void WorkAllotment::save(int teacher, const QList<AllotmentRow> &rows, bool editing) const
{
    const Sql sql(m_db);
    Transaction transaction(m_db);
    if (editing) {
        sql.run(QStringLiteral(
                    "DELETE FROM WorkAllotmentEntry WHERE TeacherCode = ? AND IFNULL(CPGroupNo, 0) = 0 "
                    "AND IFNULL(CTGroupNo, 0) = 0 AND IFNULL(CCGroupNo, 0) = 0 AND NOT EXISTS (SELECT 1 FROM "
                    "TeacherMaster t WHERE t.TeacherCode = WorkAllotmentEntry.TeacherCode "
                    "AND t.ClassCode = WorkAllotmentEntry.ClassCode "
                    "AND t.DivisionCode = WorkAllotmentEntry.DivisionCode "
                    "AND t.SubjectCode = WorkAllotmentEntry.SubjectCode)"),
                {teacher});
    }
    for (const AllotmentRow &row : rows) {
        if (row.className.isEmpty() || row.divisionName.isEmpty())
            continue;
        if (!combinedGroups(teacher, row).none() || isClassTeacherEntry(teacher, row))
            continue;
        // Only the five columns this screen owns: group marks and system marks are left to the group screens.
        sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry (TeacherCode, ClassCode, DivisionCode, SubjectCode, "
                               "NoOfSectionPeriods) VALUES (?, ?, ?, ?, ?)"),
                {teacher, row.classCode, row.division, row.subject, row.periods});
    }
    transaction.commit();
}

QString WorkAllotment::deleteRefusal(int teacher) const
{
    const Sql sql(m_db);
    if (sql.exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE TeacherCode = ?"), {teacher}))
        return QStringLiteral("Already Timetable Entries Exist For The Selected Teacher\nSo You Cannot Delete This Teacher's WorkAllotment Entry\nAfter Removing Timetable Entries Of This Teacher, You Can Delete This WorkAllotment Entry");
    if (sql.exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry w JOIN TeacherMaster t ON t.TeacherCode = "
                                  "w.TeacherCode AND t.ClassCode = w.ClassCode AND t.DivisionCode = w.DivisionCode "
                                  "AND t.SubjectCode = w.SubjectCode WHERE w.TeacherCode = ? AND w.ClassCode > 0 "
                                  "AND w.DivisionCode > 0 AND w.SubjectCode > 0"),
                   {teacher}))
        return QStringLiteral("Already 'Class Teacher Entry' Exists For The Selected Teacher\nSo You Cannot Delete This Teacher's WorkAllotment Entry\nAfter Removing His/Her 'Class Teacher Entry', You Can Delete This WorkAllotment Entry");
    if (sql.exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE TeacherCode = ? AND (CPGroupNo > 0 "
                                  "OR CCGroupNo > 0 OR CTGroupNo > 0)"),
                   {teacher}))
        return QStringLiteral("Already Combined Entry Exists For The Selected Teacher\nSo You Cannot Delete This Teacher's WorkAllotment Entry\nAfter Removing Combined Entry Of This Teacher, You Can Delete This WorkAllotment Entry");
    return {};
}

void WorkAllotment::deleteAll(int teacher) const
{
    Transaction transaction(m_db);
    Sql(m_db).run(QStringLiteral("DELETE FROM WorkAllotmentEntry WHERE TeacherCode = ?"), {teacher});
    transaction.commit();
}
