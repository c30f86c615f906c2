#pragma once
#include "manualentry.h"
#include "manualweek.h"

#include <QWidget>

class ManualPanel;
class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;
class WeekTable;
struct AppContext;

// Places periods by hand: the class division's week and its teacher's week side by side, a click in the
// teacher's week places the chosen subject, a click on a filled cell removes what stands there.
class frmManualPeriodsEntry : public QWidget
{
    Q_OBJECT
public:
    explicit frmManualPeriodsEntry(AppContext &ctx, QWidget *parent = nullptr);

private:
    void buildLayout();
    QWidget *buildSelection();
    QWidget *buildPanels();
    void connectControls();

    void loadClasses();
    void classChosen();
    void divisionChosen();
    void subjectChosen();
    void cancel();
    void exitScreen();

    void teacherCellClicked(int row, int column);
    void classCellClicked(int row, int column);

    // After any change, always in this order.
    void refresh();
    void rebuildGrids();
    void fillClassGrid();
    void fillTeacherGrid();
    void clearPanels();
    void hideAllPanels();

    void showCombinedSubject();
    void showCombinedClass();
    void showCombinedTeacher();
    void showTeachersFree();
    void showTeachersClassesFree();
    void showPeriodsToBeFilled();
    void fillPeriodsToBeFilled();
    void openTeachersTimeTable();

    ManualEntry entry();
    AppContext &m_ctx;
    SchoolCalendar m_calendar;
    WeekLayout m_layout;
    ManualSelection m_selection;
    QString m_subjectShortName;
    GroupNumbers m_groups;

    QComboBox *m_cboClass = nullptr;
    QComboBox *m_cboDivision = nullptr;
    QComboBox *m_cboSubject = nullptr;
    QLabel *m_lblTeacherName = nullptr;
    QLabel *m_lblAllotedPeriods = nullptr;
    QLabel *m_lblOccupiedPeriods = nullptr;
    WeekTable *m_msgClass = nullptr;
    WeekTable *m_msgTeacher = nullptr;

    ManualPanel *m_fraCombined = nullptr;
    QTableWidget *m_msgCombined = nullptr;
    ManualPanel *m_fraCombinedClass = nullptr;
    QTableWidget *m_msgCombinedClass = nullptr;
    ManualPanel *m_fraCombinedTeacher = nullptr;
    QTableWidget *m_msgCombinedTeacher = nullptr;
    ManualPanel *m_fraTeachersFree = nullptr;
    QLabel *m_lblTeachersFree = nullptr;
    ManualPanel *m_fraTeachersClassesFree = nullptr;
    QLabel *m_lblTeachersClassesFree = nullptr;
    ManualPanel *m_fraPeriodsToBeFilled = nullptr;
    QTableWidget *m_msgPeriodsToBeFilled = nullptr;

    QPushButton *m_cmdCS = nullptr;
    QPushButton *m_cmdCC = nullptr;
    QPushButton *m_cmdCT = nullptr;
    QPushButton *m_cmdTeachersFree = nullptr;
    QPushButton *m_cmdTeachersClassesFree = nullptr;
    QPushButton *m_cmdPeriodsToBeFilled = nullptr;
    QPushButton *m_cmdTeachersTimeTable = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
