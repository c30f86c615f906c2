#include "timetablescreens.h"
#include "frmblankperiods.h"
#include "frmmanualperiodsentry.h"
#include "screenregistry.h"

// The main window runs its allotment checks before it opens the manual screen, and opens the blank
// periods window instead when some class is over-allotted.
void registerTimetableScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmManualPeriodsEntry"),
                       [](AppContext &ctx) -> QWidget * { return new frmManualPeriodsEntry(ctx); });
    registry.addScreen(QStringLiteral("frmBlankPeriods"),
                       [](AppContext &ctx) -> QWidget * { return new frmBlankPeriods(ctx); });
}
