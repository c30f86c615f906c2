#pragma once
#include "reportdocument.h"
#include "reportgrid.h"

#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <functional>

// What a report is asked for: the selections of its screen. Codes are 0 when not chosen.
struct ReportSelection
{
    int classCode = 0;
    int divisionCode = 0;
    int teacherCode = 0;
    int dayCode = 0;
    int periodCode = 0;
    int subjectCode = 0;
    QDate from;
    QDate to;
    QString order;           // a sort or grouping choice by the words of its option ("TeacherName", "Classwise", ...)
    bool dayWise = false;    // the day-wise form of a grid's text file, else the full week
    bool withoutSeparator = false;
};

// A report made without a window, in the forms it goes out in. A report has the forms its screen has: a
// text file (lines), a sheet (a grid with its title, subtitle and day bands) and a printed report.
struct ReportProduct
{
    QString refusal; // the screen's own message when the selection is not enough; nothing else is set then

    QStringList textLines;
    bool hasText = false;

    ReportGrid grid;
    int lastRow = -1;
    int lastColumn = -1;
    QString sheetTitle;
    QString sheetSubtitle;
    bool dayBands = false;
    bool hasSheet = false;

    ReportDocument printed;
    bool hasPrinted = false;
};

// One report of the program, as `ttcli report` and the screens reach it.
struct ReportEntry
{
    QString name;          // the command-line name: lower case, words joined by '-' ("all-classes")
    QString title;         // the title of its screen
    QStringList selections; // the ReportSelection fields it reads, by their option names ("class", "teacher", ...)
    std::function<ReportProduct(const QSqlDatabase &db, const ReportSelection &selection)> make;
};

namespace ReportCatalogue {

// Every report, in the order of the Reports menu.
const QList<ReportEntry> &all();
// The report of that name; nullptr when there is none.
const ReportEntry *find(const QString &name);

}
