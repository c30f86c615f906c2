#pragma once
#include "combinedteachergroups.h"
#include "combinedmainrowform.h"

class QComboBox;
class QGroupBox;
class QPushButton;
class QTableWidget;

// Puts further teachers, each with a subject, before the main row's class division at the same time: a
// Combined Teacher group. The teachers are listed here; Save generates their rows.
class frmCombinedTeacherEntry : public CombinedMainRowForm
{
    Q_OBJECT
public:
    explicit frmCombinedTeacherEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void clearEntry() override;
    void showGroup(const Combined::Key &key, int groupNo) override;
    bool saveEntry() override;
    void clearList() override;
    CombinedSearchForm *createSearchForm() override;
    bool listedPlaced() const override;

private:
    Combined::TeacherDraft draft() const;
    void teacherAddChosen();
    void add();
    void listedClicked(int row);
    void showList();

    CombinedTeacherGroups m_service;
    QList<Combined::TeacherSubjectRow> m_listed;

    QGroupBox *m_fraAdd = nullptr;
    QComboBox *m_cboTeacherAdd = nullptr;
    QComboBox *m_cboSubjectAdd = nullptr;
    QPushButton *m_cmdAdd = nullptr;
    QTableWidget *m_msgDetails = nullptr;
};
