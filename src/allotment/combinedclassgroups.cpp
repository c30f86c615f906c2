#include "combinedclassgroups.h"
#include "sql.h"
#include "transaction.h"

#include <QSqlQuery>
#include <algorithm>

using namespace Combined;

namespace {

QString takenText()
{
    return QStringLiteral("'Work Allotment Entry' Already Exists For The Selected Class-Division-Subject\nHence This Combination Cannot Be Added In A Combined Class Group");
}

Key generatedKey(const ClassDraft &draft, const ClassDivisionRow &row)
{
    return {draft.main.key.teacher, row.classCode, row.division, draft.main.key.subject};
}

}

CombinedClassGroups::CombinedClassGroups(const QSqlDatabase &db)
    : m_groups(db, Kind::Class)
{
}

QList<ClassDivisionRow> CombinedClassGroups::listed(int groupNo) const
{
    QSqlQuery query = Sql(m_groups.db()).run(
        QStringLiteral("SELECT w.ClassCode, w.DivisionCode, c.ClassName, d.DivisionName FROM WorkAllotmentEntry w "
                       "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
                       "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode AND d.DivisionCode = w.DivisionCode "
                       "WHERE w.CCGroupNo = ? AND w.CCSystem = 'Y' ORDER BY c.ClassOrder, d.DivisionName"),
        {groupNo});
    QList<ClassDivisionRow> rows;
    while (query.next())
        rows.append({query.value(0).toInt(), query.value(1).toInt(), query.value(2).toString(),
                     query.value(3).toString()});
    return rows;
}

bool CombinedClassGroups::listedPlaced(const ClassDraft &draft) const
{
    if (draft.main.key.teacher <= 0 || draft.main.key.subject <= 0)
        return false;
    return std::any_of(draft.listed.cbegin(), draft.listed.cend(), [&](const ClassDivisionRow &row) {
        return m_groups.placedPeriods(generatedKey(draft, row));
    });
}

Verdict CombinedClassGroups::checkAddedDivision(const ClassDraft &draft, int classCode, int division) const
{
    if (draft.main.key.subject <= 0 || classCode <= 0 || division <= 0)
        return Verdict::go();
    if (m_groups.subjectTakenOutside(classCode, division, draft.main.key.subject, draft.editing ? draft.groupNo : 0))
        return Verdict::stop(takenText(), QStringLiteral("cboDivisionAdd"));
    return Verdict::go();
}

Verdict CombinedClassGroups::checkAdd(const ClassDraft &draft, int classCode, int division, int mainClass,
                                      int mainDivision, int mainSubject) const
{
    if (classCode <= 0)
        return Verdict::stop(QStringLiteral("Select Class"), QStringLiteral("cboClassAdd"));
    if (division <= 0)
        return Verdict::stop(QStringLiteral("Select Division"), QStringLiteral("cboDivisionAdd"));
    if (const Verdict main = checkMainChosen(mainClass, mainDivision, mainSubject); !main.ok())
        return main;
    if (classCode == mainClass && division == mainDivision)
        return Verdict::stop(QStringLiteral("The Selected Class Is The Main Class To Which Other Classes Will Be Combined\nHence You Cannot Add This Class To The List"),
                             QStringLiteral("cboDivisionAdd"));
    if (m_groups.subjectTakenOutside(classCode, division, mainSubject, draft.editing ? draft.groupNo : 0))
        return Verdict::stop(takenText(), QStringLiteral("cboDivisionAdd"));
    const bool listed = std::any_of(draft.listed.cbegin(), draft.listed.cend(), [=](const ClassDivisionRow &row) {
        return row.classCode == classCode && row.division == division;
    });
    if (listed)
        return Verdict::stop(QStringLiteral("Already This Class-Division Is Added In This Group\nYou Cannot Add It Again"),
                             QStringLiteral("cboDivisionAdd"));
    if (listedPlaced(draft))
        return Verdict::reset(groupPlacedText());
    return Verdict::go();
}

Verdict CombinedClassGroups::checkSave(const ClassDraft &draft, int mainClass, int mainDivision, int mainSubject) const
{
    if (const Verdict main = checkMainChosen(mainClass, mainDivision, mainSubject); !main.ok())
        return main;
    if (draft.main.periods <= 0)
        return Verdict::stop(QStringLiteral("Reselect The Subject"), QStringLiteral("cboSubject"));
    if (draft.listed.isEmpty())
        return Verdict::stop(QStringLiteral("Select Class-Division To Be Combined"), QStringLiteral("cboClassAdd"));
    if (!m_groups.allotmentExists(draft.main.key))
        return Verdict::reset(masterDeletedText());
    if (!draft.editing) {
        for (const ClassDivisionRow &row : draft.listed) {
            if (m_groups.allotmentExists(row.classCode, row.division, draft.main.key.subject))
                return Verdict::clearList(QStringLiteral("Already 'Work Allotment Entry' Exists For The Combined Class-Division\nReselect The Combination"));
        }
    }
    if (m_groups.placedPeriods(draft.main.key))
        return Verdict::reset(QStringLiteral("Time Table Entry Already Exists For The Main Class-Division-Subject"));
    for (const ClassDivisionRow &row : draft.listed) {
        // The words speak of an allotment; what is tested is placed periods of the generated row.
        if (m_groups.placedPeriods(generatedKey(draft, row)))
            return Verdict::reset(QStringLiteral("Already 'Work Allotment Entry' Exists For The Combined Class-Division-Subject"));
    }
    if (draft.editing && m_groups.placedPeriods(draft.kept))
        return Verdict::reset(groupPlacedText());
    return Verdict::go();
}

int CombinedClassGroups::save(const ClassDraft &draft) const
{
    Transaction transaction(m_groups.db());
    const Sql sql(m_groups.db());
    int groupNo = draft.groupNo;
    if (draft.editing) {
        // The generated rows keep no memory of the old list: all go, and the listed ones are written anew.
        sql.run(QStringLiteral("DELETE FROM WorkAllotmentEntry WHERE CC = 'CC' AND CCGroupNo = ? AND CCSystem = 'Y'"),
                {groupNo});
        sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CC = '', CCGroupNo = 0 "
                               "WHERE CC = 'CC' AND CCGroupNo = ?"),
                {groupNo});
    } else {
        groupNo = m_groups.takeGroupNo();
    }
    const Key &main = draft.main.key;
    sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CC = 'CC', CCGroupNo = ? WHERE TeacherCode = ? "
                           "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
            {groupNo, main.teacher, main.classCode, main.division, main.subject});
    // By position, all 13 columns: the generated row is the main row's work in another class division.
    for (const ClassDivisionRow &row : draft.listed) {
        sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', 'CC', '', 0, ?, 0, 'Y', '')"),
                {main.teacher, row.classCode, row.division, main.subject, draft.main.periods, groupNo});
    }
    transaction.commit();
    return groupNo;
}
