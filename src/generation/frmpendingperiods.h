#pragma once
#include "generationengine.h"
#include "reportgrid.h"

#include <QWidget>
#include <memory>

class PendingReasons;
class QProgressBar;
class RunProgress;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;
struct AppContext;

// Pending Periods Yet To Be Allotted: the allotments that the chosen phase's balance still holds open, the
// week's totals, and why the selected allotment stayed open. It lists afresh each time it comes forward.
class frmPendingPeriods : public QWidget
{
    Q_OBJECT
public:
    explicit frmPendingPeriods(AppContext &ctx, QWidget *parent = nullptr);
    ~frmPendingPeriods() override;

    // Lists the view the opener chose (CurrentPendingView()).
    void refresh();

private:
    void buildLayout();
    void fillGrid(const PendingList &list);
    void showReason();
    void exportSheet();
    void completePeriods();
    void exitScreen();

    AppContext &m_ctx;
    PendingView m_view = PendingView::PhaseOne;
    PendingList m_list;
    ReportGrid m_grid; // the heading and the rows, as exported
    std::unique_ptr<PendingReasons> m_reasons; // read on the first selection after a refresh
    bool m_refreshFailed = false;

    QTableWidget *m_msgDetails = nullptr;
    QPlainTextEdit *m_txtReason = nullptr;
    QLabel *m_lblTotal = nullptr;
    QLabel *m_lblTotalPeriods = nullptr;
    QLabel *m_lblFilledPeriods = nullptr;
    QLabel *m_lblNotFilledPeriods = nullptr;
    QPushButton *m_cmdExport = nullptr;
    QPushButton *m_cmdCompletePeriods = nullptr;
    QPushButton *m_cmdCancelRun = nullptr;
    QProgressBar *m_prgDisplay = nullptr;
    QLabel *m_lblProgress = nullptr;
    RunProgress *m_run = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
