#pragma once
#include "combinedgroups.h"

namespace Combined {

// A further teacher, with a subject of his own, who takes the main row's class division at the same time.
struct TeacherSubjectRow
{
    int teacher = 0;
    int subject = 0;
    QString teacherName;
    QString subjectName;
};

using TeacherDraft = Draft<TeacherSubjectRow>;

// The add fields and the main selection as chosen on screen (code 0 when empty).
struct TeacherAddition
{
    int teacher = 0;
    QString teacherName;
    int subject = 0;
    int mainClass = 0;
    int mainDivision = 0;
    int mainSubject = 0;
};

}

// Combined Teacher groups: several teachers, each with a subject, before one class division. The entered
// main row is marked and every further teacher gets a generated row (CTSystem "Y"), which counts in that
// teacher's allotted periods, so each added teacher needs room for the main row's periods.
class CombinedTeacherGroups
{
public:
    using Row = Combined::TeacherSubjectRow;

    explicit CombinedTeacherGroups(const QSqlDatabase &db);

    const CombinedGroups &groups() const { return m_groups; }

    QList<Combined::TeacherSubjectRow> listed(int groupNo) const;

    bool listedPlaced(const Combined::TeacherDraft &draft) const;
    // On choosing a teacher to add.
    Combined::Verdict checkTeacherChoice(const Combined::TeacherDraft &draft, int teacher) const;
    Combined::Verdict checkAdd(const Combined::TeacherDraft &draft, const Combined::TeacherAddition &added) const;
    Combined::Verdict checkSave(const Combined::TeacherDraft &draft, int mainClass, int mainDivision,
                                int mainSubject) const;
    // Writes the group and its generated rows in one transaction; an Edit clears and rewrites it.
    int save(const Combined::TeacherDraft &draft) const;

private:
    Combined::Verdict checkRoom(const Combined::TeacherDraft &draft, const Combined::TeacherAddition &added) const;

    CombinedGroups m_groups;
};
