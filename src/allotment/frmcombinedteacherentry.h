#pragma once
#include "combinedlistedform.h"
#include "combinedteachergroups.h"

// Puts further teachers, each with a subject, before the main row's class division at the same time: a
// Combined Teacher group. The teachers are listed here; Save generates their rows.
class frmCombinedTeacherEntry : public CombinedListedForm<CombinedTeacherGroups>
{
    Q_OBJECT
public:
    explicit frmCombinedTeacherEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void clearEntry() override;
    CombinedSearchForm *createSearchForm() override;
    QStringList cellsOf(const Row &row) const override;
    void add() override;

private:
    void teacherAddChosen();

    QComboBox *m_cboTeacherAdd = nullptr;
    QComboBox *m_cboSubjectAdd = nullptr;
};
