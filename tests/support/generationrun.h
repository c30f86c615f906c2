#pragma once
#include "completionstore.h"

#include <QSqlDatabase>

// A store's school generated and completed as `ttcli generate --complete` does it: Phase I with default
// settings and no uniform period, its balance completed, Phase II, its balance completed. Each completion is
// bounded by a count of search steps, never by the clock, so a run gives the same week on any machine.
struct GeneratedWeek
{
    int allotted = 0; // periods the allotment rows ask for, every row of a combined group counted
    int placed = 0;   // TimeTable rows at the end
    CompletionReport phaseOne;
    CompletionReport phaseTwo;
    double placedShare() const { return allotted > 0 ? 100.0 * placed / allotted : 0; }
};

GeneratedWeek GenerateAndComplete(const QSqlDatabase &db, qint64 completionSteps);
