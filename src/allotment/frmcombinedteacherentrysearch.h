#pragma once
#include "combinedsearchform.h"

// Finds Combined Teacher groups for frmCombinedTeacherEntry.
class frmCombinedTeacherEntrySearch : public CombinedSearchForm
{
    Q_OBJECT
public:
    explicit frmCombinedTeacherEntrySearch(AppContext &ctx, QWidget *parent = nullptr)
        : CombinedSearchForm(ctx, Combined::Kind::Teacher, parent)
    {
    }
};
