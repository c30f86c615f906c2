#pragma once
#include "allotmentgrid.h"

#include <QWidget>


class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
struct AppContext;

// Work Allotment Entry: one teacher's list of class divisions, subjects and periods, edited in a grid with
// list editors over its cells, and saved or deleted whole. Rows that the timetable, the class teacher entry
// or a combined group depend on are shown but kept as stored.
class frmWorkAllotmentEntry : public QWidget
{
    Q_OBJECT
public:
    explicit frmWorkAllotmentEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Mode {
        Idle,
        New,     // New pressed: a teacher without rows is being entered
        Showing, // New found a teacher with rows: they are shown until Edit or Delete
        Edit,
    };

    void buildControls();
    void buildLayout();
    void connectControls();
    void setMode(Mode mode);
    bool editing() const { return m_mode == Mode::New || m_mode == Mode::Edit; }

    void reloadLists();
    int teacherCode() const;
    void teacherChosen();
    void focusAfterLoad();
    void clearLabels();
    void loadTeacher(int teacher);
    bool refreshAllottedPeriods(bool warn = true);

    void cellClicked(int row, int column);
    void openCell(int row, int column);
    void closeCell();
    void confirmClass();
    // `column` is DivisionName or SubjectName.
    void confirmUnique(int column);
    bool confirmPeriods(bool moveOn);
    void openNextRow(int row);
    bool commitPendingPeriods();

    void deleteRow();
    void removeRow(int row, bool fromClassCell);

    void newEntry();
    void editEntry();
    void save();
    void deleteEntry();
    void cancel();
    void exitScreen();
    void openMaster(const QString &formName);

    AppContext &m_ctx;
    WorkAllotment m_allotment;
    Mode m_mode = Mode::Idle;
    bool m_listsStale = false;
    int m_openRow = -1;
    int m_openColumn = -1;

    QGroupBox *m_fraMain = nullptr;
    AllotmentGrid::CellCombo *m_cboTeacher = nullptr;
    QLabel *m_lblTeacherShortName = nullptr;
    QLabel *m_lblNoOfPeriods = nullptr;
    QLabel *m_lblAllotedPeriods = nullptr;
    QPushButton *m_cmdAddTeacherName = nullptr;
    QPushButton *m_cmdAddClassName = nullptr;
    QPushButton *m_cmdAddSubjectName = nullptr;
    AllotmentGrid *m_msgDetails = nullptr;
    QTableWidget *m_msgDisplay = nullptr;
    AllotmentGrid::CellCombo *m_cboClass = nullptr;
    AllotmentGrid::CellCombo *m_cboDivision = nullptr;
    AllotmentGrid::CellCombo *m_cboSubject = nullptr;
    QLineEdit *m_txtPeriods = nullptr;
    QGroupBox *m_Frame3 = nullptr;
    QLineEdit *m_txtDeleteSlNo = nullptr;
    QPushButton *m_cmdDeleteRow = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdDelete = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
