#include "excelexport.h"
#include "gridtextfile.h"
#include "reportgridmodel.h"
#include "reportschool.h"
#include "sheetreader.h"
#include "teachertimetable.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QFile>
#include <QTest>

// The text file, the sheet and the teacher's week grid of the reports, without a window.
class tst_ReportFrame : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;

    ReportGrid teacherWeek(int teacherCode, int *placed = nullptr)
    {
        ReportGrid grid = TeacherTimeTable::frame(m_store->db(), m_store->context().session.calendar);
        const int count = TeacherTimeTable::fill(m_store->db(), teacherCode, grid);
        if (placed)
            *placed = count;
        return grid;
    }

    static QStringList readLines(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        buildReportSchool(*m_store);
    }
    void cleanup() { delete m_store; }

    void cellTexts_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("division");
        QTest::addColumn<QString>("subject");
        QTest::addColumn<QString>("cell");
        QTest::newRow("odd spare goes after") << "X" << "A" << "MA" << "   XA   MA ";
        QTest::newRow("one-letter subject") << "XII" << "SC" << "E" << " XIISC   E ";
        QTest::newRow("full widths") << "Standar" << "d" << "PHY" << "StandardPHY";
        QTest::newRow("too long to centre") << "Standard" << "A" << "MA" << "StandardAMA ";
    }
    void cellTexts()
    {
        QFETCH(QString, className);
        QFETCH(QString, division);
        QFETCH(QString, subject);
        QFETCH(QString, cell);
        QCOMPARE(TeacherTimeTable::cellText(className, division, subject), cell);
    }

    // Days and periods land where the calendar puts them; the main row of a Combined Class slot wins even
    // though it was written first; the last day keeps its trailing cells blank.
    void teacherWeekGrid()
    {
        int placed = 0;
        const ReportGrid grid = teacherWeek(1, &placed);
        QCOMPARE(placed, 6);
        QCOMPARE(grid.rowCount(), 6);
        QCOMPARE(grid.columnCount(), 6);
        QCOMPARE(grid.text(0, 0), QStringLiteral("Day"));
        QCOMPARE(grid.text(0, 4), QStringLiteral("P4"));
        QCOMPARE(grid.text(0, 5), QStringLiteral("DayCode"));
        QCOMPARE(grid.text(5, 0), QStringLiteral("Friday"));
        QCOMPARE(grid.text(5, 5), QStringLiteral("5"));
        QCOMPARE(grid.text(1, 1), QStringLiteral("   XA   MA "));
        QCOMPARE(grid.text(2, 2), QStringLiteral("   XA    E "));
        QCOMPARE(grid.text(5, 2), QStringLiteral("  'NC   MA "));
        QCOMPARE(grid.text(5, 3), QString());

        teacherWeek(2, &placed);
        QCOMPARE(placed, 0);

        ReportGridModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setGrid(grid);
        QCOMPARE(model.rowCount(), 5);
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("P1"));
        QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("Monday"));
    }

    void textFileLayout()
    {
        const ReportGrid grid = teacherWeek(1);
        QString error;
        const QStringList lines = GridTextFile::weekLines(LoadSchoolHeading(m_store->db()), TeacherTimeTable::title(),
                                                          QStringLiteral(" Anita Rao "), grid, 4, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        const ReportFile file = GridTextFile::write(m_store->context().dataFolder, QStringLiteral("Anita Rao"), lines);
        QVERIFY2(file.ok(), qPrintable(file.error));
        QCOMPARE(file.path, m_store->folder() + QStringLiteral("/Anita Rao.txt"));

        const QString separator(45, QLatin1Char('-')); // 8 x 4 periods + 13, one short of a table line
        const QString blankRow = QStringLiteral("|            |       |       |       |       |");
        const QStringList expected{
            QStringLiteral("           'Little Flower' School"), // (45 - 22) / 2 = 11.5: column 12
            QStringLiteral("              Main Road,Ward 4"),
            QStringLiteral("            Kochi,Kerala-682001"),
            QStringLiteral("             TEACHER TIME TABLE"),
            QStringLiteral("ANITA RAO"),
            separator,
            QStringLiteral("|Day         |  P1   |  P2   |  P3   |  P4   |"), blankRow, separator,
            QStringLiteral("|Monday      |  XA   |       |       | XIISC |"),
            QStringLiteral("|            |  MA   |       |       |  PHY  |"), separator,
            QStringLiteral("|Tuesday     |       |  XA   |       |       |"),
            QStringLiteral("|            |       |   E   |       |       |"), separator,
            QStringLiteral("|Wednesday   |       |       |Standar|       |"),
            QStringLiteral("|            |       |       |  MA   |       |"), separator,
            QStringLiteral("|Thursday    |       |       |       |       |"), blankRow, separator,
            QStringLiteral("|Friday      |       |  'NC  |       |       |"),
            QStringLiteral("|            |       |  MA   |       |       |"), separator,
            QString()}; // the file ends with a line break
        const QStringList written = readLines(file.path);
        for (int i = 0; i < qMin(written.size(), expected.size()); ++i)
            QCOMPARE(written.at(i), expected.at(i));
        QCOMPARE(written.size(), expected.size());
        QCOMPARE(written.at(6).size(), separator.size() + 1);
    }

    void periodNamesInTheFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("heading"); // the period's field on the heading line; empty: refused
        QTest::newRow("seven letters") << "Seventh" << "Seventh";
        QTest::newRow("padded in the store") << "  Last " << " Last  ";
        QTest::newRow("eight letters") << "Eighth P" << "";
        QTest::newRow("eleven letters") << "Recess Time" << "";
    }
    void periodNamesInTheFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, heading);
        m_store->exec(QStringLiteral("UPDATE PeriodDuration SET PeriodName = ? WHERE PeriodCode = 4"), {name});
        QString error;
        const QStringList lines = GridTextFile::weekLines({}, TeacherTimeTable::title(), QString(), teacherWeek(1), 4, &error);
        if (heading.isEmpty()) {
            QVERIFY(lines.isEmpty());
            QVERIFY2(error.contains(name.trimmed()), qPrintable(error));
        } else {
            QVERIFY2(error.isEmpty(), qPrintable(error));
            QCOMPARE(lines.at(6).section(QLatin1Char('|'), 5, 5), heading);
        }
    }

    void textFileFailures()
    {
        const QStringList lines{QStringLiteral("x")};
        ReportFile file = GridTextFile::write(m_store->folder(), QStringLiteral("A/B"), lines);
        QVERIFY(!file.ok());
        QVERIFY(!QFile::exists(file.path));
        file = GridTextFile::write(m_store->folder() + QStringLiteral("/missing"), QStringLiteral("AB"), lines);
        QVERIFY(!file.ok());
        QVERIFY2(file.error.contains(QStringLiteral("AB.txt")), qPrintable(file.error));
    }

    void sheetOfTeacherWeek()
    {
        const ReportGrid grid = teacherWeek(1);
        const ReportFile file = ExportGridToExcel(m_store->context(), grid, 5, 4, TeacherTimeTable::title(),
                                                  TeacherTimeTable::subtitle(QStringLiteral("Anita Rao ")), false);
        QVERIFY2(file.ok(), qPrintable(file.error));
        QVERIFY(file.path.startsWith(m_store->context().tempFolder + QLatin1Char('/')));
        const SheetXml sheet = SheetXml::read(file.path);
        QVERIFY2(sheet.error.isEmpty(), qPrintable(sheet.error));

        QCOMPARE(sheet.merges, (QStringList{"A1:E1", "A2:E2", "A3:E3", "A4:E4", "A5:E5"}));
        QCOMPARE(sheet.text("A1"), QStringLiteral("''Little Flower' School"));
        QCOMPARE(sheet.text("A3"), QStringLiteral("Kochi,Kerala-682001"));
        QCOMPARE(sheet.text("A4"), QStringLiteral("TEACHER TIME TABLE"));
        QCOMPARE(sheet.text("A5"), QStringLiteral("Teacher Name : Anita Rao"));
        QCOMPARE(sheet.text("A6"), QStringLiteral("Day"));
        QCOMPARE(sheet.text("E6"), QStringLiteral("P4"));
        QVERIFY(!sheet.cells.contains(QStringLiteral("F6"))); // the DayCode column stays out
        QCOMPARE(sheet.text("B7"), QStringLiteral("   XA   MA "));
        QCOMPARE(sheet.text("D9"), QStringLiteral("StandardAMA ")); // whole, unlike the text file
        QCOMPARE(sheet.text("C11"), QStringLiteral("''NC   MA"));  // trimmed, apostrophe doubled
        QCOMPARE(sheet.text("A11"), QStringLiteral("Friday"));

        for (const QString &ref : sheet.cells.keys())
            QVERIFY2(sheet.style(ref).numFmtId == 49, qPrintable(ref)); // "@"
        QCOMPARE(sheet.style("A1").horizontal, QStringLiteral("center"));
        QCOMPARE(sheet.style("A4").horizontal, QStringLiteral("center"));
        QCOMPARE(sheet.style("A5").horizontal, QString());
        QVERIFY(!sheet.style("A5").thinBorder);
        QCOMPARE(sheet.style("A10").vertical, QStringLiteral("center"));
        QCOMPARE(sheet.style("A11").vertical, QString()); // the last grid row is left out of the centring
        QCOMPARE(sheet.style("A7").horizontal, QString());
        QVERIFY(!sheet.style("A7").wrap);
        for (const char *ref : {"A6", "E6", "B7", "E11", "A11"})
            QVERIFY2(sheet.style(ref).thinBorder, ref);
        for (const char *ref : {"B6", "C8", "E11"}) {
            QCOMPARE(sheet.style(ref).horizontal, QStringLiteral("center"));
            QVERIFY(sheet.style(ref).wrap);
        }
        QVERIFY(sheet.widths.value(3) >= 12);                  // "StandardAMA " fits
        QVERIFY(sheet.widths.value(0) >= 9);                   // "Wednesday"
        QVERIFY(sheet.widths.value(0) < 20);                   // the merged heading lines do not count
    }

    // The two heading rows of an all-grid report: the label spans both, each day spans its periods, and the
    // short last day's band stops at its last period.
    void sheetDayBands()
    {
        m_store->exec(QStringLiteral("UPDATE SchoolSetup SET NoOfWorkingDays = 2, PeriodsPerDay = 3, "
                                     "PeriodsOnLastWorkingDay = 2"));
        m_store->context().session.calendar.load(m_store->db());
        ReportGrid grid(3, 7);
        const QStringList days{"Mon", "Mon", "Mon", "Tue", "Tue", "Tue"};
        grid.setText(0, 0, QStringLiteral("Class Name"));
        grid.setText(1, 0, QStringLiteral("Class Name"));
        for (int c = 1; c <= 6; ++c) {
            grid.setText(0, c, days.at(c - 1));
            grid.setText(1, c, QStringLiteral("P%1").arg((c - 1) % 3 + 1));
        }
        grid.setText(2, 0, QStringLiteral("X/A"));
        const ReportFile file = ExportGridToExcel(m_store->context(), grid, 2, 6, QStringLiteral("ALL CLASSES TIME TABLE"),
                                                  QString(), true);
        QVERIFY2(file.ok(), qPrintable(file.error));
        const SheetXml sheet = SheetXml::read(file.path);
        QVERIFY2(sheet.error.isEmpty(), qPrintable(sheet.error));
        QCOMPARE(sheet.merges.mid(5), (QStringList{"A6:A7", "B6:D6", "E6:F6"}));
        QCOMPARE(sheet.text("A6"), QStringLiteral("Class Name"));
        QCOMPARE(sheet.text("A7"), QString());
        QCOMPARE(sheet.text("B6"), QStringLiteral("Mon"));
        QCOMPARE(sheet.text("C6"), QString());
        QCOMPARE(sheet.text("E6"), QStringLiteral("Tue"));
        QCOMPARE(sheet.text("F6"), QString());
        QCOMPARE(sheet.text("G6"), QStringLiteral("Tue")); // beyond the last day's periods: left alone
        QCOMPARE(sheet.text("G7"), QStringLiteral("P3"));
        QVERIFY(sheet.style("C6").thinBorder);
        QCOMPARE(sheet.style("B6").horizontal, QStringLiteral("center"));
    }

    void sheetFailures_data()
    {
        QTest::addColumn<QString>("tempFolder");
        QTest::newRow("folder cannot be made") << "file/Temp";
        QTest::newRow("file cannot be written at close") << "/proc/self";
    }
    void sheetFailures()
    {
        QFETCH(QString, tempFolder);
        QFile blocker(m_store->folder() + QStringLiteral("/file"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        AppContext &ctx = m_store->context();
        ctx.tempFolder = tempFolder.startsWith(QLatin1Char('/')) ? tempFolder : m_store->folder() + QLatin1Char('/') + tempFolder;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Export failed")));
        const ReportFile file = ExportGridToExcel(ctx, teacherWeek(1), 5, 4, TeacherTimeTable::title(), QString(), false);
        QCOMPARE(file.error, exportFailedText());
        QVERIFY(file.path.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_ReportFrame)
#include "tst_reportframe.moc"
