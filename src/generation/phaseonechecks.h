#pragma once
#include "schoolsnapshot.h"
#include "worklist.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

// The Phase I settings that the generators read, and the checks that stand before a run.
namespace PhaseOneChecks {

// FreePeriodDetails from scratch, in one transaction: each teacher's free periods a day decide how much free
// time a placement must leave (type 2 per session, 1 per day, 3 none, 4 refuses every slot).
void BuildFreePeriodDetails(const QSqlDatabase &db, const SchoolCalendar &calendar);
// The same, then the teachers of AGP1TeacherDetails marked (the Phase II opening).
void BuildTeacherFreePeriods(const QSqlDatabase &db, const SchoolCalendar &calendar);
// The free-period type of a teacher with `noOfPeriods` (null: not a number, type 4).
int FreeTypeFor(const SchoolCalendar &calendar, const QVariant &noOfPeriods);

// Rebuilds ClasswiseNoOfWorkingDays with the school's number when its rows no longer match the classes
// (and, when `alsoAboveWeek`, when a value exceeds the school's week).
void SyncClasswiseWorkingDays(const QSqlDatabase &db, const SchoolCalendar &calendar, bool alsoAboveWeek = true);

// The empty settings tables, one text column a period named by the period's name.
void CreateTeacherDetails(const QSqlDatabase &db, const SchoolCalendar &calendar);
void CreateSubjectDetails(const QSqlDatabase &db, const SchoolCalendar &calendar);
// A Save of the Phase I screen with both settings grids empty: AGP1Master holds `answer`, the detail
// tables are dropped (the work list makes them again, empty).
void SaveWithoutDetails(const QSqlDatabase &db, const QString &answer);

// The check grid of a "YES" answer: how many uniform periods each teacher owes at each period.
struct ValidityCell
{
    int value = 0;
    enum class Colour { None, Clash, NoRoom } colour = Colour::None;
};
struct ValidityRow
{
    int teacher = 0;
    QString name;
    QList<ValidityCell> cells; // index 0 is period 1
};
struct ValidityGrid
{
    QList<ValidityRow> rows; // by teacher name
    bool cannotProceed = false;
};
ValidityGrid BuildValidityGrid(const QSqlDatabase &db, const SchoolSnapshot &snapshot, const AllotmentIndex &index);

// The class divisions whose uniform period cannot be held; empty when Process may go on.
QStringList UniformConditionFailures(const SchoolSnapshot &snapshot);
QString UniformConditionMessage(const QStringList &failures);

}
