#pragma once
#include <QCommandLineParser>
#include <QSqlDatabase>
#include <QTextStream>

// ttcli report: any report of the program written to a file without a window, through the same code as
// its screen. `report --list` names them.
int runReport(const QSqlDatabase &db, const QCommandLineParser &parser, QTextStream &out, QTextStream &err);
// The report names and titles, for `report --list` (needs no store).
void listReports(QTextStream &out);
