#pragma once
#include "combinedgroups.h"

namespace Combined {

// A class division listed to sit with the main row's class.
struct ClassDivisionRow
{
    int classCode = 0;
    int division = 0;
    QString className;
    QString divisionName;
};

using ClassDraft = Draft<ClassDivisionRow>;

}

// Combined Class groups: one teacher and subject before several class divisions. The entered main row is
// marked, and every further class division gets a generated row (CCSystem "Y") that lives exactly as long
// as the group. Throws StoreError on a store failure.
class CombinedClassGroups
{
public:
    using Row = Combined::ClassDivisionRow;

    explicit CombinedClassGroups(const QSqlDatabase &db);

    const CombinedGroups &groups() const { return m_groups; }

    QList<Combined::ClassDivisionRow> listed(int groupNo) const;

    // A listed class division already has placed periods of the main subject and teacher: the group can no
    // longer change.
    bool listedPlaced(const Combined::ClassDraft &draft) const;
    // On choosing a class division to add: does it already have the main subject?
    Combined::Verdict checkAddedDivision(const Combined::ClassDraft &draft, int classCode, int division) const;
    // cmdAdd: the add fields and the main selection, as chosen on screen (code 0 when empty).
    Combined::Verdict checkAdd(const Combined::ClassDraft &draft, int classCode, int division, int mainClass,
                               int mainDivision, int mainSubject) const;
    Combined::Verdict checkSave(const Combined::ClassDraft &draft, int mainClass, int mainDivision,
                                int mainSubject) const;
    // Writes the group and its generated rows in one transaction; an Edit clears and rewrites it.
    int save(const Combined::ClassDraft &draft) const;

private:
    CombinedGroups m_groups;
};
