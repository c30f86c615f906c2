#pragma once
#include <QSqlDatabase>
#include <QStringList>

// A judge of a stored week written for the tests from the rules themselves, sharing no code with the
// program's own rule check: it reads TimeTable, the allotments, the calendar and the free-period types with
// SQL and says each break it finds, one line a break.
//
// - Clashes, split combined groups, rows outside the week or on a day the class does not work (the
//   statements of timetablechecks.h), for every row.
// - The spreading, for each allotment and day holding generator rows (Manual "1" or "2"): with N periods a
//   week over the class's D working days (one less when the short last day is one of them), two periods on a
//   day need N >= D and one in each session; three or more need N >= 2D.
// - The free period, for each teacher and day holding generator rows: free-period type 1 leaves a free
//   period in the day, type 2 in each session the teacher teaches in, type 3 asks none, any other type
//   allows no generator row.
namespace WeekAudit {

QStringList Breaks(const QSqlDatabase &db);

}
