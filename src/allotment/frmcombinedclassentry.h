#pragma once
#include "combinedclassgroups.h"
#include "combinedlistedform.h"

// Seats further class divisions before the main row's teacher for its subject: a Combined Class group.
// The class divisions are listed here; Save generates their rows.
class frmCombinedClassEntry : public CombinedListedForm<CombinedClassGroups>
{
    Q_OBJECT
public:
    explicit frmCombinedClassEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void clearEntry() override;
    CombinedSearchForm *createSearchForm() override;
    QStringList cellsOf(const Row &row) const override;
    void add() override;

private:
    void classAddChosen();
    void divisionAddChosen();

    QComboBox *m_cboClassAdd = nullptr;
    QComboBox *m_cboDivisionAdd = nullptr;
};
