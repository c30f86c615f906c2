#include "excelexport.h"
#include "gridtextfile.h"
#include "manualentry.h"
#include "sampleschool.h"
#include "scriptedmessages.h"
#include "sheetreader.h"
#include "sql.h"
#include "teachertimetable.h"
#include "teststore.h"

#include <QFile>
#include <QSqlQuery>
#include <QTest>

namespace {

// Clicks the week full as a careful person would who has the week worked out beforehand: each entered row
// into the slots of the week the small sample school is built around. A click on a group's row places the
// whole group, so a member whose slot is already filled is passed over. Returns the periods left open.
int fillByHand(TestStore &store, ManualEntry &entry)
{
    const QSqlDatabase db = store.db();
    for (const SampleSchool::WeekPeriod &p : SampleSchool::plantedWeek(SampleSchool::Size::Small)) {
        if (!p.cc.isEmpty() || !p.ct.isEmpty())
            continue; // a generated row comes with its group's main row
        const bool placed = Sql(db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE ClassCode = ? AND DivisionCode = ? "
                                                          "AND DayCode = ? AND PeriodCode = ? AND SubjectCode = ? AND "
                                                          "TeacherCode = ?"),
                                           {p.classCode, p.division, p.day, p.period, p.subject, p.teacher});
        if (placed)
            continue;
        if (entry.place({p.classCode, p.division, p.subject, p.teacher}, {p.day, p.period}) != ManualEntry::Result::Placed)
            break;
    }
    return store.scalar(QStringLiteral("SELECT SUM(NoOfSectionPeriods) FROM WorkAllotmentEntry")).toInt()
        - store.count(QStringLiteral("TimeTable"));
}
}

// A week made by hand on the small sample school, then printed and exported as the Teacher Time Table does.
class tst_HandMadeWeek : public QObject
{
    Q_OBJECT

private slots:
    void weekByHandThenPrintedAndExported()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        SampleSchool::build(store.db(), SampleSchool::Size::Small);
        store.context().session.calendar.load(store.db());
        const SchoolCalendar &calendar = store.context().session.calendar;
        ManualEntry entry(store.db(), calendar, messages);

        QCOMPARE(fillByHand(store, entry), 0);
        QVERIFY2(messages.done(), messages.report()); // no click was refused or questioned
        // Every allotment, generated rows included, holds exactly its periods, and a group's rows stand together.
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM WorkAllotmentEntry w WHERE NoOfSectionPeriods <> "
                                             "(SELECT COUNT(*) FROM TimeTable t WHERE t.TeacherCode = w.TeacherCode AND "
                                             "t.ClassCode = w.ClassCode AND t.DivisionCode = w.DivisionCode AND "
                                             "t.SubjectCode = w.SubjectCode)")).toInt(),
                 0);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM WorkAllotmentEntry w WHERE w.CCGroupNo > 0 AND "
                                             "(SELECT COUNT(*) FROM TimeTable t WHERE t.TeacherCode = w.TeacherCode AND "
                                             "t.ClassCode = w.ClassCode AND t.DivisionCode = w.DivisionCode AND "
                                             "t.SubjectCode = w.SubjectCode) <> (SELECT COUNT(*) FROM TimeTable t "
                                             "JOIN WorkAllotmentEntry m ON m.TeacherCode = t.TeacherCode AND "
                                             "m.ClassCode = t.ClassCode AND m.DivisionCode = t.DivisionCode AND "
                                             "m.SubjectCode = t.SubjectCode WHERE m.CCGroupNo = w.CCGroupNo "
                                             "AND IFNULL(m.CCSystem, '') = '')")).toInt(),
                 0);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE Manual <> 'M'")).toInt(), 0);

        // The busiest teacher's week to the text file.
        const int teacher = store.scalar(QStringLiteral("SELECT TeacherCode FROM TimeTable GROUP BY TeacherCode "
                                                        "ORDER BY COUNT(DISTINCT DayCode * 100 + PeriodCode) DESC LIMIT 1"))
                                .toInt();
        const int taught = store.scalar(QStringLiteral("SELECT COUNT(DISTINCT DayCode * 100 + PeriodCode) FROM TimeTable "
                                                      "WHERE TeacherCode = ?"),
                                       {teacher})
                              .toInt();
        const QString name = store.scalar(QStringLiteral("SELECT TeacherName FROM TeacherMaster WHERE TeacherCode = ?"),
                                          {teacher})
                                 .toString();
        ReportGrid grid = TeacherTimeTable::frame(store.db(), calendar);
        QCOMPARE(TeacherTimeTable::fill(store.db(), teacher, grid), taught);
        const int lastColumn = TeacherTimeTable::dayCodeColumn(grid) - 1;
        QString error;
        const QStringList lines = GridTextFile::weekLines(LoadSchoolHeading(store.db()), TeacherTimeTable::title(),
                                                         name.toUpper(), grid, lastColumn, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        const ReportFile file = GridTextFile::write(store.folder(), name, lines);
        QVERIFY2(file.ok(), qPrintable(file.error));
        QFile text(file.path);
        QVERIFY(text.open(QIODevice::ReadOnly | QIODevice::Text));
        const QStringList written = QString::fromUtf8(text.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        const int width = GridTextFile::separatorWidth(calendar.periodsPerDay);
        // Heading, title, name and separator, then two lines and a separator per grid row.
        QCOMPARE(written.size(), 3 + 1 + 1 + 1 + 3 * (calendar.noOfWorkingDays + 1));
        QCOMPARE(written.at(4), name.toUpper());
        QCOMPARE(written.at(5), QString(width, QLatin1Char('-')));
        int filledCells = 0;
        for (int row = 0; row <= calendar.noOfWorkingDays; ++row) {
            const QString first = written.at(6 + 3 * row);
            QCOMPARE(first.size(), width + 1); // a table line is one longer than the separator
            QCOMPARE(written.at(8 + 3 * row), QString(width, QLatin1Char('-')));
            if (row > 0)
                for (const QString &field : first.split(QLatin1Char('|')).mid(2, calendar.periodsPerDay))
                    filledCells += field.trimmed().isEmpty() ? 0 : 1;
        }
        QCOMPARE(filledCells, taught);

        // And to the spreadsheet: the heading rows merged over the week, one grid cell per period taught.
        const ReportFile sheet = ExportGridToExcel(store.context(), grid, grid.rowCount() - 1, lastColumn,
                                                   TeacherTimeTable::title(), TeacherTimeTable::subtitle(name), false);
        QVERIFY2(sheet.ok(), qPrintable(sheet.error));
        const SheetXml xml = SheetXml::read(sheet.path);
        QVERIFY2(xml.error.isEmpty(), qPrintable(xml.error));
        const QChar lastLetter(u'A' + lastColumn);
        for (int row = 1; row <= 5; ++row)
            QVERIFY2(xml.merges.contains(QStringLiteral("A%1:%2%1").arg(QString::number(row), QString(lastLetter))), qPrintable(xml.merges.join(',')));
        QCOMPARE(xml.text(QStringLiteral("A4")), TeacherTimeTable::title());
        int sheetCells = 0;
        for (int row = 7; row < 7 + calendar.noOfWorkingDays; ++row)
            for (int column = 1; column <= lastColumn; ++column)
                sheetCells += xml.text(QStringLiteral("%1%2").arg(QString(QChar(u'A' + column)), QString::number(row))).trimmed().isEmpty() ? 0 : 1;
        QCOMPARE(sheetCells, taught);
        QCOMPARE(xml.style(QStringLiteral("B7")).numFmtId, 49);
    }
};

QTEST_MAIN(tst_HandMadeWeek)
#include "tst_handmadeweek.moc"
