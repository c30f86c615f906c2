#pragma once
#include "combinedgroups.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;
struct AppContext;

// The search form of a group screen: finds groups by class, subject, teacher or number, and hands the
// group of a clicked row over to its entry screen. Opens as a window of its own beside the entry screen.
class CombinedSearchForm : public QWidget
{
    Q_OBJECT
signals:
    // The user chose to edit or delete the group of this row.
    void groupChosen(const Combined::Key &key, int groupNo);

protected:
    CombinedSearchForm(AppContext &ctx, Combined::Kind kind, QWidget *parent);

private:
    void search();
    void rowClicked(int row);
    void clearFilters();
    void exitForm();
    Combined::SearchFilter filter() const;

    AppContext &m_ctx;
    const Combined::Kind m_kind;
    const CombinedGroups m_groups;
    bool m_searching = false; // a search is running: a second press waits for it
    QList<Combined::SearchRow> m_rows;

    QComboBox *m_cboClass = nullptr;
    QComboBox *m_cboSubject = nullptr;
    QComboBox *m_cboTeacher = nullptr;
    QLineEdit *m_txtCombinedId = nullptr; // txtCombinedSubjectId, txtCombinedClassId or txtCombinedTeacherId
    QTableWidget *m_msgDetails = nullptr;
    QPushButton *m_cmdSearch = nullptr;
    QPushButton *m_cmdClear = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
