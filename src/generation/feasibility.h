#pragma once
#include "completionmodel.h"

#include <QStringList>

// Counts that prove a timetable cannot be completed: more periods than a class division has on its working
// days, more than a teacher has once the "No" settings and the free-period type are kept, a combined group
// whose members share too few periods they could all take, an allotment with too few periods it may take.
// Each text is true whatever the search does; where no count proves it, nothing is said.
namespace Feasibility {

// The proofs that concern one allotment; `phaseOne` when its periods would be Phase I rows, which keep the
// "No" settings.
QStringList ReasonsFor(const CompletionModel &model, int lesson, bool phaseOne);
// The proofs for the allotments that still have periods open, each said once.
QStringList OpenPeriodReasons(const CompletionModel &model, bool phaseOne);
// The proofs for every allotment of the school, each said once: the check before any generation runs.
QStringList Impossibilities(const CompletionModel &model);

}
