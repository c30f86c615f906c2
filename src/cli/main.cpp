#include "commandtable.h"
#include "generationcommands.h"
#include "reportcommand.h"
#include "sampleschool.h"
#include "schoolcalendar.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"
#include "usercommands.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QTextStream out(stdout);
QTextStream err(stderr);

void printSample(const QSqlDatabase &db, SampleSchool::Size size, quint32 seed)
{
    const SampleSchool::Summary summary = SampleSchool::build(db, size, seed);
    out << "Sample school: " << summary.classDivisions << " class divisions, " << summary.teachers << " teachers, "
        << summary.subjects << " subjects, " << summary.allotments << " allotments, " << summary.periodsPerWeek
        << " periods a week, " << summary.classTeachers << " class teachers, groups " << summary.combinedSubjectGroups
        << " CP / " << summary.combinedClassGroups << " CC / " << summary.combinedTeacherGroups << " CT\n";
}

void printStatus(const QSqlDatabase &db)
{
    SchoolCalendar calendar;
    calendar.load(db);
    const Sql sql(db);
    out << "School set up: " << (calendar.schoolSetUp ? "yes" : "no") << '\n'
        << "Working days: " << calendar.noOfWorkingDays << ", periods a day: " << calendar.periodsPerDay
        << ", on the last day: " << calendar.periodsOnLastWorkingDay << ", periods a week: " << calendar.periodsPerWeek
        << '\n';
    for (const char *table : {"ClassDivisionDetails", "TeacherMaster", "SubjectMaster", "WorkAllotmentEntry", "TimeTable"})
        out << table << ": " << sql.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(table))).toInt()
            << '\n';
}

// The folder of the store: init and sample make it when missing, the other commands need a store in it.
bool storeFolderReady(const QString &folder, bool creates)
{
    const QString shown = QDir::toNativeSeparators(folder);
    if (creates && !QFileInfo::exists(folder)) {
        if (!QDir().mkpath(folder)) {
            err << "Folder " << shown << " cannot be made\n";
            return false;
        }
        out << "Folder " << shown << " made\n";
    }
    if (!QFileInfo(folder).isDir()
        || (!creates && !QFileInfo::exists(QDir(folder).filePath(Schema::fileName(StoreFile::Main))))) {
        err << "No store in " << shown << '\n';
        return false;
    }
    return true;
}

int runCommand(const CliCommand &command, const QCommandLineParser &parser, const QString &folder)
{
    const QString &name = command.name;
    SampleSchool::Size size = SampleSchool::Size::Small;
    bool seedRead = false;
    const quint32 seed = parser.value(QStringLiteral("seed")).toUInt(&seedRead);
    if (name == QLatin1String("sample") && (!SampleSchool::parseSize(parser.value(QStringLiteral("size")), &size) || !seedRead)) {
        err << "--size takes small, medium, large or tight, and --seed a number of 0 or more\n";
        return ExitCode::Refused;
    }
    GenerationOptions options;
    if (!readGenerationOptions(parser, &options, err))
        return ExitCode::Refused;
    const bool creates = name == QLatin1String("init") || name == QLatin1String("sample");
    if (!storeFolderReady(folder, creates))
        return ExitCode::Refused;

    const QString connection = QStringLiteral("cli");
    QSqlDatabase db = Store::open(StoreFile::Main, folder, connection);
    if (creates) {
        for (StoreFile companion : {StoreFile::BackupHistory, StoreFile::Help}) {
            Store::open(companion, folder, QStringLiteral("cli_companion"));
            Store::close(QStringLiteral("cli_companion"));
        }
    }
    int code = ExitCode::Done;
    if (name == QLatin1String("init")) {
        out << "Store ready in " << QDir::toNativeSeparators(folder) << '\n';
    } else if (name == QLatin1String("sample")) {
        printSample(db, size, seed);
    } else if (name == QLatin1String("status")) {
        printStatus(db);
    } else if (name == QLatin1String("check")) {
        code = checkRules(db, out);
    } else if (name == QLatin1String("report")) {
        code = runReport(db, parser, out, err);
    } else if (name == QLatin1String("user")) {
        QTextStream in(stdin);
        code = runUserCommand(db, parser.positionalArguments(), parser.value(QStringLiteral("login")),
                              parser.isSet(QStringLiteral("all-privileges")), in, out, err);
    } else {
        code = runGeneration(name, db, options, out, err);
    }
    return code;
}

}

// ttcli: the headless companion of the program, for scripts, tests and benchmarks. Its commands and options
// are in commandtable.cpp.
int main(int argc, char *argv[])
{
    // Printed reports need fonts, so a report run has a (windowless) GUI application; the others need none.
    const bool report = std::any_of(argv + 1, argv + argc, [](const char *word) { return qstrcmp(word, "report") == 0; });
    if (report && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (report && qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        // A private runtime folder, as a desktop session would give, so that no warning is printed for its lack.
        const QString runtime = QDir::temp().filePath(QStringLiteral("ttcli-runtime-%1").arg(qEnvironmentVariable("USER")));
        QDir().mkpath(runtime);
        QFile::setPermissions(runtime, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", runtime.toLocal8Bit());
    }
    std::unique_ptr<QCoreApplication> app = report ? std::make_unique<QGuiApplication>(argc, argv)
                                                   : std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ttcli"));
    QCommandLineParser parser;
    int code = ExitCode::Refused;
    const CliCommand *command = CommandTable::parse(parser, QCoreApplication::arguments(), out, err, &code);
    if (command && command->name == QLatin1String("report") && parser.isSet(QStringLiteral("list"))) {
        listReports(out);
        command = nullptr;
        code = ExitCode::Done;
    }
    if (command) {
        const QString folder = parser.isSet(QStringLiteral("data")) ? parser.value(QStringLiteral("data"))
                                                                     : QDir::currentPath();
        try {
            code = runCommand(*command, parser, folder);
        } catch (const StoreError &error) {
            err << error.text() << '\n';
            code = ExitCode::Refused;
        }
        Store::close(QStringLiteral("cli"));
    }
    out.flush();
    err.flush();
    return code;
}
