#include "allotmentscreens.h"
#include "screenregistry.h"

void registerAllotmentScreens(ScreenRegistry &registry)
{
    Q_UNUSED(registry)
}
