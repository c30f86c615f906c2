#pragma once
#include "combinedentryform.h"
#include "combinedsubjectgroups.h"

class QComboBox;
class QGroupBox;
class QTableWidget;

// Forms, changes and dissolves Combined Subject groups: allotments of a class division gather in the
// candidate grid, and a click moves one into the group grid once it keeps the group's invariants.
class frmCombinedSubjectEntry : public CombinedEntryForm
{
    Q_OBJECT
public:
    explicit frmCombinedSubjectEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void clearEntry() override;
    void showGroup(const Combined::Key &key, int groupNo) override;
    bool saveEntry() override;
    QWidget *firstField() const override;
    CombinedSearchForm *createSearchForm() override;

private:
    void classChosen();
    void divisionChosen();
    void candidateClicked(int row);
    void memberClicked(int row);
    void showGrids();

    CombinedSubjectGroups m_service;
    QList<Combined::SubjectRow> m_candidates;
    QList<Combined::SubjectRow> m_members;

    QGroupBox *m_fraDisplay = nullptr;
    QGroupBox *m_fraMain = nullptr;
    QComboBox *m_cboClass = nullptr;
    QComboBox *m_cboDivision = nullptr;
    QTableWidget *m_msgDisplay = nullptr;
    QTableWidget *m_msgCombinedSubjects = nullptr;
};
