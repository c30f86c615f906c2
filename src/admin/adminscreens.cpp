#include "adminscreens.h"
#include "frmhelp.h"
#include "frmutilusermaster.h"
#include "frmutiluserprivilegemaster.h"
#include "screenregistry.h"

void registerAdminScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmHelp"), [](AppContext &ctx) { return new frmHelp(ctx); });
    registry.addScreen(QStringLiteral("frmUtilUserMaster"), [](AppContext &ctx) { return new frmUtilUserMaster(ctx); });
    registry.addScreen(QStringLiteral("frmUtilUserPrivilegeMaster"),
                       [](AppContext &ctx) { return new frmUtilUserPrivilegeMaster(ctx); });
}
