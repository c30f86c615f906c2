#include "combinedteachergroups.h"
#include "sql.h"
#include "transaction.h"

#include <QSqlQuery>
#include <algorithm>
#include <cstdlib>

using namespace Combined;

namespace {

Key generatedKey(const TeacherDraft &draft, const TeacherSubjectRow &row)
{
    return {row.teacher, draft.main.key.classCode, draft.main.key.division, row.subject};
}

}

CombinedTeacherGroups::CombinedTeacherGroups(const QSqlDatabase &db)
    : m_groups(db, Kind::Teacher)
{
}

QList<TeacherSubjectRow> CombinedTeacherGroups::listed(int groupNo) const
{
    QSqlQuery query = Sql(m_groups.db()).run(
        QStringLiteral("SELECT w.TeacherCode, w.SubjectCode, t.TeacherName, s.SubjectName FROM WorkAllotmentEntry w "
                       "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
                       "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
                       "WHERE w.CTGroupNo = ? AND w.CTSystem = 'Y' ORDER BY t.TeacherName"),
        {groupNo});
    QList<TeacherSubjectRow> rows;
    while (query.next())
        rows.append({query.value(0).toInt(), query.value(1).toInt(), query.value(2).toString(),
                     query.value(3).toString()});
    return rows;
}

bool CombinedTeacherGroups::listedPlaced(const TeacherDraft &draft) const
{
    if (draft.main.key.classCode <= 0 || draft.main.key.division <= 0 || draft.main.key.subject <= 0)
        return false;
    return std::any_of(draft.listed.cbegin(), draft.listed.cend(), [&](const TeacherSubjectRow &row) {
        return m_groups.placedPeriods(generatedKey(draft, row));
    });
}

Verdict CombinedTeacherGroups::checkTeacherChoice(const TeacherDraft &draft, int teacher) const
{
    if (teacher <= 0)
        return Verdict::go();
    if (teacher == draft.main.key.teacher)
        return Verdict::stop(QStringLiteral("You Cannot Select The Same Teacher"), QStringLiteral("cboTeacherAdd"));
    const bool listed = std::any_of(draft.listed.cbegin(), draft.listed.cend(),
                                    [teacher](const TeacherSubjectRow &row) { return row.teacher == teacher; });
    if (listed)
        return Verdict::stop(QStringLiteral("Already The Selected Teacher Is Added In This Group\nYou Cannot Add It Again"),
                             QStringLiteral("cboTeacherAdd"));
    return Verdict::go();
}

Verdict CombinedTeacherGroups::checkRoom(const TeacherDraft &draft, const TeacherAddition &added) const
{
    const Sql sql(m_groups.db());
    const int ceiling = sql.scalar(QStringLiteral("SELECT NoOfPeriods FROM TeacherMaster WHERE TeacherCode = ?"),
                                   {added.teacher})
                            .toInt();
    // Generated Combined Class rows cost their teacher nothing; generated Combined Teacher rows do count.
    const int allotted = sql.scalar(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry "
                                                   "WHERE TeacherCode = ? AND IFNULL(CCSystem, '') = ''"),
                                    {added.teacher})
                             .toInt();
    // In an Edit the teacher's own generated row of this group is rewritten, so its periods are free again.
    const int own = draft.editing
        ? sql.scalar(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry "
                                    "WHERE TeacherCode = ? AND CTGroupNo = ? AND CTSystem = 'Y'"),
                     {added.teacher, draft.groupNo})
              .toInt()
        : 0;
    const int left = ceiling - allotted - draft.main.periods;
    if (left + own >= 0)
        return Verdict::go();
    // The excess shown deliberately leaves the own row out, even in an Edit, so it can be larger than the
    // true excess.
    return Verdict::stop(QStringLiteral("No. Of Periods Alloted For Teacher ") + added.teacherName
                             + QStringLiteral(" Is Only ") + QString::number(ceiling)
                             + QStringLiteral("\nBut This Selection Will Exceed By ") + QString::number(std::abs(left))
                             + QStringLiteral("\nSo You Cannot Add This Teacher In This Combined Teacher Group"),
                         QStringLiteral("cboTeacherAdd"));
}

Verdict CombinedTeacherGroups::checkAdd(const TeacherDraft &draft, const TeacherAddition &added) const
{
    if (const Verdict choice = checkTeacherChoice(draft, added.teacher); !choice.ok())
        return choice;
    if (added.teacher <= 0)
        return Verdict::stop(QStringLiteral("Select Teacher"), QStringLiteral("cboTeacherAdd"));
    if (added.subject <= 0)
        return Verdict::stop(QStringLiteral("Select Subject"), QStringLiteral("cboSubjectAdd"));
    // The tests below measure the added teacher against the main row, so it must be chosen first.
    if (const Verdict main = checkMainChosen(added.mainClass, added.mainDivision, added.mainSubject); !main.ok())
        return main;
    if (m_groups.subjectTakenOutside(added.mainClass, added.mainDivision, added.subject,
                                     draft.editing ? draft.groupNo : 0))
        return Verdict::stop(QStringLiteral("'Work Allotment Entry' Already Exists For The Selected Class-Division-Subject-Teacher\nHence This Combination Cannot Be Added In A Combined Teacher Group"),
                             QStringLiteral("cboSubjectAdd"));
    // Teachers bound together in a subject group cannot also share one class division: the mirror of the
    // subject screen's test.
    if (draft.main.cpGroupNo > 0
        && Sql(m_groups.db()).exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE TeacherCode = ? "
                                                    "AND CPGroupNo = ?"),
                                     {added.teacher, draft.main.cpGroupNo})) {
        return Verdict::stop(QStringLiteral("The Teacher ") + added.teacherName
                             + QStringLiteral(" Has A Combined Subject Entry With ") + draft.main.teacherName
                             + QStringLiteral(" For ") + draft.main.className + QStringLiteral("-")
                             + draft.main.divisionName + QStringLiteral("-") + draft.main.subjectName
                             + QStringLiteral("\nHence Combined Teacher Entry Is Not Possible For The Selected Teacher ")
                             + added.teacherName,
                             QStringLiteral("cboTeacherAdd"));
    }
    if (const Verdict room = checkRoom(draft, added); !room.ok())
        return room;
    if (listedPlaced(draft))
        return Verdict::stop(groupPlacedText());
    return Verdict::go();
}

Verdict CombinedTeacherGroups::checkSave(const TeacherDraft &draft, int mainClass, int mainDivision,
                                         int mainSubject) const
{
    if (const Verdict main = checkMainChosen(mainClass, mainDivision, mainSubject); !main.ok())
        return main;
    if (draft.listed.isEmpty())
        return Verdict::stop(QStringLiteral("Select Teacher-Subject To Be Combined"), QStringLiteral("cboTeacherAdd"));
    if (draft.main.periods <= 0)
        return Verdict::stop(QStringLiteral("Reselect The Subject"), QStringLiteral("cboSubject"));
    if (!m_groups.allotmentExists(draft.main.key))
        return Verdict::reset(masterDeletedText());
    if (!draft.editing) {
        for (const TeacherSubjectRow &row : draft.listed) {
            if (m_groups.allotmentExists(draft.main.key.classCode, draft.main.key.division, row.subject))
                return Verdict::clearList(QStringLiteral("Already 'Work Allotment Entry' Exists For The Combined Teacher-Subject\nReselect The Combination"));
        }
    }
    if (m_groups.placedPeriods(draft.main.key))
        return Verdict::reset(QStringLiteral("Time Table Entry Already Exists For The Main Class-Division-Subject-Teacher"));
    for (const TeacherSubjectRow &row : draft.listed) {
        if (m_groups.placedPeriods(generatedKey(draft, row)))
            return Verdict::reset(QStringLiteral("Already 'Work Allotment Entry' Exists For The Combined Class-Division-Subject-Teacher"));
    }
    if (draft.editing && m_groups.placedPeriods(draft.kept))
        return Verdict::reset(groupPlacedText());
    return Verdict::go();
}

int CombinedTeacherGroups::save(const TeacherDraft &draft) const
{
    Transaction transaction(m_groups.db());
    const Sql sql(m_groups.db());
    int groupNo = draft.groupNo;
    if (draft.editing)
        sql.run(QStringLiteral("DELETE FROM WorkAllotmentEntry WHERE CT = 'CT' AND CTGroupNo = ? AND CTSystem = 'Y'"),
                {groupNo});
    else
        groupNo = m_groups.takeGroupNo();
    sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CT = '', CTGroupNo = 0 WHERE CTGroupNo = ? "
                           "AND (CTSystem IS NULL OR CTSystem <> 'Y')"),
            {groupNo});
    const Key &main = draft.main.key;
    sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CT = 'CT', CTGroupNo = ? WHERE TeacherCode = ? "
                           "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
            {groupNo, main.teacher, main.classCode, main.division, main.subject});
    // By position, all 13 columns: the generated row is another teacher's work in the main class division.
    for (const TeacherSubjectRow &row : draft.listed) {
        sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', '', 'CT', 0, 0, ?, '', 'Y')"),
                {row.teacher, main.classCode, main.division, row.subject, draft.main.periods, groupNo});
    }
    transaction.commit();
    return groupNo;
}
