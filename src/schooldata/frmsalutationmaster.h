#pragma once
#include "referencemasterscreen.h"

// Keeps the salutations (Mr., Mrs., ...) written before a teacher's name.
class frmSalutationMaster : public ReferenceMasterScreen
{
    Q_OBJECT
public:
    explicit frmSalutationMaster(AppContext &ctx, QWidget *parent = nullptr)
        : ReferenceMasterScreen(ctx, ReferenceKind::salutation(),
                                {QStringLiteral("frmSalutationMaster"), QStringLiteral("Salutation Master"), 9,
                                 QStringLiteral("txtSalutationName"), QStringLiteral("Salutation Name :"), 5,
                                 QStringLiteral("txtSearchSalutationName"), QStringLiteral("S&alutation Name :"),
                                 QStringLiteral("Salutation Name")},
                                parent)
    {
    }
};
