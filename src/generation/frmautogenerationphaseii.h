#pragma once
#include "generationengine.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;
class RunProgress;
struct AppContext;

// Auto Generation Phase-II: places every allotment that Phase I left, row by row, and repairs what stays
// open with Fix Balance Periods. The engine does the work; the screen runs it under its progress bar and
// opens the windows the result asks for.
class frmAutoGenerationPhaseII : public QWidget
{
    Q_OBJECT
public:
    explicit frmAutoGenerationPhaseII(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildLayout();
    void open();
    void comeForward();
    void process();
    void fixBalancePeriods();
    void balancePeriods();
    void totalAchieved();
    void exitScreen();
    // Runs one press of the engine under the progress bar and acts on its result.
    void run(GenerationResult (GenerationEngine::*press)(MessageService &, const GenerationSettings &),
             QPushButton *pressed);
    void openPending(PendingView view);

    AppContext &m_ctx;
    GenerationEngine m_engine;
    RunProgress *m_run = nullptr;
    QPointer<QWidget> m_pendingWindow; // the pending window this screen opened: its exit closes it first
    bool m_refreshFailed = false;

    QPushButton *m_cmdProcess = nullptr;
    QPushButton *m_cmdFixBalancePeriods = nullptr;
    QPushButton *m_cmdBalancePeriods = nullptr;
    QPushButton *m_cmdTotalAchieved = nullptr;
    QPushButton *m_cmdCompletePeriods = nullptr;
    QTableWidget *m_msgAutoGen2Details = nullptr; // the Phase II list of the last press, kept out of sight
    void fillWorkList();
    QPushButton *m_cmdCancelRun = nullptr;
    QPushButton *m_cmdExit = nullptr;
    QProgressBar *m_prgDisplay = nullptr;
    QLabel *m_lblProgress = nullptr;
    QLabel *m_lblAchieved = nullptr;
};
