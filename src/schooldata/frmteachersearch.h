#pragma once
#include "teachersearch.h"
#include "teacherservice.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QModelIndex;
class QPushButton;
class QTableWidget;
struct AppContext;

// Teacher Search: finds teachers by name, periods, state and city for the teacher master, which shows
// the teacher chosen here.
class frmTeacherSearch : public QWidget
{
    Q_OBJECT
public:
    explicit frmTeacherSearch(AppContext &ctx, QWidget *parent = nullptr);

signals:
    // The user chose this teacher to edit or delete; the search has closed.
    void teacherChosen(int code);

private:
    void buildLayout();
    void loadStates();
    void loadCities();
    void search();
    void choose(const QModelIndex &index);
    void cancel();
    void exitScreen();

    AppContext &m_ctx;
    TeacherService m_lists;
    TeacherSearch m_search;

    QLineEdit *m_txtTeacherName = nullptr;
    QLineEdit *m_txtPeriods = nullptr;
    QComboBox *m_dbcStateName = nullptr;
    QComboBox *m_dbcCityName = nullptr;
    QPushButton *m_cmdSearch = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
    QTableWidget *m_dgdDetails = nullptr;
};
