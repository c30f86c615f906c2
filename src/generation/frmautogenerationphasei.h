#pragma once
#include "phaseonechecks.h"
#include "phaseonesettings.h"

#include <QPointer>
#include <QWidget>

class QComboBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;
class RunProgress;
class SettingsGrid;
struct AppContext;

// Auto Generation - Phase I: whether class teachers get a uniform period, the periods chosen teachers and
// subjects are kept free of, the check grid of the uniform periods, and the run that places the uniform
// periods, the set teachers' and subjects' allotments and every combined group.
class frmAutoGenerationPhaseI : public QWidget
{
    Q_OBJECT
public:
    explicit frmAutoGenerationPhaseI(AppContext &ctx, QWidget *parent = nullptr);

private:
    enum class Mode { Idle, New, Edit };

    void buildLayout();
    QWidget *buildSettings();
    QWidget *buildValidity();
    QWidget *buildRun();
    void connectControls();
    void fillLists();

    // The refresh each time the screen comes forward.
    void comeForward();
    void loadData();
    void setFramesOpen(bool uniform, bool settings);

    void newEntry();
    void editEntry();
    void save();
    void cancel();
    void deleteEntry();
    void process();
    void exitScreen();

    void uniformAnswered();
    void buildValidityGrid();
    void showValidity(bool show);
    void nameChosen(SettingsGrid *settings);
    void periodClicked(SettingsGrid *settings, int row, int period);
    void removeSubjectChecks(const QString &subject);
    void fillSubjectChecks();

    void pendingPeriods();
    void fillWorkList();
    void totalAchieved();

    AppContext &m_ctx;
    Mode m_mode = Mode::Idle;
    bool m_cannotProceed = false;
    QString m_answer; // the uniform answer the grids were last made for
    PhaseOneChecks::ValidityGrid m_validity;
    bool m_validityBuilt = false;
    QList<PhaseOneSettings::SubjectTeacherRow> m_subjectChecks;
    QPointer<QWidget> m_pendingWindow; // the pending-window mark

    QGroupBox *m_frame1 = nullptr;
    QGroupBox *m_frame2 = nullptr;
    QGroupBox *m_frame3 = nullptr;
    QWidget *m_frame4 = nullptr;
    QComboBox *m_cboUniformPeriod = nullptr;
    QComboBox *m_cboTeacher = nullptr;
    QComboBox *m_cboSubject = nullptr;
    QTableWidget *m_msgTeacherDetails = nullptr;
    QTableWidget *m_msgSubjectDetails = nullptr;
    QTableWidget *m_msgSubjectTeacherCheck = nullptr;
    QTableWidget *m_msgAutoGen1Details = nullptr;
    SettingsGrid *m_teachers = nullptr;
    SettingsGrid *m_subjects = nullptr;

    QGroupBox *m_fraValidity = nullptr;
    QTableWidget *m_msgValidity = nullptr;
    QLabel *m_lblExit = nullptr;

    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdDelete = nullptr;
    QPushButton *m_cmdProcess = nullptr;
    QPushButton *m_cmdExit = nullptr;
    QPushButton *m_cmdShow = nullptr;
    QPushButton *m_cmdClose = nullptr;
    QPushButton *m_cmdFixBalancePeriods = nullptr;
    QPushButton *m_cmdPendingPeriods = nullptr;
    QPushButton *m_cmdTimeTablePercentage = nullptr;
    QPushButton *m_cmdClasswiseWorkingDays = nullptr;
    QPushButton *m_cmdCancelRun = nullptr;
    QPushButton *m_cmdCompletePeriods = nullptr;
    QPushButton *m_cmdCheckBeforeGeneration = nullptr;
    QProgressBar *m_prgDisplay = nullptr;
    QLabel *m_lblProgress = nullptr;
    QLabel *m_lblAchieved = nullptr;
    RunProgress *m_run = nullptr;
};
