#include "generationrun.h"
#include "generationengine.h"
#include "messageservice.h"
#include "random.h"
#include "sql.h"

#include <limits>

namespace {

// Goes on wherever a question allows, as the headless tool does.
class Onwards final : public MessageService
{
public:
    void information(const QString &, const QString &) override {}
    void critical(const QString &, const QString &) override {}
    bool question(const QString &, const QString &) override { return true; }
    bool okCancel(const QString &, const QString &) override { return true; }
};

}

GeneratedWeek GenerateAndComplete(const QSqlDatabase &db, qint64 completionSteps)
{
    Completion::Settings settings;
    settings.timeLimitSeconds = std::numeric_limits<double>::infinity();
    settings.iterationLimit = completionSteps;
    Onwards messages;
    LcgRandom random;
    GeneratedWeek week;
    {
        GenerationEngine engine(db, random);
        engine.openPhaseOne();
        engine.saveDefaultSettings(QStringLiteral("NO"));
        engine.processPhaseOne(messages, {});
    }
    week.phaseOne = CompleteTimetable(db, CompletionStage::PhaseOne, settings);
    {
        GenerationEngine engine(db, random);
        engine.openPhaseTwo();
        if (engine.phaseTwoProcessAllowed())
            engine.processPhaseTwo(messages, {});
    }
    week.phaseTwo = CompleteTimetable(db, CompletionStage::PhaseTwo, settings);
    const Sql sql(db);
    week.allotted = sql.scalar(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry")).toInt();
    week.placed = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable")).toInt();
    return week;
}
