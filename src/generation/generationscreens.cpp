#include "generationscreens.h"
#include "frmautogenerationphasei.h"
#include "frmautogenerationphaseii.h"
#include "frmpendingperiods.h"
#include "screenregistry.h"
#include "session.h"
#include "sql.h"

#include <QApplication>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTableWidget>

namespace {
// The view name the pending window reads when it comes forward.
QString pendingView = QStringLiteral("AutoGenPhaseI");
}

void SetPendingView(PendingView view)
{
    pendingView = view == PendingView::PhaseOne ? QStringLiteral("AutoGenPhaseI") : QStringLiteral("AutoGenPhaseII");
}

PendingView CurrentPendingView()
{
    return pendingView == QLatin1String("AutoGenPhaseII") ? PendingView::PhaseTwo : PendingView::PhaseOne;
}

QWidget *OpenPendingWindow(AppContext &ctx, PendingView view)
{
    SetPendingView(view);
    if (!ctx.host)
        return nullptr;
    ctx.host->openScreen(QStringLiteral("frmPendingPeriods"));
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *window = qobject_cast<frmPendingPeriods *>(widget);
        if (window && !window->isHidden()) { // a closed one may wait for its deletion
            // Brought forward while already the active window, it would not notice the new view by itself.
            window->refresh();
            return window;
        }
    }
    return nullptr;
}

void FillWorkListGrid(QTableWidget *grid, const QSqlDatabase &db, const QString &table)
{
    QSqlQuery q = Sql(db).run(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(table));
    const int columns = q.record().count();
    grid->setRowCount(0);
    grid->setColumnCount(columns);
    while (q.next()) {
        const int r = grid->rowCount();
        grid->insertRow(r);
        for (int c = 0; c < columns; ++c)
            grid->setItem(r, c, new QTableWidgetItem(q.value(c).toString()));
    }
}

void ClosePendingWindow(QPointer<QWidget> &window)
{
    if (window)
        if (auto *exit = window->findChild<QPushButton *>(QStringLiteral("cmdExit")))
            exit->click();
    window.clear();
}

void registerGenerationScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmAutoGenerationPhaseI"),
                       [](AppContext &ctx) -> QWidget * { return new frmAutoGenerationPhaseI(ctx); });
    registry.addScreen(QStringLiteral("frmAutoGenerationPhaseII"),
                       [](AppContext &ctx) -> QWidget * { return new frmAutoGenerationPhaseII(ctx); });
    registry.addScreen(QStringLiteral("frmPendingPeriods"),
                       [](AppContext &ctx) -> QWidget * { return new frmPendingPeriods(ctx); });
}
