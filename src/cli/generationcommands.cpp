#include "generationcommands.h"
#include "commandtable.h"
#include "completionstore.h"
#include "generationengine.h"
#include "messageservice.h"
#include "random.h"
#include "sql.h"

#include <cmath>
#include <QElapsedTimer>

#include <limits>

namespace {

// The tool answers Yes to every question, as a user who goes on wherever the screens let them.
class AnsweringMessages final : public MessageService
{
public:
    AnsweringMessages(QTextStream &out, QTextStream &err) : m_out(out), m_err(err) {}
    void information(const QString &text, const QString &) override { m_out << text << '\n'; }
    void critical(const QString &text, const QString &) override { m_err << text << '\n'; }
    bool question(const QString &text, const QString &) override
    {
        m_out << text << " Yes\n";
        return true;
    }
    bool okCancel(const QString &text, const QString &) override
    {
        m_out << text << " OK\n";
        return true;
    }

private:
    QTextStream &m_out;
    QTextStream &m_err;
};

// The run of one command: the store, the engine, where words go, and the clock of its steps.
class Run
{
public:
    Run(const QSqlDatabase &db, const GenerationOptions &options, QTextStream &out, QTextStream &err)
        : m_db(db), m_engine(db, m_random), m_options(options), m_out(out), m_err(err), m_messages(out, err)
    {
        m_settings.uniformRemainderCap = options.cap;
        m_clock.start();
    }

    GenerationEngine &engine() { return m_engine; }
    bool phaseOne(bool alone, GenerationResult *result);
    bool phaseTwo(GenerationResult *result);
    bool fix(GenerationResult *result, int press);
    bool complete(CompletionStage stage, int *open);
    void printPending();
    int finish();

private:
    void report(const QString &step, const GenerationResult &result, qint64 started);

    QSqlDatabase m_db;
    LcgRandom m_random; // one generator for the whole run, every step drawing in turn
    GenerationEngine m_engine;
    const GenerationOptions &m_options;
    QTextStream &m_out;
    QTextStream &m_err;
    AnsweringMessages m_messages;
    GenerationSettings m_settings;
    QElapsedTimer m_clock;
};

// One line a step: what it placed and the balance of its own phase it left (the whole week's count is the last
// line's), or that it stopped before placing anything.
void Run::report(const QString &step, const GenerationResult &result, qint64 started)
{
    m_out << step << ": ";
    if (result.outcome == GenerationResult::Outcome::Stopped)
        m_out << "stopped, nothing placed, ";
    else
        m_out << result.placedRows << " rows placed, " << result.openPeriods << " periods of its balance open, ";
    m_out << QString::number((m_clock.nsecsElapsed() - started) / 1e9, 'f', 3) << " s\n";
    for (int id : result.unitsGivenUp)
        m_out << "Gave up uniform unit " << id << " after the attempt cap\n";
}

// Phase I as a user runs it: the screen opens, settings are saved empty when none exist, Process.
bool Run::phaseOne(bool alone, GenerationResult *result)
{
    const qint64 started = m_clock.nsecsElapsed();
    m_engine.openPhaseOne();
    if (m_engine.snapshot().piStatus == QLatin1String("Y")) {
        (alone ? m_err : m_out) << "Auto Generation Phase I has already run\n";
        return !alone;
    }
    if (!m_engine.snapshot().settingsSaved) {
        PhaseOneChecks::ValidityGrid grid;
        if (!m_engine.saveDefaultSettings(m_options.uniform, &grid)) {
            m_err << "The uniform period check shows clashes: the settings cannot be saved\n";
            for (const PhaseOneChecks::ValidityRow &row : std::as_const(grid.rows))
                for (int p = 0; p < row.cells.size(); ++p)
                    if (row.cells[p].colour != PhaseOneChecks::ValidityCell::Colour::None)
                        m_err << "  " << row.name << ", period " << p + 1 << ": " << row.cells[p].value << '\n';
            return false;
        }
    }
    *result = m_engine.processPhaseOne(m_messages, m_settings);
    report(QStringLiteral("Phase I"), *result, started);
    return result->outcome != GenerationResult::Outcome::Stopped;
}

bool Run::phaseTwo(GenerationResult *result)
{
    const qint64 started = m_clock.nsecsElapsed();
    m_engine.openPhaseTwo();
    if (!m_engine.phaseTwoProcessAllowed()) {
        m_err << "Auto Generation Phase II has already run\n";
        return false;
    }
    *result = m_engine.processPhaseTwo(m_messages, m_settings);
    report(QStringLiteral("Phase II"), *result, started);
    return result->outcome != GenerationResult::Outcome::Stopped;
}

bool Run::fix(GenerationResult *result, int press)
{
    const qint64 started = m_clock.nsecsElapsed();
    if (press == 0) // pressed alone: the Phase II screen opens first
        m_engine.openPhaseTwo();
    *result = m_engine.fixBalancePeriods(m_messages, m_settings);
    report(press > 0 ? QStringLiteral("Fix Balance Periods %1").arg(press) : QStringLiteral("Fix Balance Periods"),
           *result, started);
    return result->outcome != GenerationResult::Outcome::Stopped;
}

// Completes the stage by moving periods, and says what stays open and why.
bool Run::complete(CompletionStage stage, int *open)
{
    const qint64 started = m_clock.nsecsElapsed();
    Completion::Settings settings;
    settings.timeLimitSeconds = m_options.timeLimit;
    const CompletionReport report = CompleteTimetable(m_db, stage, settings);
    const Completion::Outcome &o = report.outcome;
    m_out << (stage == CompletionStage::PhaseOne ? "Complete Phase I" : "Complete Phase II") << ": " << o.placed
          << " periods placed, " << o.moved << " periods moved, " << o.openAfter << " periods open, rule breaks "
          << report.breaksBefore << " before and " << report.breaksAfter << " after, "
          << QString::number((m_clock.nsecsElapsed() - started) / 1e9, 'f', 3) << " s"
          << (o.timedOut ? " (time limit)" : "") << ", " << o.iterations << " steps\n";
    for (const QString &reason : report.reasons)
        m_out << "  " << reason << '\n';
    *open = o.openAfter;
    return true;
}

void Run::printPending()
{
    const bool phaseTwoRan = Sql(m_db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE Manual = '2'"));
    if (!phaseTwoRan)
        m_engine.refreshPhaseOneBalance();
    const PendingList list = m_engine.pending(phaseTwoRan ? PendingView::PhaseTwo : PendingView::PhaseOne);
    m_out << (phaseTwoRan ? "Phase II" : "Phase I") << " pending periods\n";
    int serial = 0;
    for (const PendingRow &row : list.rows)
        m_out << ++serial << '\t' << row.className << '\t' << row.divisionName << '\t' << row.teacherName << '\t'
              << row.subjectName << '\t' << row.open << '\n';
    m_out << "Total : " << list.total << "  Total Periods : " << list.totalPeriods << "  Filled Periods : "
          << list.filledPeriods << "  Not Filled Periods : " << list.totalPeriods - list.filledPeriods << '\n';
}

// The last line of a placement command, read from the store whatever the steps said or refused: an allotment's
// periods count as placed up to the TimeTable rows that carry its teacher, class division and subject.
int Run::finish()
{
    QSqlQuery count = Sql(m_db).run(QStringLiteral(
        "SELECT IFNULL(SUM(a.periods), 0), IFNULL(SUM(MIN(a.periods, IFNULL(t.placed, 0))), 0) FROM "
        "(SELECT TeacherCode, ClassCode, DivisionCode, SubjectCode, SUM(NoOfSectionPeriods) AS periods "
        " FROM WorkAllotmentEntry GROUP BY TeacherCode, ClassCode, DivisionCode, SubjectCode) a LEFT JOIN "
        "(SELECT TeacherCode, ClassCode, DivisionCode, SubjectCode, COUNT(*) AS placed "
        " FROM TimeTable GROUP BY TeacherCode, ClassCode, DivisionCode, SubjectCode) t "
        "USING (TeacherCode, ClassCode, DivisionCode, SubjectCode)"));
    count.next();
    const int total = count.value(0).toInt();
    const int placed = count.value(1).toInt();
    m_out << "Periods placed: " << placed << " of " << total << ", open: " << total - placed << ", seconds: "
          << QString::number(m_clock.nsecsElapsed() / 1e9, 'f', 3) << '\n';
    return placed == total ? ExitCode::Done : ExitCode::Open;
}

}

bool readGenerationOptions(const QCommandLineParser &parser, GenerationOptions *options, QTextStream &err)
{
    const auto count = [&parser](const char *name, qint64 least, qint64 *value) {
        bool number = false;
        *value = parser.value(QLatin1String(name)).toLongLong(&number);
        return number && *value >= least;
    };
    options->uniform = parser.value(QStringLiteral("uniform")).trimmed().toUpper();
    if (options->uniform != QLatin1String("YES") && options->uniform != QLatin1String("NO")) {
        err << "--uniform takes yes or no\n";
        return false;
    }
    qint64 presses = 0;
    if (!count("fix-presses", 0, &presses) || presses > 100) {
        err << "--fix-presses takes a number from 0 to 100\n";
        return false;
    }
    options->fixPresses = int(presses);
    if (!count("uniform-remainder-cap", 1, &options->cap)) {
        err << "--uniform-remainder-cap takes a number above 0\n";
        return false;
    }
    options->complete = parser.isSet(QStringLiteral("complete"));
    bool seconds = false;
    options->timeLimit = parser.value(QStringLiteral("time-limit")).toDouble(&seconds);
    if (!seconds || !std::isfinite(options->timeLimit) || options->timeLimit <= 0 || options->timeLimit > 86400) {
        err << "--time-limit takes a number of seconds above 0 and up to 86400\n";
        return false;
    }
    return true;
}

int runGeneration(const QString &command, const QSqlDatabase &db, const GenerationOptions &options, QTextStream &out,
                  QTextStream &err)
{
    Run run(db, options, out, err);
    GenerationEngine &engine = run.engine();
    // A step need not read back what the step before it wrote; rows that anything else changes in between (the
    // completion, another copy of the program) still make it read the store again.
    engine.keepStateBetweenSteps(true);
    engine.load();
    if (!engine.snapshot().calendar.schoolSetUp) {
        err << "The school is not set up in this store\n";
        return ExitCode::Refused;
    }
    if (command == QLatin1String("pending")) {
        run.printPending();
        return ExitCode::Done;
    }
    // A step that refuses leaves the rest undone; the last line tells what the store holds all the same.
    GenerationResult result;
    bool ok = true;
    if (command == QLatin1String("phase1")) {
        run.phaseOne(true, &result);
    } else if (command == QLatin1String("phase2")) {
        run.phaseTwo(&result);
    } else if (command == QLatin1String("fix")) {
        run.fix(&result, 0);
    } else if (command == QLatin1String("complete")) {
        run.complete(CurrentCompletionStage(db), &result.openPeriods);
    } else if (options.complete) {
        // Phase I, its balance completed so that Phase II may start, Phase II, its balance completed.
        ok = run.phaseOne(false, &result);
        if (ok)
            ok = run.complete(CompletionStage::PhaseOne, &result.openPeriods);
        engine.load();
        if (ok && engine.phaseTwoProcessAllowed())
            ok = run.phaseTwo(&result);
        if (ok)
            ok = run.complete(CompletionStage::PhaseTwo, &result.openPeriods);
    } else {
        ok = run.phaseOne(false, &result);
        if (ok && engine.phaseTwoProcessAllowed())
            ok = run.phaseTwo(&result);
        else if (ok)
            result.openPeriods = 1; // Phase II ran before: Fix Balance Periods tells what is left
        for (int press = 1; ok && press <= options.fixPresses && result.openPeriods > 0; ++press)
            ok = run.fix(&result, press);
    }
    return run.finish();
}

int checkRules(const QSqlDatabase &db, QTextStream &out)
{
    const QStringList breaks = CheckStoredTimetable(db);
    for (const QString &text : breaks)
        out << text << '\n';
    out << "Rule breaks: " << breaks.size() << '\n';
    return breaks.isEmpty() ? ExitCode::Done : ExitCode::Open;
}
