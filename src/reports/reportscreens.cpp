#include "reportscreens.h"
#include "screenregistry.h"

void registerReportScreens(ScreenRegistry &registry)
{
    Q_UNUSED(registry)
}
