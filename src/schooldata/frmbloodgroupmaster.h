#pragma once
#include "referencemasterscreen.h"

// Keeps the blood groups a teacher's record chooses from.
class frmBloodGroupMaster : public ReferenceMasterScreen
{
    Q_OBJECT
public:
    explicit frmBloodGroupMaster(AppContext &ctx, QWidget *parent = nullptr)
        : ReferenceMasterScreen(ctx, ReferenceKind::bloodGroup(),
                                {QStringLiteral("frmBloodGroupMaster"), QStringLiteral("Blood Group Master"), 5,
                                 QStringLiteral("txtBloodGroupName"), QStringLiteral("Blood Group Name :"), 5,
                                 QStringLiteral("txtSearchBloodGroupName"), QStringLiteral("&Blood Group Name :"),
                                 QStringLiteral("Blood Group Name")},
                                parent)
    {
    }
};
