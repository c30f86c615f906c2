#pragma once
#include "combinedsearchform.h"

// Finds Combined Class groups for frmCombinedClassEntry.
class frmCombinedClassEntrySearch : public CombinedSearchForm
{
    Q_OBJECT
public:
    explicit frmCombinedClassEntrySearch(AppContext &ctx, QWidget *parent = nullptr)
        : CombinedSearchForm(ctx, Combined::Kind::Class, parent)
    {
    }
};
