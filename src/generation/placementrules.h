#pragma once
#include "schoolcalendar.h"

// The placement rules that the generators and the completion share, stated once.
namespace PlacementRules {

// A teacher's free-period type (FreePeriodDetails.FreeType) decides where a placement must leave a free
// period: type 1 somewhere that day, type 2 in the session of the period, type 3 nowhere; any other type
// refuses every placement. `freeBefore` counts the teacher's free periods of the counted range before the
// placement, the period being placed among them.
bool FreeTypeAllows(int freeType, int freeBefore);
// The periods counted for the type: the session of `period` for type 2 (the morning is periods 1 to
// PeriodsInMorningSession on every day), else the whole day of `periodsOfDay` periods.
struct Range
{
    int from = 1;
    int to = 0;
};
Range FreeTypeRange(const SchoolCalendar &calendar, int freeType, int period, int periodsOfDay);

// How an allotment spreads over the week: `daily` when it has a period for every working day, `twice` when
// it has two for (nearly) every day; the short last day counts one less.
struct Spread
{
    bool daily = false;
    bool twice = false;
};
Spread SpreadOf(int periods, int days, bool shortLastDay);
// May the allotment hold `count` periods on one day, `first` and `second` two of them? One always; two need
// `daily` or `twice` and stand in different sessions; three or more need both.
bool DayHoldingAllowed(const SchoolCalendar &calendar, const Spread &spread, int count, int first, int second);
// May the allotment take `period` on a day where it already holds `heldOnDay` periods (`heldPeriod` the
// period of the one when it holds exactly one)? The day's holding with it must be allowed.
bool AnotherPeriodAllowed(const SchoolCalendar &calendar, const Spread &spread, int heldOnDay, int heldPeriod, int period);

}
