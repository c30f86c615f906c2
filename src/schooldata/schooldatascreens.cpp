#include "schooldatascreens.h"
#include "screenregistry.h"

void registerSchoolDataScreens(ScreenRegistry &registry)
{
    Q_UNUSED(registry)
}
