#include "reportrenderer.h"

#include <QPageSize>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

// The printed-report renderer, read back through the text of the PDF it writes.
class tst_ReportRenderer : public QObject
{
    Q_OBJECT

    static SchoolHeading school()
    {
        return {QStringLiteral("Green Valley High School"), QStringLiteral("12 Lake Road, Kottayam"),
                QStringLiteral("Kottayam, Kerala-686001")};
    }

    // The pages of the PDF as pdftotext lays them out.
    static QStringList pdfPages(const ReportRenderer &renderer)
    {
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("report.pdf"));
        QString error;
        if (!renderer.writePdf(pdf, &error)) {
            qWarning("%s", qPrintable(error));
            return {};
        }
        QProcess text;
        text.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        if (!text.waitForFinished() || text.exitCode() != 0)
            return {};
        QStringList pages = QString::fromUtf8(text.readAllStandardOutput()).split(QLatin1Char('\f'));
        if (!pages.isEmpty() && pages.last().trimmed().isEmpty())
            pages.removeLast();
        return pages;
    }

    static ReportDocument grouped(int rowsPerGroup)
    {
        ReportDocument document;
        document.title = QStringLiteral("Work Allotment Details");
        document.school = school();
        document.subtitles = {QStringLiteral("Teacher Wise")};
        document.columns = {{QStringLiteral("Class"), 8}, {QStringLiteral("Subject"), 20},
                            {QStringLiteral("Periods"), 7, Qt::AlignRight}};
        document.rowNumbers = true;
        for (const QString &teacher : {QStringLiteral("Anita Rao"), QStringLiteral("Joseph Mathew")}) {
            ReportGroup group{teacher, {}, {}};
            for (int row = 0; row < rowsPerGroup; ++row)
                group.rows << QStringList{QStringLiteral("%1 A").arg(5 + row % 5), QStringLiteral("Subject %1").arg(row),
                                          QString::number(row % 7 + 1)};
            group.footer = QStringLiteral("Total Periods : %1").arg(rowsPerGroup * 4);
            document.groups << group;
        }
        return document;
    }

private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("pdftotext (poppler-utils) is needed to read the PDFs back");
    }

    void groupedReportOnOnePage()
    {
        const QStringList pages = pdfPages(ReportRenderer(grouped(3)));
        QCOMPARE(pages.size(), 1);
        const QString page = pages.first();
        for (const QString &expected : {QStringLiteral("Green Valley High School"), QStringLiteral("12 Lake Road, Kottayam"),
                                        QStringLiteral("Work Allotment Details"), QStringLiteral("Teacher Wise"),
                                        QStringLiteral("Anita Rao"), QStringLiteral("Joseph Mathew"),
                                        QStringLiteral("Total Periods : 12"), QStringLiteral("Sr. No."),
                                        QStringLiteral("Page 1 of 1"), QStringLiteral("Printed On ")})
            QVERIFY2(page.contains(expected), qPrintable(expected + QStringLiteral(" missing in:\n") + page));
        // Each group numbers its rows from 1.
        QVERIFY2(page.count(QRegularExpression(QStringLiteral("(?m)^\\s*1\\s+5 ?A\\s+Subject 0\\s+1\\s*$"))) == 2,
                 qPrintable(page));
        QVERIFY(page.indexOf(QStringLiteral("Anita Rao")) < page.indexOf(QStringLiteral("Joseph Mathew")));
    }

    void longReportRepeatsItsHeadingOnEveryPage()
    {
        const QStringList pages = pdfPages(ReportRenderer(grouped(60)));
        QVERIFY2(pages.size() >= 3, qPrintable(QString::number(pages.size())));
        for (int page = 0; page < pages.size(); ++page) {
            const QString &text = pages.at(page);
            QVERIFY(text.contains(QStringLiteral("Green Valley High School")));
            QVERIFY(text.contains(QStringLiteral("Work Allotment Details")));
            QVERIFY2(text.contains(QStringLiteral("Subject")) && text.contains(QStringLiteral("Periods")),
                     qPrintable(text));
            QVERIFY(text.contains(QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages.size())));
        }
        const QString all = pages.join(QLatin1Char('\n'));
        QVERIFY(all.contains(QRegularExpression(QStringLiteral("(?m)^\\s*60\\s+"))));
        QCOMPARE(all.count(QStringLiteral("Total Periods : 240")), 2);
    }

    void orientationFollowsTheColumns_data()
    {
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("orientation");
        QTest::newRow("a list fits upright") << 4 << int(QPageLayout::Portrait);
        QTest::newRow("a week of periods turns the page") << 16 << int(QPageLayout::Landscape);
    }

    void orientationFollowsTheColumns()
    {
        QFETCH(int, columns);
        QFETCH(int, orientation);
        ReportDocument document;
        for (int column = 0; column < columns; ++column)
            document.columns << ReportColumn{QString::number(column + 1), 8};
        QCOMPARE(int(ReportRenderer(document).orientationFor(QPageSize(QPageSize::A4))), orientation);
    }

    // A grid too wide for the paper goes across pages by whole days, the class column beside each.
    void wideGridSplitsByDays()
    {
        ReportDocument document;
        document.title = QStringLiteral("All Classes Time Table");
        document.school = school();
        document.columns << ReportColumn{QStringLiteral("Class"), 6};
        document.fixedColumns = 1;
        const QStringList days{QStringLiteral("Monday"), QStringLiteral("Tuesday"), QStringLiteral("Wednesday"),
                               QStringLiteral("Thursday"), QStringLiteral("Friday"), QStringLiteral("Saturday")};
        for (const QString &day : days) {
            document.bands << ReportBand{day, 8};
            for (int period = 1; period <= 8; ++period)
                document.columns << ReportColumn{QString::number(period), 5, Qt::AlignHCenter};
        }
        ReportGroup group;
        for (int row = 0; row < 12; ++row) {
            QStringList cells{QStringLiteral("%1 B").arg(row + 1)};
            for (int cell = 0; cell < 48; ++cell)
                cells << QStringLiteral("M-%1").arg(cell % 8 + 1);
            group.rows << cells;
        }
        document.groups << group;
        const QStringList pages = pdfPages(ReportRenderer(document));
        QVERIFY2(pages.size() >= 2, qPrintable(QString::number(pages.size())));
        QStringList seen;
        for (const QString &page : pages) {
            QVERIFY(page.contains(QStringLiteral("Class")));
            QVERIFY(page.contains(QStringLiteral("12 B")));
            for (const QString &day : days)
                if (page.contains(day))
                    seen << day;
        }
        QCOMPARE(seen, days); // every day once, in order: no day cut across pages
    }
};

QTEST_MAIN(tst_ReportRenderer)
#include "tst_reportrenderer.moc"
