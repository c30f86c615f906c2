#pragma once
#include "schoolsetupservice.h"

#include <QWidget>
#include <optional>

class PeriodDetailsPanel;
class QLineEdit;
class QPushButton;
class SchoolSetupFrame;
struct AppContext;

// School Setup: the school's name and address and its week (working days, periods, the last day, the
// morning session, the first day). It runs alone, and nothing else can be used until it has been saved once.
class frmSchoolSetup : public QWidget
{
    Q_OBJECT
public:
    explicit frmSchoolSetup(AppContext &ctx, QWidget *parent = nullptr);
    ~frmSchoolSetup() override;

signals:
    // The office chose to quit the program rather than set the school up.
    void programEndRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildLayout();
    void connectChecks();
    void refreshLists();

    void newEntry();
    void edit();
    void save();
    void cancel();
    void exit();
    bool mayLeaveWithoutSchool();
    void endProgram();
    void openPeriodDetails(int row);
    void setPeriodDetailsOpen(bool open);

    void daysTyped();
    void daysLeft();
    void periodsLeft();
    void lastDayLeft();
    void morningTyped();
    void applyRefusal(const SetupCheck &check);
    void restoreSaved(QLineEdit *field, int savedValue);
    int savedValueOf(SetupField field) const;

    AppContext &m_ctx;
    SchoolSetupService m_service;
    bool m_editing = false;
    std::optional<SchoolSetupRecord> m_saved;

    SchoolSetupFrame *m_fraMain = nullptr;
    PeriodDetailsPanel *m_fraPeriodDetails = nullptr;
    QWidget *m_buttonRow = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
