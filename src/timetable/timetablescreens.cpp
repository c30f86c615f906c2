#include "timetablescreens.h"
#include "screenregistry.h"

void registerTimetableScreens(ScreenRegistry &registry)
{
    Q_UNUSED(registry)
}
