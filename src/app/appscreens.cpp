#include "appscreens.h"
#include "adminscreens.h"
#include "allotmentscreens.h"
#include "generationscreens.h"
#include "reportscreens.h"
#include "schooldatascreens.h"
#include "screenregistry.h"
#include "timetablescreens.h"

void registerAllScreens(ScreenRegistry &registry)
{
    registerSchoolDataScreens(registry);
    registerAllotmentScreens(registry);
    registerTimetableScreens(registry);
    registerGenerationScreens(registry);
    registerReportScreens(registry);
    registerAdminScreens(registry);
}
