#include "completionstore.h"
#include "generationengine.h"
#include "messageservice.h"
#include "random.h"
#include "sampleschool.h"
#include "schoolcalendar.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"
#include "usercommands.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTextStream>

namespace {

QTextStream out(stdout);
QTextStream err(stderr);

// The tool answers Yes to every question, as a user who goes on wherever the screens let them.
class AnsweringMessages final : public MessageService
{
public:
    void information(const QString &text, const QString &) override { out << text << '\n'; }
    void critical(const QString &text, const QString &) override { err << text << '\n'; }
    bool question(const QString &text, const QString &) override
    {
        out << text << " Yes\n";
        return true;
    }
    bool okCancel(const QString &text, const QString &) override
    {
        out << text << " OK\n";
        return true;
    }
};

struct Options
{
    QString uniform = QStringLiteral("YES");
    int fixPresses = 3;
    qint64 cap = 200000;
    bool complete = false;    // generate: complete each phase's balance instead of pressing Fix Balance Periods
    double timeLimit = 10;    // seconds a completion may search
};

QElapsedTimer clock_;

void report(const QString &step, const GenerationResult &result, qint64 started)
{
    out << step << ": " << result.placedRows << " rows placed, " << result.openPeriods << " periods open, "
        << QString::number((clock_.nsecsElapsed() - started) / 1e9, 'f', 3) << " s\n";
    for (int id : result.unitsGivenUp)
        out << "Gave up uniform unit " << id << " after the attempt cap\n";
}

// Phase I as a user runs it: the screen opens, settings are saved empty when none exist, Process.
bool phaseOne(GenerationEngine &engine, MessageService &messages, const GenerationSettings &settings,
              const Options &options, bool alone, GenerationResult *result)
{
    const qint64 started = clock_.nsecsElapsed();
    engine.openPhaseOne();
    if (engine.snapshot().piStatus == QLatin1String("Y")) {
        (alone ? err : out) << "Auto Generation Phase I has already run\n";
        return !alone;
    }
    if (!engine.snapshot().settingsSaved) {
        PhaseOneChecks::ValidityGrid grid;
        if (!engine.saveDefaultSettings(options.uniform, &grid)) {
            err << "The uniform period check shows clashes: the settings cannot be saved\n";
            for (const PhaseOneChecks::ValidityRow &row : std::as_const(grid.rows))
                for (int p = 0; p < row.cells.size(); ++p)
                    if (row.cells[p].colour != PhaseOneChecks::ValidityCell::Colour::None)
                        err << "  " << row.name << ", period " << p + 1 << ": " << row.cells[p].value << '\n';
            return false;
        }
    }
    *result = engine.processPhaseOne(messages, settings);
    report(QStringLiteral("Phase I"), *result, started);
    return result->outcome != GenerationResult::Outcome::Stopped;
}

bool phaseTwo(GenerationEngine &engine, MessageService &messages, const GenerationSettings &settings,
              GenerationResult *result)
{
    const qint64 started = clock_.nsecsElapsed();
    engine.openPhaseTwo();
    if (!engine.phaseTwoProcessAllowed()) {
        err << "Auto Generation Phase II has already run\n";
        return false;
    }
    *result = engine.processPhaseTwo(messages, settings);
    report(QStringLiteral("Phase II"), *result, started);
    return result->outcome != GenerationResult::Outcome::Stopped;
}

bool fix(GenerationEngine &engine, MessageService &messages, const GenerationSettings &settings,
         GenerationResult *result, int press)
{
    const qint64 started = clock_.nsecsElapsed();
    if (press == 0) // pressed alone: the Phase II screen opens first
        engine.openPhaseTwo();
    *result = engine.fixBalancePeriods(messages, settings);
    report(press > 0 ? QStringLiteral("Fix Balance Periods %1").arg(press) : QStringLiteral("Fix Balance Periods"),
           *result, started);
    return result->outcome != GenerationResult::Outcome::Stopped;
}

// Completes the current stage by moving periods, and says what stays open and why.
bool complete(const QSqlDatabase &db, CompletionStage stage, const Options &options, int *open)
{
    const qint64 started = clock_.nsecsElapsed();
    Completion::Settings settings;
    settings.timeLimitSeconds = options.timeLimit;
    const CompletionReport report = CompleteTimetable(db, stage, settings);
    const Completion::Outcome &o = report.outcome;
    out << (stage == CompletionStage::PhaseOne ? "Complete Phase I" : "Complete Phase II") << ": " << o.placed
        << " periods placed, " << o.moved << " periods moved, " << o.openAfter << " periods open, rule breaks "
        << report.breaksBefore << " before and " << report.breaksAfter << " after, "
        << QString::number((clock_.nsecsElapsed() - started) / 1e9, 'f', 3) << " s"
        << (o.timedOut ? " (time limit)" : "") << ", " << o.iterations << " steps\n";
    for (const QString &reason : report.reasons)
        out << "  " << reason << '\n';
    *open = o.openAfter;
    return true;
}

int checkRules(const QSqlDatabase &db)
{
    const QStringList breaks = CheckStoredTimetable(db);
    for (const QString &text : breaks)
        out << text << '\n';
    out << "Rule breaks: " << breaks.size() << '\n';
    return breaks.isEmpty() ? 0 : 3;
}

void printPending(GenerationEngine &engine, const QSqlDatabase &db)
{
    const bool phaseTwoRan = Sql(db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE Manual = '2'"));
    if (!phaseTwoRan)
        engine.refreshPhaseOneBalance();
    const PendingList list = engine.pending(phaseTwoRan ? PendingView::PhaseTwo : PendingView::PhaseOne);
    out << (phaseTwoRan ? "Phase II" : "Phase I") << " pending periods\n";
    int serial = 0;
    for (const PendingRow &row : list.rows)
        out << ++serial << '\t' << row.className << '\t' << row.divisionName << '\t' << row.teacherName << '\t'
            << row.subjectName << '\t' << row.open << '\n';
    out << "Total : " << list.total << "  Total Periods : " << list.totalPeriods << "  Filled Periods : "
        << list.filledPeriods << "  Not Filled Periods : " << list.totalPeriods - list.filledPeriods << '\n';
}

int generation(const QString &command, const QSqlDatabase &db, const Options &options)
{
    LcgRandom random; // one generator for the whole run, every step drawing in turn
    GenerationEngine engine(db, random);
    // A step need not read back what the step before it wrote; rows that anything else changes in between (the
    // completion, another copy of the program) still make it read the store again.
    engine.keepStateBetweenSteps(true);
    engine.load();
    if (!engine.snapshot().calendar.schoolSetUp) {
        err << "The school is not set up in this store\n";
        return 1;
    }
    AnsweringMessages messages;
    GenerationSettings settings;
    settings.uniformRemainderCap = options.cap;
    GenerationResult result;
    bool ok = true;
    if (command == QLatin1String("phase1"))
        ok = phaseOne(engine, messages, settings, options, true, &result);
    else if (command == QLatin1String("phase2"))
        ok = phaseTwo(engine, messages, settings, &result);
    else if (command == QLatin1String("fix"))
        ok = fix(engine, messages, settings, &result, 0);
    else if (command == QLatin1String("pending"))
        printPending(engine, db);
    else if (command == QLatin1String("complete"))
        ok = complete(db, CurrentCompletionStage(db), options, &result.openPeriods);
    else if (options.complete) {
        // Phase I, its balance completed so that Phase II may start, Phase II, its balance completed.
        ok = phaseOne(engine, messages, settings, options, false, &result);
        if (ok)
            ok = complete(db, CompletionStage::PhaseOne, options, &result.openPeriods);
        engine.load();
        if (ok && engine.phaseTwoProcessAllowed())
            ok = phaseTwo(engine, messages, settings, &result);
        if (ok)
            ok = complete(db, CompletionStage::PhaseTwo, options, &result.openPeriods);
    } else {
        ok = phaseOne(engine, messages, settings, options, false, &result);
        if (ok && engine.phaseTwoProcessAllowed())
            ok = phaseTwo(engine, messages, settings, &result);
        else if (ok)
            result.openPeriods = 1; // Phase II ran before: Fix Balance Periods tells what is left
        for (int press = 1; ok && press <= options.fixPresses && result.openPeriods > 0; ++press)
            ok = fix(engine, messages, settings, &result, press);
    }
    const Sql sql(db);
    const int total = sql.scalar(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry")).toInt();
    const int placed = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable")).toInt();
    out << "Periods placed: " << placed << " of " << total << ", open: " << result.openPeriods << ", seconds: "
        << QString::number(clock_.nsecsElapsed() / 1e9, 'f', 3) << '\n';
    return ok ? 0 : 1;
}

bool positive(const QString &text, qint64 *value, bool zeroAllowed)
{
    bool number = false;
    *value = text.toLongLong(&number);
    return number && (*value > 0 || (zeroAllowed && *value == 0));
}

}

// ttcli: the headless companion of the program, for scripts, tests and benchmarks.
int main(int argc, char *argv[])
{
    clock_.start();
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ttcli"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Zarlo-TimeTable headless tool.\n\nCommands:\n"
        "  init      create the store files when missing\n"
        "  status    print the school's calendar and row counts\n"
        "  sample    write a sample school into a new store (--size small|medium|large|tight, --seed)\n"
        "  phase1    Auto Generation Phase I (--uniform yes|no when no settings are saved)\n"
        "  phase2    Auto Generation Phase II\n"
        "  fix       Fix Balance Periods once\n"
        "  generate  Phase I, Phase II, then Fix Balance Periods while periods stay open\n"
        "  pending   list the periods still open\n"
        "  complete  place the current phase's open periods by moving generated ones (--time-limit)\n"
        "  check     list every break of the placement rules in the timetable\n"
        "  user add NAME --login ID [--all-privileges]\n"
        "            add a user with a login; the password is read from standard input\n"
        "  user list list the users, their logins and how many privileges each holds"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("one of the commands above"));
    const QCommandLineOption folder({QStringLiteral("f"), QStringLiteral("folder"), QStringLiteral("data")},
                                    QStringLiteral("Folder of TimeTable.mdb (default: current folder)."),
                                    QStringLiteral("folder"), QDir::currentPath());
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Sample school: small, medium, large or tight."),
                                  QStringLiteral("size"), QStringLiteral("small"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Seed of the sample school."),
                                  QStringLiteral("n"), QStringLiteral("1"));
    const QCommandLineOption uniform(QStringLiteral("uniform"), QStringLiteral("Uniform period required: yes or no."),
                                     QStringLiteral("answer"), QStringLiteral("yes"));
    const QCommandLineOption presses(QStringLiteral("fix-presses"),
                                     QStringLiteral("Presses of Fix Balance Periods at most (default 3)."),
                                     QStringLiteral("n"), QStringLiteral("3"));
    const QCommandLineOption cap(QStringLiteral("uniform-remainder-cap"),
                                 QStringLiteral("Attempts before a uniform remainder unit is given up (default 200000)."),
                                 QStringLiteral("n"), QStringLiteral("200000"));
    const QCommandLineOption completeOption(QStringLiteral("complete"),
                                            QStringLiteral("generate: complete each phase instead of Fix Balance Periods."));
    const QCommandLineOption timeLimit(QStringLiteral("time-limit"),
                                       QStringLiteral("Seconds a completion may search (default 10)."),
                                       QStringLiteral("s"), QStringLiteral("10"));
    const QCommandLineOption login(QStringLiteral("login"), QStringLiteral("user add: the login ID."),
                                   QStringLiteral("id"));
    const QCommandLineOption allPrivileges(QStringLiteral("all-privileges"),
                                           QStringLiteral("user add: grant every screen and button."));
    parser.addOptions({folder, size, seed, uniform, presses, cap, completeOption, timeLimit, login, allPrivileges});
    parser.process(app);
    const QStringList args = parser.positionalArguments();
    const QStringList commands = {QStringLiteral("init"), QStringLiteral("status"), QStringLiteral("sample"),
                                  QStringLiteral("phase1"), QStringLiteral("phase2"), QStringLiteral("fix"),
                                  QStringLiteral("generate"), QStringLiteral("pending"), QStringLiteral("complete"),
                                  QStringLiteral("check"), QStringLiteral("user")};
    const bool userCommand = !args.isEmpty() && args.first() == QLatin1String("user");
    if (args.isEmpty() || !commands.contains(args.first()) || (args.size() != 1 && !userCommand)) {
        err << parser.helpText();
        return 2;
    }
    const QString command = args.first();
    Options options;
    options.uniform = parser.value(uniform).trimmed().toUpper();
    qint64 number = 0;
    if (options.uniform != QLatin1String("YES") && options.uniform != QLatin1String("NO")) {
        err << "--uniform takes yes or no\n";
        return 2;
    }
    if (!positive(parser.value(presses), &number, true)) {
        err << "--fix-presses takes a number of 0 or more\n";
        return 2;
    }
    options.fixPresses = int(number);
    if (!positive(parser.value(cap), &options.cap, false)) {
        err << "--uniform-remainder-cap takes a number above 0\n";
        return 2;
    }
    options.complete = parser.isSet(completeOption);
    bool seconds = false;
    options.timeLimit = parser.value(timeLimit).toDouble(&seconds);
    if (!seconds || options.timeLimit <= 0) {
        err << "--time-limit takes a number of seconds above 0\n";
        return 2;
    }
    SampleSchool::Size sampleSize = SampleSchool::Size::Small;
    if (command == QLatin1String("sample") && !SampleSchool::parseSize(parser.value(size), &sampleSize)) {
        err << "Unknown size: " << parser.value(size) << '\n';
        return 2;
    }
    const QString dataFolder = parser.value(folder);
    const bool creates = command == QLatin1String("init") || command == QLatin1String("sample");
    if (!QFileInfo(dataFolder).isDir()
        || (!creates && !QFileInfo::exists(QDir(dataFolder).filePath(Schema::fileName(StoreFile::Main))))) {
        err << "No store in " << QDir::toNativeSeparators(dataFolder) << '\n';
        return 1;
    }
    int code = 0;
    const QString connection = QStringLiteral("cli");
    try {
        QSqlDatabase db = Store::open(StoreFile::Main, dataFolder, connection);
        if (creates) {
            for (StoreFile companion : {StoreFile::BackupHistory, StoreFile::Help}) {
                Store::open(companion, dataFolder, QStringLiteral("cli_companion"));
                Store::close(QStringLiteral("cli_companion"));
            }
        }
        if (command == QLatin1String("sample")) {
            const SampleSchool::Summary summary = SampleSchool::build(db, sampleSize, parser.value(seed).toUInt());
            out << "Sample school: " << summary.classDivisions << " class divisions, " << summary.teachers
                << " teachers, " << summary.subjects << " subjects, " << summary.allotments << " allotments, "
                << summary.periodsPerWeek << " periods a week, " << summary.classTeachers << " class teachers, groups "
                << summary.combinedSubjectGroups << " CP / " << summary.combinedClassGroups << " CC / "
                << summary.combinedTeacherGroups << " CT\n";
        } else if (command == QLatin1String("status")) {
            SchoolCalendar calendar;
            calendar.load(db);
            const Sql sql(db);
            out << "School set up: " << (calendar.schoolSetUp ? "yes" : "no") << '\n'
                << "Working days: " << calendar.noOfWorkingDays << ", periods a day: " << calendar.periodsPerDay
                << ", on the last day: " << calendar.periodsOnLastWorkingDay
                << ", periods a week: " << calendar.periodsPerWeek << '\n';
            for (const char *table : {"ClassDivisionDetails", "TeacherMaster", "SubjectMaster", "WorkAllotmentEntry",
                                      "TimeTable"}) {
                const int rows = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(table))).toInt();
                out << table << ": " << rows << '\n';
            }
        } else if (command == QLatin1String("check")) {
            code = checkRules(db);
        } else if (userCommand) {
            QTextStream in(stdin);
            code = runUserCommand(db, args, parser.value(login), parser.isSet(allPrivileges), in, out, err);
        } else if (command == QLatin1String("init")) {
            out << "Store ready in " << QDir::toNativeSeparators(dataFolder) << '\n';
        } else {
            code = generation(command, db, options);
        }
        db = QSqlDatabase();
    } catch (const StoreError &error) {
        err << error.text() << '\n';
        code = 1;
    }
    out.flush();
    Store::close(connection);
    return code;
}
