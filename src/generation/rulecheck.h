#pragma once
#include "completionmodel.h"

#include <QStringList>

// Every break of the placement rules in a timetable, for the rows the rules bind (the generator's rows;
// hand-placed rows and the uniform periods are the user's and Phase I's own choice): a class or teacher in
// two places at once, a combined group split, a day the class does not work, a "No" setting of Phase I, a
// teacher left without the free period of the teacher's type, and an allotment crowded on one day.
QStringList CheckTimetableRules(const CompletionModel &model);
