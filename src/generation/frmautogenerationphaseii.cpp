#include "frmautogenerationphaseii.h"
#include "completionrun.h"
#include "generationscreens.h"
#include "messageservice.h"
#include "random.h"
#include "runprogress.h"
#include "screen.h"
#include "session.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int HelpScreenNo = 19;
}

frmAutoGenerationPhaseII::frmAutoGenerationPhaseII(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_engine(ctx.db(), ProgramRandom())
{
    setObjectName(QStringLiteral("frmAutoGenerationPhaseII"));
    setWindowTitle(QStringLiteral("Auto Generation Phase-II"));
    buildLayout();
    m_run = new RunProgress(this, m_prgDisplay, m_lblProgress, m_lblAchieved, m_cmdCancelRun);
    connect(m_cmdProcess, &QPushButton::clicked, this, &frmAutoGenerationPhaseII::process);
    connect(m_cmdFixBalancePeriods, &QPushButton::clicked, this, &frmAutoGenerationPhaseII::fixBalancePeriods);
    connect(m_cmdBalancePeriods, &QPushButton::clicked, this, &frmAutoGenerationPhaseII::balancePeriods);
    connect(m_cmdTotalAchieved, &QPushButton::clicked, this, &frmAutoGenerationPhaseII::totalAchieved);
    connect(m_cmdCompletePeriods, &QPushButton::clicked, this, [this] {
        CompletionRun::Run(m_ctx, *m_run, CompletionStage::PhaseTwo);
        comeForward();
    });
    connect(m_cmdExit, &QPushButton::clicked, this, &frmAutoGenerationPhaseII::exitScreen);
    open();
    comeForward();
    Screen::applyConventions(this, ctx, HelpScreenNo);
    Screen::onComeForward(this, [this] { comeForward(); });
}

void frmAutoGenerationPhaseII::buildLayout()
{
    m_cmdProcess = Screen::button(this, "cmdProcess", QStringLiteral("&Process"));
    m_cmdFixBalancePeriods = Screen::button(this, "cmdFixBalancePeriods", QStringLiteral("&Fix Balance Periods"));
    m_cmdBalancePeriods = Screen::button(this, "cmdBalancePeriods", QStringLiteral("&Balance Periods"));
    m_cmdBalancePeriods->setToolTip(QStringLiteral("Periods Yet To Be Allotted In Phase II"));
    m_cmdTotalAchieved = Screen::button(this, "cmdTotalAchieved", QStringLiteral("&Total Achieved"));
    m_cmdCompletePeriods = Screen::button(this, "cmdCompletePeriods", QStringLiteral("Complete By &Moving Periods"));
    m_cmdCompletePeriods->setToolTip(QStringLiteral("Places The Periods Not Filled By Moving Periods Placed By The Generation"));
    m_cmdCancelRun = Screen::button(this, "cmdCancelRun", QStringLiteral("Ca&ncel Run"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));

    m_msgAutoGen2Details = new QTableWidget(this);
    m_msgAutoGen2Details->setObjectName(QStringLiteral("msgAutoGen2Details"));
    m_msgAutoGen2Details->hide();

    m_prgDisplay = new QProgressBar(this);
    m_prgDisplay->setObjectName(QStringLiteral("prgDisplay"));
    m_prgDisplay->setRange(0, 1);
    m_prgDisplay->setValue(0);
    m_prgDisplay->setTextVisible(false); // lblProgress carries the figure
    m_prgDisplay->setMinimumWidth(320);
    m_lblProgress = new QLabel(this);
    m_lblProgress->setObjectName(QStringLiteral("lblProgress"));
    m_lblAchieved = new QLabel(this);
    m_lblAchieved->setObjectName(QStringLiteral("lblAchieved"));
    m_lblProgress->setMinimumWidth(m_lblProgress->fontMetrics().horizontalAdvance(QStringLiteral("100.0")) + 8);
    m_lblProgress->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto *progress = new QGroupBox(this);
    auto *grid = new QGridLayout(progress);
    grid->addWidget(new QLabel(QStringLiteral("Current Progress :"), progress), 0, 0);
    grid->addWidget(m_prgDisplay, 0, 1);
    grid->addWidget(m_lblProgress, 0, 2);
    grid->addWidget(m_cmdCancelRun, 0, 3);
    grid->addWidget(new QLabel(QStringLiteral("Total Achieved :"), progress), 1, 0);
    grid->addWidget(m_lblAchieved, 1, 1);
    grid->setColumnStretch(1, 1);

    auto *actions = new QHBoxLayout;
    for (QPushButton *push : {m_cmdProcess, m_cmdFixBalancePeriods, m_cmdBalancePeriods, m_cmdTotalAchieved, m_cmdCompletePeriods})
        actions->addWidget(push);
    actions->addStretch();
    actions->addWidget(m_cmdExit);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(progress);
    layout->addLayout(actions);
    layout->addStretch();
}

// The Phase I settings and balance must be fresh before Phase II can judge whether Phase I is complete.
void frmAutoGenerationPhaseII::open()
{
    Screen::guarded(m_ctx, [this] { m_engine.openPhaseTwo(); });
}

// Once Phase II has placed rows, Process stays off until they are deleted in the utilities, and Fix Balance
// Periods is the way on.
void frmAutoGenerationPhaseII::comeForward()
{
    if (m_run->running())
        return;
    Screen::guardedOnce(m_ctx, m_refreshFailed,
                        [this] { m_cmdProcess->setEnabled(m_engine.phaseTwoProcessAllowed()); });
    m_cmdFixBalancePeriods->setEnabled(!m_cmdProcess->isEnabled());
}

void frmAutoGenerationPhaseII::process()
{
    run(&GenerationEngine::processPhaseTwo, m_cmdProcess);
}

void frmAutoGenerationPhaseII::fixBalancePeriods()
{
    // Fix rewrites the list a pending window shows: whoever opened it, it closes first when there is
    // something to fix.
    const bool checked = Screen::guarded(m_ctx, [this] {
        if (!m_engine.phaseTwoProcessAllowed()) {
            ClosePendingWindow(m_pendingWindow);
            for (QWidget *widget : QApplication::allWidgets()) {
                if (widget->objectName() == QLatin1String("frmPendingPeriods") && widget->isVisible()) {
                    QPointer<QWidget> other = widget;
                    ClosePendingWindow(other);
                }
            }
        }
    });
    if (!checked)
        return;
    run(&GenerationEngine::fixBalancePeriods, m_cmdFixBalancePeriods);
}

void frmAutoGenerationPhaseII::run(GenerationResult (GenerationEngine::*press)(MessageService &, const GenerationSettings &),
                                   QPushButton *pressed)
{
    GenerationResult result;
    const GenerationSettings settings = m_run->start();
    const bool ran = Screen::guarded(m_ctx, [&] { result = (m_engine.*press)(*m_ctx.messages, settings); });
    m_run->finish();
    if (!ran) {
        comeForward();
        return;
    }
    fillWorkList();
    comeForward();
    if (result.nothingToPlace) {
        pressed->setEnabled(false);
        if (pressed == m_cmdProcess)
            m_cmdFixBalancePeriods->setEnabled(false);
    }
    if (result.openBlankPeriods && m_ctx.host)
        m_ctx.host->openScreen(QStringLiteral("frmBlankPeriods"));
    if (result.openPending)
        openPending(result.pendingView);
}

void frmAutoGenerationPhaseII::openPending(PendingView view)
{
    if (QWidget *window = OpenPendingWindow(m_ctx, view))
        m_pendingWindow = window;
}

void frmAutoGenerationPhaseII::balancePeriods()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!Screen::guarded(m_ctx, [this] { m_engine.refreshPhaseTwoBalance(); }))
        return;
    QApplication::restoreOverrideCursor();
    fillWorkList();
    openPending(PendingView::PhaseTwo);
}

void frmAutoGenerationPhaseII::fillWorkList()
{
    Screen::guarded(m_ctx, [this] {
        FillWorkListGrid(m_msgAutoGen2Details, m_ctx.db(), QStringLiteral("AutoGenPhase2"));
    });
}

void frmAutoGenerationPhaseII::totalAchieved()
{
    Screen::guarded(m_ctx, [this] { RunProgress::showTotalAchieved(m_lblAchieved, StoredTotalAchieved(m_ctx.db())); });
}

void frmAutoGenerationPhaseII::exitScreen()
{
    ClosePendingWindow(m_pendingWindow);
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void frmAutoGenerationPhaseII::closeEvent(QCloseEvent *event)
{
    // Closed by its frame rather than by Exit: the pending window still goes with it.
    ClosePendingWindow(m_pendingWindow);
    QWidget::closeEvent(event);
}
