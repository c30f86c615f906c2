#pragma once
#include "codename.h"
#include "reportgrid.h"
#include "schoolcalendar.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

// The Teacher Time Table report without its window: the list of teachers, the week grid of one teacher,
// and the texts of its file and sheet.
namespace TeacherTimeTable {

inline QString title() { return QStringLiteral("TEACHER TIME TABLE"); }
inline QString subtitle(const QString &teacherName)
{
    return QStringLiteral("Teacher Name : ") + teacherName.trimmed();
}

// A blank entry with code 0, then the teachers with a code above 0, by name.
QList<CodeName> teachers(const QSqlDatabase &db);

// The empty week: row 0 the headings ("Day", the period names, "DayCode"), then one row per working day
// with its name; column 1 + PeriodsPerDay keeps the row's DayCode and is not shown. A day without a
// DayMaster row keeps a blank name.
ReportGrid frame(const QSqlDatabase &db, const SchoolCalendar &calendar);
// Index of the hidden DayCode column of a frame.
inline int dayCodeColumn(const ReportGrid &grid) { return grid.columnCount() - 1; }

// Puts the teacher's periods of the whole week into `grid` (a frame) and returns how many were placed.
// Where a slot has several rows (a Combined Class group), the main row is read last and its text stays.
int fill(const QSqlDatabase &db, int teacherCode, ReportGrid &grid);

// Class and division joined and centred in 8, then the subject's short name centred in 3.
QString cellText(const QString &className, const QString &divisionName, const QString &subjectShortName);

}
