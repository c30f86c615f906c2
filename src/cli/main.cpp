#include "sampleschool.h"
#include "schoolcalendar.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

// ttcli: the headless companion of the program, for scripts, tests and benchmarks.
int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ttcli"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Zarlo-TimeTable headless tool.\n\nCommands:\n"
                                                    "  init    create the store files when missing\n"
                                                    "  status  print the school's calendar and row counts\n"
                                                    "  sample  write a sample school into a new store (--size)"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("init or status"));
    const QCommandLineOption folder({QStringLiteral("f"), QStringLiteral("folder")},
                                    QStringLiteral("Folder of TimeTable.mdb (default: current folder)."),
                                    QStringLiteral("folder"), QDir::currentPath());
    parser.addOption(folder);
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Sample school: small, medium or large."),
                                  QStringLiteral("size"), QStringLiteral("small"));
    parser.addOption(size);
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Seed of the sample school's names."),
                                  QStringLiteral("n"), QStringLiteral("1"));
    parser.addOption(seed);
    parser.process(app);
    const QStringList args = parser.positionalArguments();
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList commands = {QStringLiteral("init"), QStringLiteral("status"), QStringLiteral("sample")};
    if (args.size() != 1 || !commands.contains(args.first())) {
        err << parser.helpText();
        return 2;
    }
    try {
        const QString connection = QStringLiteral("cli");
        QSqlDatabase db = Store::open(StoreFile::Main, parser.value(folder), connection);
        for (StoreFile companion : {StoreFile::BackupHistory, StoreFile::Help}) {
            Store::open(companion, parser.value(folder), QStringLiteral("cli_companion"));
            Store::close(QStringLiteral("cli_companion"));
        }
        if (args.first() == QLatin1String("sample")) {
            SampleSchool::Size sampleSize;
            if (!SampleSchool::parseSize(parser.value(size), &sampleSize)) {
                err << "Unknown size: " << parser.value(size) << '\n';
                return 2;
            }
            const SampleSchool::Summary summary = SampleSchool::build(db, sampleSize, parser.value(seed).toUInt());
            out << "Sample school: " << summary.classDivisions << " class divisions, " << summary.teachers
                << " teachers, " << summary.subjects << " subjects, " << summary.allotments << " allotments, "
                << summary.periodsPerWeek << " periods a week, " << summary.classTeachers << " class teachers, groups "
                << summary.combinedSubjectGroups << " CP / " << summary.combinedClassGroups << " CC / "
                << summary.combinedTeacherGroups << " CT\n";
        } else if (args.first() == QLatin1String("status")) {
            SchoolCalendar calendar;
            calendar.load(db);
            const Sql sql(db);
            out << "School set up: " << (calendar.schoolSetUp ? "yes" : "no") << '\n'
                << "Working days: " << calendar.noOfWorkingDays << ", periods a day: " << calendar.periodsPerDay
                << ", on the last day: " << calendar.periodsOnLastWorkingDay
                << ", periods a week: " << calendar.periodsPerWeek << '\n';
            for (const char *table : {"ClassDivisionDetails", "TeacherMaster", "SubjectMaster", "WorkAllotmentEntry",
                                      "TimeTable"}) {
                const int rows = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(table)))
                                     .toInt();
                out << table << ": " << rows << '\n';
            }
        } else {
            out << "Store ready in " << QDir::toNativeSeparators(parser.value(folder)) << '\n';
        }
        db = QSqlDatabase();
        Store::close(connection);
    } catch (const StoreError &error) {
        err << error.text() << '\n';
        return 1;
    }
    return 0;
}
