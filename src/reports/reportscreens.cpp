#include "reportscreens.h"
#include "frmrptteachertt.h"
#include "screenregistry.h"

void registerReportScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmrptTeacherTT"),
                       [](AppContext &ctx) -> QWidget * { return new frmrptTeacherTT(ctx); });
}
