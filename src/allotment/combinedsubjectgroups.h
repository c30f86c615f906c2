#pragma once
#include "combinedgroups.h"

namespace Combined {

// An allotment as the subject screen's two grids show it.
struct SubjectRow
{
    QString teacherName;
    QString className;
    QString divisionName;
    QString subjectName;
    int periods = 0;
    Key key;
    int ctGroupNo = 0;
};

// What the subject screen holds when Save is pressed.
struct SubjectDraft
{
    int classCode = 0;
    int division = 0;
    QList<SubjectRow> members;
    bool editing = false;
    Key kept;        // the row the search brought back
    int groupNo = 0; // the group being edited
};

// The candidates a chosen class division adds to the candidate grid, or the refusal to add any.
struct CandidateLoad
{
    QList<SubjectRow> rows;
    QString refusal;
};

}

// Combined Subject groups: existing allotments of different teachers and class divisions bound to one
// period. The group lives in the CP and CPGroupNo columns of its members; no row is ever added.
class CombinedSubjectGroups
{
public:
    explicit CombinedSubjectGroups(const QSqlDatabase &db);

    const CombinedGroups &groups() const { return m_groups; }

    // The free allotments of the class division (no subject group, no generated row) to add to the grid
    // that already shows `shown`, while the group holds `members`.
    Combined::CandidateLoad loadCandidates(int classCode, int division, const QList<Combined::SubjectRow> &shown,
                                           const QList<Combined::SubjectRow> &members, bool editing) const;
    // The members of a group, by periods and class division.
    QList<Combined::SubjectRow> members(int groupNo) const;

    // May the candidate join the members? The group's invariants, in the order the screen tells them.
    Combined::Verdict checkPick(const Combined::SubjectRow &candidate, const QList<Combined::SubjectRow> &members,
                                bool editing) const;
    // May the member leave the group?
    Combined::Verdict checkDrop(const Combined::SubjectRow &member, bool editing) const;
    Combined::Verdict checkSave(const Combined::SubjectDraft &draft) const;
    // Writes the group in one transaction (an Edit clears it and writes it again); gives its number.
    int save(const Combined::SubjectDraft &draft) const;

private:
    QList<Combined::SubjectRow> rows(const QString &where, const QVariantList &values) const;
    // The candidate's teacher already stands with the member's teacher in a Combined Teacher group.
    bool teachesWith(const Combined::SubjectRow &member, int teacher) const;

    CombinedGroups m_groups;
};
