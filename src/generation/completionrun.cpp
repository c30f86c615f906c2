#include "completionrun.h"
#include "feasibility.h"
#include "generationengine.h"
#include "messageservice.h"
#include "random.h"
#include "runprogress.h"
#include "session.h"
#include "sql.h"
#include "storeerror.h"

#include <QApplication>
#include <cmath>

namespace CompletionRun {

namespace {

constexpr int MostReasonsShown = 15;

QString listed(const QStringList &reasons)
{
    QStringList shown = reasons.mid(0, MostReasonsShown);
    if (reasons.size() > MostReasonsShown)
        shown << QStringLiteral("And %1 More").arg(reasons.size() - MostReasonsShown);
    return shown.join(QLatin1Char('\n'));
}

// The periods the stage still has open, from its balance rebuilt now.
int openPeriods(AppContext &ctx, CompletionStage stage)
{
    GenerationEngine engine(ctx.db(), ProgramRandom());
    engine.load();
    if (stage == CompletionStage::PhaseOne) {
        engine.refreshPhaseOneBalance();
        return engine.pending(PendingView::PhaseOne).total;
    }
    engine.refreshPhaseTwoBalance();
    return engine.pending(PendingView::PhaseTwo).total;
}

QString summary(const CompletionReport &report)
{
    const Completion::Outcome &o = report.outcome;
    QStringList lines;
    lines << (o.cancelled ? QStringLiteral("Completing Of The TimeTable Cancelled") : QStringLiteral("Completing Of The TimeTable Done"));
    lines << QStringLiteral("Periods Placed : %1").arg(o.placed) << QStringLiteral("Periods Moved : %1").arg(o.moved)
          << QStringLiteral("Periods Not Filled : %1").arg(o.openAfter);
    if (!report.reasons.isEmpty())
        lines << QStringLiteral("These Periods Cannot Be Filled Because :") << listed(report.reasons);
    else if (o.openAfter > 0)
        lines << QStringLiteral("No Count Shows Why; Press The Button Again To Search Longer");
    return lines.join(QLatin1Char('\n'));
}

}

bool Run(AppContext &ctx, RunProgress &progress, CompletionStage stage)
{
    const QSqlDatabase db = ctx.db();
    try {
        const Sql sql(db);
        if (sql.scalar(QStringLiteral("SELECT PIStatus FROM TTCode")).toString() != QLatin1String("Y")) {
            ctx.messages->information(QStringLiteral("Without Performing Auto Generation Phase I Periods Cannot Be Completed"));
            return false;
        }
        if (stage == CompletionStage::PhaseTwo && openPeriods(ctx, CompletionStage::PhaseOne) > 0) {
            ctx.messages->information(
                QStringLiteral("Without Completing 100% In AutoGeneration Phase I, You Cannot Proceed With AutoGeneration Phase II"));
            return false;
        }
        if (openPeriods(ctx, stage) < 1) {
            ctx.messages->information(QStringLiteral("No Period Exists For Completing"));
            return false;
        }
    } catch (const StoreError &error) {
        ctx.messages->critical(error.text());
        return false;
    }
    if (!ctx.messages->question(QStringLiteral("Do You Want 'Zarlo-TimeTable' To Complete The TimeTable By Moving Periods ?")))
        return false;

    const GenerationSettings screen = progress.start();
    Completion::Settings settings;
    settings.cancelRequested = screen.cancelRequested;
    settings.progress = [&screen](int open, int placed) {
        GenerationSettings::Progress p;
        p.maximum = qMax(1, open + placed);
        p.value = placed;
        p.percent = std::round(double(p.value) / p.maximum * 1000.0) / 10.0;
        p.totalAchieved = -1;
        if (screen.progress)
            screen.progress(p);
    };
    CompletionReport report;
    bool ran = false;
    try {
        report = CompleteTimetable(db, stage, settings);
        ran = true;
    } catch (const StoreError &error) {
        progress.finish();
        ctx.messages->critical(error.text());
        return false;
    }
    progress.finish();
    ctx.messages->information(summary(report));
    return ran && (report.outcome.placed > 0 || report.outcome.moved > 0);
}

void ShowImpossibilities(AppContext &ctx)
{
    QStringList reasons;
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        LoadedTimetable loaded;
        LoadTimetable(ctx.db(), &loaded);
        const CompletionModel model(loaded.snapshot, loaded.snapshot.timetable, loaded.rowids);
        reasons = Feasibility::Impossibilities(model);
        QApplication::restoreOverrideCursor();
    } catch (const StoreError &error) {
        QApplication::restoreOverrideCursor();
        ctx.messages->critical(error.text());
        return;
    }
    if (reasons.isEmpty())
        ctx.messages->information(QStringLiteral("No Count Shows That The TimeTable Cannot Be Completed"));
    else
        ctx.messages->information(QStringLiteral("The TimeTable Cannot Be Completed For These Reasons :") + QLatin1Char('\n')
                                  + listed(reasons));
}

}
