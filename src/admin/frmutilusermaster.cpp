#include "frmutilusermaster.h"
#include "session.h"
#include "storeerror.h"
#include "usermaster.h"
#include "userprivileges.h"

frmUtilUserMaster::frmUtilUserMaster(AppContext &ctx, QWidget *parent)
    : ReferenceMasterScreen(ctx, userKind(),
                            {QStringLiteral("frmUtilUserMaster"), QStringLiteral("User Master"), 45,
                             QStringLiteral("txtName"), QStringLiteral("User Name :"), 30,
                             QStringLiteral("txtSearchUserName"), QStringLiteral("S&earch User Name :"),
                             QStringLiteral("User Name"), QStringLiteral("userid")},
                            parent)
{
}

void frmUtilUserMaster::removeRecord(int code)
{
    const QString refusal = UserPrivilegeService(m_ctx.db()).checkUserRemovable(code);
    if (!refusal.isEmpty())
        throw StoreError(refusal);
    ReferenceMasterScreen::removeRecord(code);
}
