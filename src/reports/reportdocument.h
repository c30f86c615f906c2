#pragma once
#include "routines.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <Qt>

// A printed report as plain data: what the screens hand the renderer. No SQL and no widgets here.
struct ReportColumn
{
    QString caption;
    int width = 10; // in characters of the body font; the renderer turns it into page width
    Qt::Alignment alignment = Qt::AlignLeft;
};

// Rows under one heading, closed by a footer line (a total, a count); an ungrouped report is one group
// with neither.
struct ReportGroup
{
    QString heading;
    QList<QStringList> rows;
    QString footer;
};

// A run of columns of a wide grid (a day of the week): the renderer keeps a band whole on a page, so that
// a grid too wide for the paper is split by bands across pages instead of shrunk.
struct ReportBand
{
    QString caption;
    int columns = 0;
};

struct ReportDocument
{
    QString title;
    SchoolHeading school;
    QStringList subtitles;
    QList<ReportColumn> columns;
    QList<ReportGroup> groups;
    bool rowNumbers = false;  // a "Sr. No." column numbering the rows of each group from 1
    int fixedColumns = 0;     // with bands: the leading columns repeated beside every band
    QList<ReportBand> bands;  // with bands: they follow the fixed columns and account for every other column
    QDate printedOn = QDate::currentDate();

    int rowCount() const;
};
