#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

namespace {

// What a run of the tool gave: its exit code (-1 when it did not end by itself) and its standard output and
// error together.
struct Outcome
{
    int code = -1;
    QString words;
};

Outcome ttcli(const QString &folder, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(TTCLI_PATH), QStringList{QStringLiteral("--data"), folder} + arguments);
    process.waitForFinished(-1);
    const bool ended = process.error() == QProcess::UnknownError && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAll())};
}

// Changes made to the store behind the tool's back, between the steps of a row.
enum class Change {
    None,
    DropPhaseOneRow, // one period placed by Phase I taken out: Phase I is no longer finished
    PlaceTwice,      // a period moved onto the slot where its class division already has another
};

QString statementFor(Change change)
{
    switch (change) {
    case Change::DropPhaseOneRow:
        return QStringLiteral("DELETE FROM TimeTable WHERE rowid = (SELECT MIN(rowid) FROM TimeTable WHERE Manual = '1')");
    case Change::PlaceTwice:
        return QStringLiteral(
            "UPDATE TimeTable SET DayCode = first.DayCode, PeriodCode = first.PeriodCode FROM "
            "(SELECT ClassCode, DivisionCode, DayCode, PeriodCode, TeacherCode FROM TimeTable ORDER BY rowid LIMIT 1) "
            "AS first WHERE TimeTable.rowid = (SELECT MIN(t.rowid) FROM TimeTable t WHERE t.ClassCode = first.ClassCode "
            "AND t.DivisionCode = first.DivisionCode AND t.TeacherCode <> first.TeacherCode "
            "AND (t.DayCode <> first.DayCode OR t.PeriodCode <> first.PeriodCode))");
    case Change::None:
        break;
    }
    return QString();
}

void apply(const QString &folder, Change change)
{
    if (change == Change::None)
        return;
    const QString connection = QStringLiteral("tst_ttcli");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        db.setDatabaseName(QDir(folder).filePath(QStringLiteral("TimeTable.mdb")));
        QVERIFY2(db.open(), qPrintable(db.lastError().text()));
        QSqlQuery query(db);
        QVERIFY2(query.exec(statementFor(change)), qPrintable(query.lastError().text()));
        QCOMPARE(query.numRowsAffected(), 1);
    }
    QSqlDatabase::removeDatabase(connection);
}

int number(const QRegularExpressionMatch &match, int group)
{
    return match.captured(group).toInt();
}

const QStringList SmallSchool = {QStringLiteral("sample"), QStringLiteral("--size"), QStringLiteral("small"),
                                 QStringLiteral("--seed"), QStringLiteral("7")};
// The completion of the small school ends in a few dozen steps; the limit only keeps a slow machine from
// cutting it short.
const QStringList CompleteWeek = {QStringLiteral("generate"), QStringLiteral("--complete"),
                                  QStringLiteral("--time-limit"), QStringLiteral("600")};

}

Q_DECLARE_METATYPE(Change)

// The tool's exit codes and the words a script reads from it: 0 when every allotted period is placed, 1 when
// periods stay open (and the count it prints is the store's), 2 when it refused before running anything.
class tst_ttcli : public QObject
{
    Q_OBJECT

private slots:
    void exitCodesAndWords_data()
    {
        QTest::addColumn<QList<QStringList>>("steps"); // run before, each expected to end with 0 or 1
        QTest::addColumn<Change>("change");
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<int>("code");
        QTest::addColumn<QStringList>("words"); // patterns the output must match

        QTest::newRow("every period placed") << QList<QStringList>{SmallSchool} << Change::None << CompleteWeek << 0
                                             << QStringList{QStringLiteral("Periods placed: (\\d+) of \\1, open: 0,")};
        QTest::newRow("periods left open") << QList<QStringList>{SmallSchool} << Change::None
                                           << QStringList{QStringLiteral("generate")} << 1
                                           << QStringList{QStringLiteral("open: [1-9]\\d*,")};
        QTest::newRow("Phase I alone leaves Phase II's periods") << QList<QStringList>{SmallSchool} << Change::None
                                                                  << QStringList{QStringLiteral("phase1")} << 1
                                                                  << QStringList{QStringLiteral("open: [1-9]\\d*,")};
        QTest::newRow("nothing left for Phase II") << QList<QStringList>{SmallSchool, CompleteWeek} << Change::None
                                                   << QStringList{QStringLiteral("generate")} << 0
                                                   << QStringList{QStringLiteral("No Period Exists For Fixing"),
                                                                  QStringLiteral("open: 0,")};
        QTest::newRow("Phase II refused after an unfinished Phase I")
            << QList<QStringList>{SmallSchool, {QStringLiteral("phase1")}} << Change::DropPhaseOneRow
            << QStringList{QStringLiteral("phase2")} << 1
            << QStringList{QStringLiteral("Without Completing 100% In AutoGeneration Phase I"),
                           QStringLiteral("Phase II: stopped, nothing placed"), QStringLiteral("open: [1-9]\\d*,")};
        QTest::newRow("completion places the rest") << QList<QStringList>{SmallSchool, {QStringLiteral("generate")}}
                                                    << Change::None
                                                    << QStringList{QStringLiteral("complete"), QStringLiteral("--time-limit"),
                                                                   QStringLiteral("600")}
                                                    << 0 << QStringList{QStringLiteral("open: 0,")};
        QTest::newRow("check without a break") << QList<QStringList>{SmallSchool} << Change::None
                                               << QStringList{QStringLiteral("check")} << 0
                                               << QStringList{QStringLiteral("Rule breaks: 0")};
        QTest::newRow("check lists the breaks") << QList<QStringList>{SmallSchool, CompleteWeek} << Change::PlaceTwice
                                                << QStringList{QStringLiteral("check")} << 1
                                                << QStringList{QStringLiteral("Has Two Different Periods In Day"),
                                                               QStringLiteral("Rule breaks: [1-9]")};

        QTest::newRow("no store") << QList<QStringList>{} << Change::None << QStringList{QStringLiteral("generate")} << 2
                                  << QStringList{QStringLiteral("No store in ")};
        QTest::newRow("no school in the store") << QList<QStringList>{{QStringLiteral("init")}} << Change::None
                                                << QStringList{QStringLiteral("generate")} << 2
                                                << QStringList{QStringLiteral("The school is not set up in this store")};
        QTest::newRow("option of another command") << QList<QStringList>{SmallSchool} << Change::None
                                                   << QStringList{QStringLiteral("generate"), QStringLiteral("--seed"),
                                                                  QStringLiteral("3")}
                                                   << 2 << QStringList{QStringLiteral("--seed is not an option of generate")};
        QTest::newRow("unknown option") << QList<QStringList>{SmallSchool} << Change::None
                                        << QStringList{QStringLiteral("generate"), QStringLiteral("--fast")} << 2
                                        << QStringList{QStringLiteral("Unknown option 'fast'")};
        for (const char *seconds : {"0", "nan", "inf", "86401"})
            QTest::addRow("time limit %s", seconds)
                << QList<QStringList>{SmallSchool} << Change::None
                << QStringList{QStringLiteral("complete"), QStringLiteral("--time-limit"), QLatin1String(seconds)} << 2
                << QStringList{QStringLiteral("--time-limit takes")};
        for (const char *presses : {"101", "4294967295", "-1"})
            QTest::addRow("presses %s", presses)
                << QList<QStringList>{SmallSchool} << Change::None
                << QStringList{QStringLiteral("generate"), QStringLiteral("--fix-presses"), QLatin1String(presses)} << 2
                << QStringList{QStringLiteral("--fix-presses takes a number from 0 to 100")};
        QTest::newRow("unknown command") << QList<QStringList>{} << Change::None << QStringList{QStringLiteral("place")}
                                         << 2 << QStringList{QStringLiteral("Unknown command: place")};
        QTest::newRow("words after the command") << QList<QStringList>{SmallSchool} << Change::None
                                                 << QStringList{QStringLiteral("generate"), QStringLiteral("now")} << 2
                                                 << QStringList{QStringLiteral("generate takes no word after it: now")};
        QTest::newRow("init makes a new folder") << QList<QStringList>{} << Change::None
                                                 << QStringList{QStringLiteral("init")} << 0
                                                 << QStringList{QStringLiteral("^Folder .*school made$"),
                                                                QStringLiteral("^Store ready in ")};
    }

    void exitCodesAndWords()
    {
        QFETCH(QList<QStringList>, steps);
        QFETCH(Change, change);
        QFETCH(QStringList, command);
        QFETCH(QStringList, words);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString folder = dir.filePath(QStringLiteral("school")); // made by sample or init
        for (const QStringList &step : std::as_const(steps)) {
            const Outcome before = ttcli(folder, step);
            QVERIFY2(before.code == 0 || before.code == 1, qPrintable(before.words));
        }
        apply(folder, change);
        if (QTest::currentTestFailed())
            return;

        const Outcome outcome = ttcli(folder, command);
        QVERIFY2(outcome.code != -1, qPrintable(outcome.words));
        QTEST(outcome.code, "code");
        for (const QString &pattern : std::as_const(words)) {
            const QRegularExpression expected(pattern, QRegularExpression::MultilineOption);
            QVERIFY2(expected.match(outcome.words).hasMatch(), qPrintable(pattern + QStringLiteral(" in:\n") + outcome.words));
        }
        if (command.first() == QLatin1String("init"))
            QVERIFY(QFile::exists(QDir(folder).filePath(QStringLiteral("TimeTable.mdb"))));

        // The count a placement command prints is the store's: what the pending list leaves unfilled.
        static const QRegularExpression placed(QStringLiteral("^Periods placed: (\\d+) of (\\d+), open: (\\d+),"),
                                               QRegularExpression::MultilineOption);
        const QRegularExpressionMatch line = placed.match(outcome.words);
        if (line.hasMatch()) {
            QCOMPARE(number(line, 1) + number(line, 3), number(line, 2));
            QCOMPARE(outcome.code, number(line, 3) > 0 ? 1 : 0);
            const Outcome pending = ttcli(folder, {QStringLiteral("pending")});
            QCOMPARE(pending.code, 0);
            static const QRegularExpression unfilled(QStringLiteral("Not Filled Periods : (\\d+)"));
            const QRegularExpressionMatch left = unfilled.match(pending.words);
            QVERIFY2(left.hasMatch(), qPrintable(pending.words));
            QCOMPARE(number(line, 3), number(left, 1));
        }
    }

    // Each command's help lists the options it takes, one line each, and the tool's help every command.
    void helpListsTheOptions_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QStringList>("lines"); // each the start of exactly one line
        QTest::newRow("the tool") << QStringList{QStringLiteral("--help")}
                                  << QStringList{"  init ", "  status ", "  sample ", "  phase1 ", "  phase2 ", "  fix ",
                                                 "  generate ", "  pending ", "  complete ", "  check ", "  user ",
                                                 "  -f, --data, --folder DIR ", "  -h, --help ", "  0 ", "  1 ", "  2 "};
        QTest::newRow("generate") << QStringList{QStringLiteral("generate"), QStringLiteral("--help")}
                                  << QStringList{"Usage: ttcli [--data DIR] generate", "  --uniform yes|no ",
                                                 "  --uniform-remainder-cap N ", "  --fix-presses N ", "  --complete ",
                                                 "  --time-limit S ", "  -f, --data, --folder DIR ", "  0 ", "  1 ", "  2 "};
        QTest::newRow("sample") << QStringList{QStringLiteral("sample"), QStringLiteral("-h")}
                                << QStringList{"  --size SIZE ", "  --seed N ", "  0 ", "  2 "};
        QTest::newRow("check") << QStringList{QStringLiteral("check"), QStringLiteral("--help")}
                               << QStringList{"  -f, --data, --folder DIR ", "  0 ", "  1 ", "  2 "};
        QTest::newRow("user") << QStringList{QStringLiteral("user"), QStringLiteral("--help")}
                              << QStringList{"Usage: ttcli [--data DIR] user add NAME --login ID", "  --login ID ",
                                             "  --all-privileges "};
    }

    void helpListsTheOptions()
    {
        QFETCH(QStringList, command);
        QFETCH(QStringList, lines);
        QTemporaryDir dir;
        const Outcome help = ttcli(dir.path(), command);
        QCOMPARE(help.code, 0);
        const QStringList printed = help.words.split(QLatin1Char('\n'));
        for (const QString &start : std::as_const(lines)) {
            qsizetype found = 0;
            for (const QString &line : printed)
                found += line.startsWith(start) ? 1 : 0;
            QVERIFY2(found == 1, qPrintable(QStringLiteral("'%1' starts %2 lines of:\n%3").arg(start).arg(found).arg(help.words)));
        }
    }
};

QTEST_GUILESS_MAIN(tst_ttcli)
#include "tst_ttcli.moc"
