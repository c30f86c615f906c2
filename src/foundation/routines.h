#pragma once
#include "schoolcalendar.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

// The shared routines of the program that need no window: code allocation, the allotment tallies, the
// reference check and the school's heading for reports.

// Largest key + 1, or 1 for an empty table (the code-0 row counts as empty).
int NextCode(const QSqlDatabase &db, const QString &table, const QString &keyColumn);
// Takes the next group number of a kind of combined entry ("CP", "CC", "CT") and advances it, so numbers
// never come back even when groups are deleted. 0 when the kind has no row (nothing is written then).
int NextGroupNo(const QSqlDatabase &db, const QString &id);

// The periods allotted to each class division, in class and division order, counting real work only: rows
// the system added for a combined teacher group are not periods of the class. Rows whose masters do not all
// exist are left out.
struct AllottedTotal
{
    QString className;
    QString divisionName;
    int periods = 0;
};
QList<AllottedTotal> AllottedTotals(const QSqlDatabase &db);

// Some class division has more allotted periods than the week has.
bool ClassesOverAllotted(const QSqlDatabase &db, const SchoolCalendar &calendar);
// Some class division with allotments has fewer allotted periods than the week has.
bool ClassesUnderAllotted(const QSqlDatabase &db, const SchoolCalendar &calendar);

// Is `code` of `parentTable.codeColumn` used by another table? The user's table name goes to *userTable.
bool IsCodeReferenced(const QSqlDatabase &db, const QString &parentTable, const QString &codeColumn,
                      const QVariant &code, QString *userTable = nullptr);

// The three heading lines of every report.
struct SchoolHeading
{
    QString schoolName; // line 1
    QString address;    // line 2: Address1, Address2
    QString place;      // line 3: City, State-Pincode
};
SchoolHeading LoadSchoolHeading(const QSqlDatabase &db);
