#include "placementrules.h"

namespace PlacementRules {

bool FreeTypeAllows(int freeType, int freeBefore)
{
    switch (freeType) {
    case 1:
    case 2:
        return freeBefore > 1;
    case 3:
        return freeBefore >= 1;
    default:
        return false;
    }
}

Range FreeTypeRange(const SchoolCalendar &calendar, int freeType, int period, int periodsOfDay)
{
    if (freeType != 2)
        return {1, periodsOfDay};
    if (period <= calendar.periodsInMorningSession)
        return {1, calendar.periodsInMorningSession};
    return {calendar.periodsInMorningSession + 1, periodsOfDay};
}

Spread SpreadOf(int periods, int days, bool shortLastDay)
{
    Spread spread;
    if (days < 1 || periods < days)
        return spread;
    spread.daily = true;
    spread.twice = shortLastDay ? periods >= 2 * days - 1 : periods >= 2 * days;
    return spread;
}

bool DayHoldingAllowed(const SchoolCalendar &calendar, const Spread &spread, int count, int first, int second)
{
    if (count <= 1)
        return true;
    if (count == 2)
        return (spread.daily || spread.twice) && calendar.isMorning(first) != calendar.isMorning(second);
    return spread.daily && spread.twice;
}

bool AnotherPeriodAllowed(const SchoolCalendar &calendar, const Spread &spread, int heldOnDay, int heldPeriod, int period)
{
    return DayHoldingAllowed(calendar, spread, heldOnDay + 1, heldPeriod, period);
}

}
