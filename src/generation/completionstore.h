#pragma once
#include "completion.h"

#include <QSqlDatabase>
#include <QStringList>

// The two stages a completion can finish: the Phase I balance (AutoGenPhase1) or the Phase II balance.
enum class CompletionStage { PhaseOne, PhaseTwo };

struct CompletionReport
{
    CompletionStage stage = CompletionStage::PhaseOne;
    Completion::Outcome outcome;
    int breaksBefore = 0; // rule breaks in the timetable before and after
    int breaksAfter = 0;
    QStringList reasons;  // why the periods still open cannot be placed, where a count proves it
};

// The stage a completion finishes now: Phase II once it has placed rows, else Phase I.
CompletionStage CurrentCompletionStage(const QSqlDatabase &db);

// Completes the stage's balance, moving generator rows as needed, and writes the result in one transaction:
// moved rows keep their place in the table and their Manual value, new rows take "1" (Phase I) or "2"
// (Phase II), and both balances are rebuilt.
CompletionReport CompleteTimetable(const QSqlDatabase &db, CompletionStage stage, const Completion::Settings &settings);

// The rule breaks of the timetable as it stands in the store.
QStringList CheckStoredTimetable(const QSqlDatabase &db);

// The model of the store's timetable, with the stage's open periods as open meetings.
struct LoadedTimetable
{
    SchoolSnapshot snapshot;
    QList<qint64> rowids;
};
void LoadTimetable(const QSqlDatabase &db, LoadedTimetable *loaded);
void AddOpenMeetings(CompletionModel &model, CompletionStage stage);
