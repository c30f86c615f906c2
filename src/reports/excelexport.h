#pragma once
#include "gridtextfile.h"
#include "reportgrid.h"
#include "routines.h"
#include "schoolcalendar.h"

#include <QString>

struct AppContext;

// The one message of every Export button when the sheet cannot be made or shown, whatever went wrong.
inline QString exportFailedText()
{
    return QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed To Be Installed In Your System");
}

// Writes rows 0 to `lastRow` and columns 0 to `lastCol` of `grid` as a sheet in the program's temp folder,
// under the school's heading, `title` and `subtitle`: every cell text format, bordered grid block, columns
// fitted to their texts. `dayBands` is for the all-classes and all-teachers grids, whose two heading rows
// have each day spanning its periods: the day names are merged over their periods.
// On failure the path is empty and the error is exportFailedText(); the cause goes to the warning log.
// The same sheet written to `path`, for a run without a window.
ReportFile writeGridSheet(const QString &path, const SchoolHeading &heading, const SchoolCalendar &calendar,
                          const ReportGrid &grid, int lastRow, int lastCol, const QString &title,
                          const QString &subtitle, bool dayBands);
ReportFile ExportGridToExcel(const AppContext &ctx, const ReportGrid &grid, int lastRow, int lastCol,
                             const QString &title, const QString &subtitle, bool dayBands);
