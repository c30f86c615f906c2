#pragma once
#include "completionstore.h"

class RunProgress;
struct AppContext;

// The completion as the generation screens and the pending window offer it: the checks before it, the
// question, the run with progress and Cancel, and the summary of what it did and what stays open and why.
namespace CompletionRun {

// True when the run changed the timetable.
bool Run(AppContext &ctx, RunProgress &progress, CompletionStage stage);
// The counts that show, before any generation, that the week cannot be completed.
void ShowImpossibilities(AppContext &ctx);

}
