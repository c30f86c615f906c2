#pragma once
#include "referencemasterscreen.h"

// Keeps the states that cities belong to.
class frmStateMaster : public ReferenceMasterScreen
{
    Q_OBJECT
public:
    explicit frmStateMaster(AppContext &ctx, QWidget *parent = nullptr)
        : ReferenceMasterScreen(ctx, ReferenceKind::state(),
                                {QStringLiteral("frmStateMaster"), QStringLiteral("State Master"), 3,
                                 QStringLiteral("txtStateName"), QStringLiteral("State Name :"), 30,
                                 QStringLiteral("txtSearchStateName"), QStringLiteral("S&tate Name :"),
                                 QStringLiteral("State Name")},
                                parent)
    {
    }
};
