#include "schoolcalendar.h"
#include "teststore.h"

#include <QTest>

class tst_SchoolCalendar : public QObject
{
    Q_OBJECT

private slots:
    void periodsPerWeek_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("periods");
        QTest::addColumn<int>("lastDay");
        QTest::addColumn<int>("expected");
        QTest::newRow("last day as long as the others") << 5 << 8 << 8 << 40;
        QTest::newRow("6 days, 8 periods, 5 on the last day") << 6 << 8 << 5 << 45;
        QTest::newRow("last day longer counts as ordinary") << 5 << 7 << 9 << 35;
        QTest::newRow("one day only, shorter") << 1 << 8 << 4 << 4;
        QTest::newRow("seven days of ten, last of one") << 7 << 10 << 1 << 61;
    }

    void periodsPerWeek()
    {
        QFETCH(int, days);
        QFETCH(int, periods);
        QFETCH(int, lastDay);
        QFETCH(int, expected);
        TestStore store;
        store.setUpSchool(days, periods, lastDay, 1);
        const SchoolCalendar &calendar = store.context().session.calendar;
        QVERIFY(calendar.schoolSetUp);
        QCOMPARE(int(calendar.periodsPerWeek), expected);
        int placeable = 0;
        for (int day = 1; day <= days; ++day)
            for (int period = 1; period <= periods; ++period)
                placeable += calendar.isPeriod(day, period) ? 1 : 0;
        QCOMPARE(placeable, expected);
    }

    void lastDayAndMorning()
    {
        TestStore store;
        store.setUpSchool(6, 8, 5, 4);
        const SchoolCalendar &calendar = store.context().session.calendar;
        QCOMPARE(calendar.periodsOn(1), 8);
        QCOMPARE(calendar.periodsOn(6), 5);
        QCOMPARE(calendar.periodsOn(7), 0);
        QVERIFY(calendar.isPeriod(6, 5));
        QVERIFY(!calendar.isPeriod(6, 6));
        QVERIFY(!calendar.isPeriod(1, 0));
        QVERIFY(calendar.isMorning(4));
        QVERIFY(!calendar.isMorning(5));
        QCOMPARE(SchoolCalendar::periodNames(store.db()),
                 (QStringList{"P1", "P2", "P3", "P4", "P5", "P6", "P7", "P8"}));
    }

    // Saving School Setup with Wednesday first renumbers DayMaster; the grid rows follow DayCode.
    void weekStartingWednesday()
    {
        TestStore store;
        store.setUpSchool(6, 8, 8, 4);
        // Wednesday (original 3) becomes day 1, and the others follow, wrapping from 7 to 1.
        store.exec(QStringLiteral("UPDATE DayMaster SET DayCode = ((OriginalDayCode - 3 + 7) % 7) + 1"));
        const QStringList names = store.context().session.calendar.dayNames(store.db());
        QCOMPARE(names, (QStringList{"Wednesday", "Thursday", "Friday", "Saturday", "Sunday", "Monday"}));
        QCOMPARE(store.scalar(QStringLiteral("SELECT DayCode FROM DayMaster WHERE DayName = 'Monday'")),
                 QVariant(6));
    }

    void loadWithoutSchoolKeepsTheNumbers()
    {
        TestStore store;
        store.setUpSchool(5, 7, 7, 4);
        SchoolCalendar calendar = store.context().session.calendar;
        store.exec(QStringLiteral("DELETE FROM SchoolSetup"));
        calendar.load(store.db());
        QVERIFY(!calendar.schoolSetUp);
        QCOMPARE(int(calendar.periodsPerWeek), 35);

        SchoolCalendar fresh;
        fresh.load(store.db());
        QVERIFY(!fresh.schoolSetUp);
        QCOMPARE(int(fresh.periodsPerWeek), 0);
    }
};

QTEST_GUILESS_MAIN(tst_SchoolCalendar)
#include "tst_schoolcalendar.moc"
