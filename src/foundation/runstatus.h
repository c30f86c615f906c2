#pragma once
#include <QSqlDatabase>

// The running mark in ExamBoardMaster: remade as (1, 1, 'A') when the main window loads, kept at 'A' by the
// heartbeat every second, set to 'I' by an orderly close. Nothing reads it back in this program.
namespace RunStatus {
void reset(const QSqlDatabase &db);
// One heartbeat; false when a screen's transaction is open, which the tick then leaves alone.
bool heartbeat(const QSqlDatabase &db);
void markStopped(const QSqlDatabase &db);
// Creates ClasswiseNoOfWorkingDays when an older file lacks it; an existing table is left as it is.
void ensureClasswiseWorkingDays(const QSqlDatabase &db);
}
