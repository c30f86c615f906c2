#pragma once
#include "combinedclassgroups.h"
#include "combinedmainrowform.h"

class QComboBox;
class QGroupBox;
class QPushButton;
class QTableWidget;

// Seats further class divisions before the main row's teacher for its subject: a Combined Class group.
// The class divisions are listed here; Save generates their rows.
class frmCombinedClassEntry : public CombinedMainRowForm
{
    Q_OBJECT
public:
    explicit frmCombinedClassEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void clearEntry() override;
    void showGroup(const Combined::Key &key, int groupNo) override;
    bool saveEntry() override;
    void clearList() override;
    CombinedSearchForm *createSearchForm() override;
    bool listedPlaced() const override;

private:
    Combined::ClassDraft draft() const;
    void classAddChosen();
    void divisionAddChosen();
    void add();
    void listedClicked(int row);
    void showList();

    CombinedClassGroups m_service;
    QList<Combined::ClassDivisionRow> m_listed;

    QGroupBox *m_fraAdd = nullptr;
    QComboBox *m_cboClassAdd = nullptr;
    QComboBox *m_cboDivisionAdd = nullptr;
    QPushButton *m_cmdAdd = nullptr;
    QTableWidget *m_msgDetails = nullptr;
};
