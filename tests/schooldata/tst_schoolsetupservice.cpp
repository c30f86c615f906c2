#include "schoolsetupservice.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QTest>

namespace {
// A complete entry for a school of `days` days and `periods` periods of 40 minutes.
SchoolSetupRecord entry(int days, int periods, int lastDay, int morning, int firstDay = 1)
{
    return {QStringLiteral("Model School"), QStringLiteral("Main Road"), QString(), 1, 1, QStringLiteral("682001"),
            days, periods, lastDay, morning, firstDay};
}

QList<PeriodRow> periodsOf(int count, int minutes = 40)
{
    QList<PeriodRow> rows;
    SchoolSetupService::resizePeriods(rows, count);
    for (PeriodRow &row : rows)
        row.minutes = minutes;
    return rows;
}

// Class I-A, a subject and a teacher, so that timetable and substitute rows have their partners.
void addClassAndTeacher(TestStore &store, int weeklyPeriods = 30)
{
    store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
    store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'ENG')"));
    store.addTeacher({1, QStringLiteral("Anu"), QStringLiteral("AN"), weeklyPeriods});
}

void place(TestStore &store, int day, int period, const char *manual = "M")
{
    store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (1, 1, ?, ?, 1, 1, ?, '', '', '')"),
               {day, period, QString::fromLatin1(manual)});
}

const QString PeriodsInUse =
    QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods Per Day'\n"
                   "So You Cannot Reduce 'Periods Per Day'");
}

class tst_SchoolSetupService : public QObject
{
    Q_OBJECT

private slots:
    // The chosen day gets DayCode 1 and the others follow in weekday order, Sunday wrapping to Monday.
    void saveRotatesTheWeek_data()
    {
        QTest::addColumn<int>("firstDay");
        QTest::addColumn<QList<int>>("dayCodes"); // DayCode of Monday .. Sunday
        QTest::newRow("Monday") << 1 << QList<int>{1, 2, 3, 4, 5, 6, 7};
        QTest::newRow("Wednesday") << 3 << QList<int>{6, 7, 1, 2, 3, 4, 5};
        QTest::newRow("Sunday") << 7 << QList<int>{2, 3, 4, 5, 6, 7, 1};
    }
    void saveRotatesTheWeek()
    {
        QFETCH(int, firstDay);
        QFETCH(QList<int>, dayCodes);
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        SchoolSetupService service(store.db());
        service.save(entry(6, 8, 8, 4, firstDay), periodsOf(8), false);
        // A second save from the rotated table starts again from the weekday, not from the old codes.
        service.save(entry(6, 8, 8, 4, firstDay), periodsOf(8), false);
        QList<int> stored;
        for (int day = 1; day <= 7; ++day)
            stored << store.scalar(QStringLiteral("SELECT DayCode FROM DayMaster WHERE OriginalDayCode = ?"), {day})
                          .toInt();
        QCOMPARE(stored, dayCodes);
        QCOMPARE(service.load()->firstDay, firstDay);
        QCOMPARE(store.count(QStringLiteral("SchoolSetup")), 1);
    }

    // Periods beyond the new count go, existing ones are updated, new ones inserted; the code-0 row stays.
    void saveWritesThePeriodsOfTheDay()
    {
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        SchoolSetupService service(store.db());
        service.save(entry(5, 6, 6, 3), periodsOf(6, 50), false);
        QCOMPARE(store.scalar(QStringLiteral("SELECT group_concat(PeriodCode || ':' || Minutes) FROM PeriodDuration")),
                 QVariant(QStringLiteral("0:0,1:50,2:50,3:50,4:50,5:50,6:50")));
        service.save(entry(5, 7, 7, 3), periodsOf(7, 45), false);
        QCOMPARE(service.periods().last().periodName, QStringLiteral("P7"));
        QCOMPARE(SchoolSetupService::totalMinutes(service.periods()), 7 * 45);
    }

    // What the stored rows still use bounds how far the week may shrink.
    void usageRefusesShrinkingTheWeek_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("periods");
        QTest::addColumn<int>("lastDay");
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::newRow("fewer days than in use") << 2 << 8 << 8 << int(SetupField::NoOfWorkingDays)
            << QStringLiteral("Timetable Entry Exists For More Days Than The Entered 'No. Of Working Days'\n"
                              "So You Cannot Reduce 'No. Of Working Days'");
        QTest::newRow("fewer periods than in use") << 5 << 6 << 6 << int(SetupField::PeriodsPerDay) << PeriodsInUse;
        QTest::newRow("shorter last day than in use") << 5 << 8 << 5 << int(SetupField::PeriodsOnLastWorkingDay)
            << QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods On Last Working Day'\n"
                              "So You Cannot Reduce 'Periods On Last Working Day'");
        QTest::newRow("teacher's load above the week") << 4 << 8 << 8 << int(SetupField::NoOfWorkingDays)
            << QStringLiteral("'No.Of Working Periods' In Teacher Master Is Greater Than 'Periods Per Week' \n"
                              "This Is Due To The Changes You Make In This Screen \n"
                              "Without Reducing 'No.Of Working Periods' In Teacher Master, You Cannot Save These Modifications");
        QTest::newRow("unchanged week") << 5 << 8 << 8 << int(SetupField::None) << QString();
    }
    void usageRefusesShrinkingTheWeek()
    {
        QFETCH(int, days);
        QFETCH(int, periods);
        QFETCH(int, lastDay);
        QFETCH(int, field);
        QFETCH(QString, text);
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        addClassAndTeacher(store, 36); // 36 periods fit 5 days of 8, not 4
        place(store, 1, 1);
        place(store, 2, 3);
        place(store, 3, 2);
        place(store, 5, 7);
        ScriptedMessages messages;
        SchoolSetupService service(store.db());
        QList<PeriodRow> rows = periodsOf(periods);
        const SetupCheck check = service.validate(entry(days, periods, lastDay, 4), rows, service.load(), messages);
        QCOMPARE(int(check.field), field);
        QCOMPARE(check.text, text);
        QVERIFY2(messages.done(), messages.report());
    }

    // A class teacher's uniform period counts as in use even before anything is placed.
    void classTeacherPeriodIsInUse()
    {
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        addClassAndTeacher(store);
        store.exec(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 1, DivisionCode = 1, SubjectCode = 1, "
                                  "PeriodCode = 7 WHERE TeacherCode = 1"));
        SchoolSetupService service(store.db());
        QCOMPARE(service.periodReductionRefusal(6), PeriodsInUse);
        QCOMPARE(service.periodReductionRefusal(7), QString());
    }

    // Substitutes in a dropped period: No keeps everything, Yes drops every substitute row with the Save.
    void substitutesOfDroppedPeriods()
    {
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        addClassAndTeacher(store);
        for (int sa = 1; sa <= 2; ++sa)
            store.exec(QStringLiteral("INSERT INTO SubstituteAllotment VALUES (?, '2024-06-03', 1, 1, 1, ?, 1, 1, 1, "
                                      "'F', 1)"),
                       {sa, sa == 1 ? 2 : 8});
        const QString question =
            QStringLiteral("'Substitue Allotement' Entry Exists For The Reduced 'Periods Per Day'\n"
                           "Without Deleting Those 'Substitute Allotment' Entries You Cannot Save The Modifications\n"
                           "Do You Want To Delete 'Substitute Allotment' Entries And Save The Changes ?");
        ScriptedMessages messages;
        SchoolSetupService service(store.db());
        QList<PeriodRow> rows = periodsOf(7);
        messages.expectQuestion(question, false);
        QVERIFY(service.validate(entry(5, 7, 7, 4), rows, service.load(), messages).stopped);

        messages.expectQuestion(question, true);
        const SetupCheck check = service.validate(entry(5, 7, 7, 4), rows, service.load(), messages);
        QVERIFY(check.passed());
        QVERIFY(check.deleteSubstitutes);
        QCOMPARE(store.count(QStringLiteral("SubstituteAllotment")), 2);
        service.save(entry(5, 7, 7, 4), rows, check.deleteSubstitutes);
        QCOMPARE(store.count(QStringLiteral("SubstituteAllotment")), 0);
        QVERIFY2(messages.done(), messages.report());
    }

    void generatedTimetableLocksMorningAndFirstDay()
    {
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        addClassAndTeacher(store);
        SchoolSetupService service(store.db());
        QVERIFY(!service.firstDayLocked());
        place(store, 1, 1, "M");
        QVERIFY(service.firstDayLocked());
        QVERIFY(!service.autoGenerated());
        place(store, 2, 1, "2");
        QVERIFY(service.autoGenerated());
    }
};

QTEST_GUILESS_MAIN(tst_SchoolSetupService)
#include "tst_schoolsetupservice.moc"
