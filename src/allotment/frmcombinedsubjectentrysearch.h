#pragma once
#include "combinedsearchform.h"

// Finds Combined Subject groups for frmCombinedSubjectEntry.
class frmCombinedSubjectEntrySearch : public CombinedSearchForm
{
    Q_OBJECT
public:
    explicit frmCombinedSubjectEntrySearch(AppContext &ctx, QWidget *parent = nullptr)
        : CombinedSearchForm(ctx, Combined::Kind::Subject, parent)
    {
    }
};
