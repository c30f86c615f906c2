#include "combinedsubjectgroups.h"
#include "sql.h"
#include "transaction.h"

#include <QSqlQuery>
#include <algorithm>

using namespace Combined;

namespace {

bool holds(const QList<SubjectRow> &list, const Key &key)
{
    return std::any_of(list.cbegin(), list.cend(), [&key](const SubjectRow &row) { return row.key == key; });
}

bool holdsClassDivision(const QList<SubjectRow> &list, int classCode, int division)
{
    return std::any_of(list.cbegin(), list.cend(), [=](const SubjectRow &row) {
        return row.key.classCode == classCode && row.key.division == division;
    });
}

}

CombinedSubjectGroups::CombinedSubjectGroups(const QSqlDatabase &db)
    : m_groups(db, Kind::Subject)
{
}

QList<SubjectRow> CombinedSubjectGroups::rows(const QString &where, const QVariantList &values) const
{
    QSqlQuery query = Sql(m_groups.db()).run(
        QStringLiteral("SELECT t.TeacherName, c.ClassName, d.DivisionName, s.SubjectName, w.NoOfSectionPeriods, "
                       "w.TeacherCode, w.ClassCode, w.DivisionCode, w.SubjectCode, IFNULL(w.CTGroupNo, 0) "
                       "FROM WorkAllotmentEntry w "
                       "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
                       "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
                       "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode AND d.DivisionCode = w.DivisionCode "
                       "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode WHERE ")
            + where + QStringLiteral(" ORDER BY w.NoOfSectionPeriods, w.ClassCode, w.DivisionCode"),
        values);
    QList<SubjectRow> list;
    while (query.next()) {
        list.append({query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
                     query.value(3).toString(), query.value(4).toInt(),
                     {query.value(5).toInt(), query.value(6).toInt(), query.value(7).toInt(), query.value(8).toInt()},
                     query.value(9).toInt()});
    }
    return list;
}

CandidateLoad CombinedSubjectGroups::loadCandidates(int classCode, int division, const QList<SubjectRow> &shown,
                                                    const QList<SubjectRow> &members, bool editing) const
{
    const QList<SubjectRow> free = rows(QStringLiteral("w.ClassCode = ? AND w.DivisionCode = ? "
                                                       "AND IFNULL(w.CPGroupNo, 0) = 0 AND IFNULL(w.CCSystem, '') = '' "
                                                       "AND IFNULL(w.CTSystem, '') = ''"),
                                        {classCode, division});
    // An Edit may bring back rows a dropped member left free; only those not on screen are added.
    if (editing) {
        CandidateLoad load;
        for (const SubjectRow &row : free) {
            if (!holds(shown, row.key) && !holds(members, row.key))
                load.rows.append(row);
        }
        if (!load.rows.isEmpty())
            return load;
    }
    if (holdsClassDivision(shown, classCode, division) || holdsClassDivision(members, classCode, division))
        return {{}, QStringLiteral("Already This Class-Division Has Been Loaded")};
    return {free, {}};
}

QList<SubjectRow> CombinedSubjectGroups::members(int groupNo) const
{
    return rows(QStringLiteral("w.CPGroupNo = ?"), {groupNo});
}

bool CombinedSubjectGroups::teachesWith(const SubjectRow &member, int teacher) const
{
    // A member outside any Combined Teacher group has no partners (group number 0 is no group).
    if (member.ctGroupNo <= 0)
        return false;
    return Sql(m_groups.db()).exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE CTGroupNo = ? "
                                                    "AND TeacherCode <> ? AND TeacherCode = ?"),
                                     {member.ctGroupNo, member.key.teacher, teacher});
}

Verdict CombinedSubjectGroups::checkPick(const SubjectRow &candidate, const QList<SubjectRow> &members,
                                         bool editing) const
{
    if (!m_groups.allotmentExists(candidate.key))
        return Verdict::stop(masterDeletedText());
    if (m_groups.placedPeriods(candidate.key))
        return Verdict::stop(QStringLiteral("Already TimeTable Entry Exists. So You Cannot Combine"));
    if (editing) {
        for (const SubjectRow &member : members) {
            if (m_groups.placedPeriods(member.key))
                return Verdict::reset(groupPlacedText());
        }
    }
    // Teachers who must stand together in one class cannot stand apart in a subject group.
    if (candidate.ctGroupNo > 0) {
        for (const SubjectRow &member : members) {
            if (teachesWith(member, candidate.key.teacher))
                return Verdict::stop(QStringLiteral("The Teacher ") + candidate.teacherName
                                     + QStringLiteral(" Has A Combined Teacher Entry For The Subject ")
                                     + member.teacherName
                                     + QStringLiteral("\nHence You Cannot Have This Teacher In Combined Subject Entry"));
        }
    }
    for (const SubjectRow &member : members) {
        if (member.periods != candidate.periods)
            return Verdict::stop(QStringLiteral("Selected 'No. Of Periods' Should Be Same"));
    }
    for (const SubjectRow &member : members) {
        if (member.key.teacher == candidate.key.teacher)
            return Verdict::stop(QStringLiteral("Already Selected Teacher Exists In This Group\nTeachers Should Be Different For Combined Subject Entry"));
    }
    for (const SubjectRow &member : members) {
        if (member.key.classCode == candidate.key.classCode && member.key.division == candidate.key.division)
            return Verdict::stop(QStringLiteral("Already Selected Class-Division Exists In This Group\nClass-Division Should Be Different For Combined Subject Entry"));
    }
    return Verdict::go();
}

Verdict CombinedSubjectGroups::checkDrop(const SubjectRow &member, bool editing) const
{
    if (editing && m_groups.placedPeriods(member.key))
        return Verdict::reset(groupPlacedText());
    return Verdict::go();
}

Verdict CombinedSubjectGroups::checkSave(const SubjectDraft &draft) const
{
    if (!draft.editing) {
        if (draft.classCode <= 0)
            return Verdict::stop(QStringLiteral("Select Class"), QStringLiteral("cboClass"));
        if (draft.division <= 0)
            return Verdict::stop(QStringLiteral("Select Division"), QStringLiteral("cboDivision"));
    }
    if (draft.members.isEmpty())
        return Verdict::stop(QStringLiteral("Select Class-Division-Subject-Teacher To Be Combined"));
    for (const SubjectRow &member : draft.members) {
        if (!m_groups.allotmentExists(member.key))
            return Verdict::reset(masterDeletedText());
    }
    for (const SubjectRow &member : draft.members) {
        if (m_groups.placedPeriods(member.key))
            return Verdict::reset(QStringLiteral("Time Table Entry Already Exists For The Selected Combination"));
    }
    if (draft.editing && m_groups.placedPeriods(draft.kept))
        return Verdict::reset(groupPlacedText());
    return Verdict::go();
}

int CombinedSubjectGroups::save(const SubjectDraft &draft) const
{
    Transaction transaction(m_groups.db());
    const Sql sql(m_groups.db());
    // Clearing by number also frees a member that was dropped during the Edit.
    if (draft.editing)
        sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CP = '', CPGroupNo = 0 WHERE CPGroupNo = ?"),
                {draft.groupNo});
    const int groupNo = draft.editing ? draft.groupNo : m_groups.takeGroupNo();
    for (const SubjectRow &member : draft.members) {
        sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CP = 'CP', CPGroupNo = ? WHERE TeacherCode = ? "
                               "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
                {groupNo, member.key.teacher, member.key.classCode, member.key.division, member.key.subject});
    }
    transaction.commit();
    return groupNo;
}
