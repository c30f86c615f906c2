#pragma once
#include "reportgrid.h"
#include "routines.h"

#include <QString>
#include <QStringList>

// Where a report went: the file written, or why nothing usable was written.
struct ReportFile
{
    QString path;
    QString error;
    bool ok() const { return error.isEmpty(); }
};

// The text file of a week grid report: the school's heading, the title, one name line, then two lines for
// each grid row (the cell's first and second field) and a separator of dashes under each. The user prints
// it from the text editor.
namespace GridTextFile {

// Width of the separator for a grid of `periodColumns` period columns. It is one dash shorter than a
// table line; the layout has always been so and printed copies in schools look like this.
int separatorWidth(int periodColumns);

// The lines of a week report whose period columns are 1 to `lastColumn` of `grid`. A period heading
// longer than a column fails the whole report: nothing is returned and *error tells which heading.
QStringList weekLines(const SchoolHeading &heading, const QString &title, const QString &nameLine,
                      const ReportGrid &grid, int lastColumn, QString *error);

// Writes `lines` to "<folder>/<baseName>.txt", replacing an earlier file of that name.
ReportFile write(const QString &folder, const QString &baseName, const QStringList &lines);
// Writes `lines` to `path`, replacing an earlier file.
ReportFile writeTo(const QString &path, const QStringList &lines);

}
