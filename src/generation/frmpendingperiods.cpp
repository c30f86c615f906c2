#include "frmpendingperiods.h"
#include "completionrun.h"
#include "runprogress.h"
#include "excelexport.h"
#include "generationscreens.h"
#include "launcher.h"
#include "messageservice.h"
#include "pendingreasons.h"
#include "random.h"
#include "reportoutput.h"
#include "screen.h"
#include "session.h"
#include "storeerror.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
const QStringList Headings = {QStringLiteral("Sl.No."), QStringLiteral("Class Name"), QStringLiteral("Division Name"),
                              QStringLiteral("Teacher Name"), QStringLiteral("Subject Name"),
                              QStringLiteral("Pending Periods")};
}

frmPendingPeriods::frmPendingPeriods(AppContext &ctx, QWidget *parent) : QWidget(parent), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmPendingPeriods"));
    setWindowTitle(QStringLiteral("Pending Periods Yet To Be Allotted"));
    buildLayout();
    connect(m_msgDetails, &QTableWidget::itemSelectionChanged, this, &frmPendingPeriods::showReason);
    connect(m_cmdExport, &QPushButton::clicked, this, &frmPendingPeriods::exportSheet);
    connect(m_cmdCompletePeriods, &QPushButton::clicked, this, &frmPendingPeriods::completePeriods);
    // The completion's run: the bar, its figure and Cancel show only while it works.
    auto *achieved = new QLabel(this);
    achieved->hide();
    m_run = new RunProgress(this, m_prgDisplay, m_lblProgress, achieved, m_cmdCancelRun);
    m_prgDisplay->hide();
    m_lblProgress->hide();
    m_cmdCancelRun->hide();
    connect(m_cmdExit, &QPushButton::clicked, this, &frmPendingPeriods::exitScreen);
    refresh();
    Screen::applyConventions(this, ctx, 0);
    Screen::onComeForward(this, [this] { refresh(); });
}

frmPendingPeriods::~frmPendingPeriods() = default;

void frmPendingPeriods::buildLayout()
{
    m_msgDetails = new QTableWidget(0, int(Headings.size()), this);
    m_msgDetails->setObjectName(QStringLiteral("msgDetails"));
    m_msgDetails->setHorizontalHeaderLabels(Headings);
    m_msgDetails->verticalHeader()->hide();
    m_msgDetails->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_msgDetails->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_msgDetails->setSelectionMode(QAbstractItemView::SingleSelection);
    m_msgDetails->setAlternatingRowColors(true);
    m_msgDetails->horizontalHeader()->setStretchLastSection(true);
    m_msgDetails->setMinimumSize(600, 240);

    m_txtReason = new QPlainTextEdit(this);
    m_txtReason->setObjectName(QStringLiteral("txtReason"));
    m_txtReason->setReadOnly(true);
    m_txtReason->setFocusPolicy(Qt::ClickFocus);
    m_txtReason->setFixedHeight(m_txtReason->fontMetrics().lineSpacing() * 5 + 12);

    const auto figure = [this](const char *name) {
        auto *label = new QLabel(this);
        label->setObjectName(QLatin1String(name));
        label->setMinimumWidth(40);
        return label;
    };
    m_lblTotal = figure("lblTotal");
    m_lblTotalPeriods = figure("lblTotalPeriods");
    m_lblFilledPeriods = figure("lblFilledPeriods");
    m_lblNotFilledPeriods = figure("lblNotFilledPeriods");
    auto *totals = new QGridLayout;
    const auto addTotal = [this, totals](int row, int column, const QString &caption, QLabel *value) {
        auto *label = new QLabel(caption, this);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        totals->addWidget(label, row, column * 2);
        totals->addWidget(value, row, column * 2 + 1);
    };
    addTotal(0, 0, QStringLiteral("Total :"), m_lblTotal);
    addTotal(1, 0, QStringLiteral("Filled Periods :"), m_lblFilledPeriods);
    addTotal(0, 1, QStringLiteral("Total Periods :"), m_lblTotalPeriods);
    addTotal(1, 1, QStringLiteral("Not Filled Periods :"), m_lblNotFilledPeriods);
    totals->setColumnStretch(4, 1);
    totals->setHorizontalSpacing(12);

    m_cmdExport = new QPushButton(QStringLiteral("&Export"), this);
    m_cmdExport->setObjectName(QStringLiteral("cmdExport"));
    m_cmdExport->setToolTip(QStringLiteral("Export To EXCEL"));
    m_cmdExit = new QPushButton(QStringLiteral("E&xit"), this);
    m_cmdExit->setObjectName(QStringLiteral("cmdExit"));
    m_cmdCompletePeriods = new QPushButton(QStringLiteral("Complete By &Moving Periods"), this);
    m_cmdCompletePeriods->setObjectName(QStringLiteral("cmdCompletePeriods"));
    m_cmdCompletePeriods->setToolTip(QStringLiteral("Places The Periods Not Filled By Moving Periods Placed By The Generation"));
    m_cmdCancelRun = new QPushButton(QStringLiteral("Ca&ncel Run"), this);
    m_cmdCancelRun->setObjectName(QStringLiteral("cmdCancelRun"));
    m_prgDisplay = new QProgressBar(this);
    m_prgDisplay->setObjectName(QStringLiteral("prgDisplay"));
    m_prgDisplay->setTextVisible(false);
    m_prgDisplay->setValue(0);
    m_lblProgress = new QLabel(this);
    m_lblProgress->setObjectName(QStringLiteral("lblProgress"));
    m_lblProgress->setMinimumWidth(40);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_cmdCompletePeriods);
    buttons->addWidget(m_prgDisplay, 1);
    buttons->addWidget(m_lblProgress);
    buttons->addWidget(m_cmdCancelRun);
    buttons->addStretch();
    buttons->addWidget(m_cmdExport);
    buttons->addWidget(m_cmdExit);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_msgDetails, 1);
    layout->addWidget(new QLabel(QStringLiteral("Why The Selected Periods Are Pending :"), this));
    layout->addWidget(m_txtReason);
    layout->addLayout(totals);
    layout->addLayout(buttons);
}

// Completes the balance this window lists, then lists it again.
void frmPendingPeriods::completePeriods()
{
    for (QWidget *control : {static_cast<QWidget *>(m_prgDisplay), static_cast<QWidget *>(m_lblProgress),
                             static_cast<QWidget *>(m_cmdCancelRun)})
        control->show();
    CompletionRun::Run(m_ctx, *m_run,
                       m_view == PendingView::PhaseOne ? CompletionStage::PhaseOne : CompletionStage::PhaseTwo);
    for (QWidget *control : {static_cast<QWidget *>(m_prgDisplay), static_cast<QWidget *>(m_lblProgress),
                             static_cast<QWidget *>(m_cmdCancelRun)})
        control->hide();
    refresh();
}

void frmPendingPeriods::refresh()
{
    if (m_run && m_run->running())
        return;
    m_view = CurrentPendingView();
    if (!Screen::guardedOnce(m_ctx, m_refreshFailed, [this] {
            GenerationEngine engine(m_ctx.db(), ProgramRandom());
            m_list = engine.pending(m_view);
        }))
        m_list = PendingList();
    m_reasons.reset();
    fillGrid(m_list);
    m_lblTotal->setText(QString::number(m_list.total));
    m_lblTotalPeriods->setText(QString::number(m_list.totalPeriods));
    m_lblFilledPeriods->setText(QString::number(m_list.filledPeriods));
    m_lblNotFilledPeriods->setText(QString::number(m_list.totalPeriods - m_list.filledPeriods));
}

void frmPendingPeriods::fillGrid(const PendingList &list)
{
    const int selected = m_msgDetails->currentRow();
    m_grid = ReportGrid(int(list.rows.size()) + 1, int(Headings.size()));
    for (int column = 0; column < Headings.size(); ++column)
        m_grid.setText(0, column, Headings[column]);
    for (int row = 0; row < list.rows.size(); ++row) {
        const PendingRow &pending = list.rows[row];
        const QStringList cells = {QString::number(row + 1), pending.className, pending.divisionName,
                                   pending.teacherName, pending.subjectName, QString::number(pending.open)};
        for (int column = 0; column < cells.size(); ++column)
            m_grid.setText(row + 1, column, cells[column]);
    }

    const QSignalBlocker quiet(m_msgDetails);
    m_msgDetails->clearContents();
    m_msgDetails->setRowCount(int(list.rows.size()));
    for (int row = 0; row < list.rows.size(); ++row) {
        for (int column = 0; column < Headings.size(); ++column) {
            auto *item = new QTableWidgetItem(m_grid.text(row + 1, column));
            if (column == 0 || column == Headings.size() - 1)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_msgDetails->setItem(row, column, item);
        }
    }
    m_msgDetails->resizeColumnsToContents();
    // Wide enough for every column at once: the pending figures stand at the right edge, where a horizontal
    // scroll would hide them.
    const QAbstractItemView *view = m_msgDetails;
    int columns = 2 * m_msgDetails->frameWidth() + m_msgDetails->verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < Headings.size(); ++column)
        columns += qMax(view->sizeHintForColumn(column), m_msgDetails->horizontalHeader()->sectionSizeHint(column));
    m_msgDetails->setMinimumWidth(qMax(600, columns));
    // The same allotment stays selected when the window comes forward again, or the first one is.
    if (!list.rows.isEmpty())
        m_msgDetails->selectRow(selected >= 0 && selected < list.rows.size() ? selected : 0);
    showReason();
}

void frmPendingPeriods::showReason()
{
    const QList<QTableWidgetSelectionRange> ranges = m_msgDetails->selectedRanges();
    const int row = ranges.isEmpty() ? -1 : ranges.first().topRow();
    if (row < 0 || row >= m_list.rows.size()) {
        m_txtReason->clear();
        return;
    }
    try {
        if (!m_reasons)
            m_reasons = std::make_unique<PendingReasons>(m_ctx.db());
        m_txtReason->setPlainText(m_reasons->explain(m_list.rows[row], m_view).text());
    } catch (const StoreError &error) {
        m_txtReason->setPlainText(error.text());
    }
}

void frmPendingPeriods::exportSheet()
{
    if (m_list.total <= 0)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ReportFile sheet = ExportGridToExcel(m_ctx, m_grid, m_grid.rowCount() - 1, m_grid.columnCount() - 1,
                                               QStringLiteral("Pending Periods"), QString(), false);
    QApplication::restoreOverrideCursor();
    ReportOutput::show(sheet, ReportOutput::Kind::Sheet, Launcher::instance(), *m_ctx.messages);
}

void frmPendingPeriods::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}
