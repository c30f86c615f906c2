#include "placer.h"

#include <QTest>

namespace {
SchoolSnapshot week(int days, int periods, int lastDay, int morning)
{
    SchoolSnapshot s;
    s.calendar.noOfWorkingDays = qint16(days);
    s.calendar.periodsPerDay = qint16(periods);
    s.calendar.periodsOnLastWorkingDay = qint16(lastDay);
    s.calendar.periodsInMorningSession = qint16(morning);
    s.calendar.dayCode = 1;
    s.calendar.periodsPerWeek = SchoolCalendar::periodsPerWeekOf(days, periods, lastDay);
    return s;
}
}

class tst_PlacementRules : public QObject
{
    Q_OBJECT

private slots:
    // In a seven-day week with a short last day only day 7 sets P: the other days keep the P before,
    // 0 at the start of a routine (and P 0 draws period 1).
    void periodsOfDayCarriesInSevenDayWeek()
    {
        const SchoolSnapshot s = week(7, 6, 4, 3);
        TimetableState tt;
        tt.reset(s);
        ListRandom random({0.5});
        RunControl control;
        Placer placer(s, tt, random, control);
        placer.periodsOfDay(3);
        QCOMPARE(placer.p(), 0);
        QCOMPARE(random.draw(placer.p()), 1);
        placer.periodsOfDay(7);
        QCOMPARE(placer.p(), 4);
        placer.periodsOfDay(2);
        QCOMPARE(placer.p(), 4);

        const SchoolSnapshot six = week(6, 6, 4, 3);
        Placer shortWeek(six, tt, random, control);
        shortWeek.periodsOfDay(6);
        QCOMPARE(shortWeek.p(), 4);
        shortWeek.periodsOfDay(2);
        QCOMPARE(shortWeek.p(), 6);
    }

    void spreadFlags_data()
    {
        QTest::addColumn<int>("lastDay");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("daily");
        QTest::addColumn<bool>("twice");
        QTest::newRow("fewer than the days") << 6 << 4 << false << false;
        QTest::newRow("exactly the days") << 6 << 5 << true << false;
        QTest::newRow("one short of twice, full week") << 6 << 9 << true << false;
        QTest::newRow("twice the days") << 6 << 10 << true << true;
        QTest::newRow("short last day spares a double") << 4 << 9 << true << true;
        QTest::newRow("short last day, one short") << 4 << 8 << true << false;
    }
    void spreadFlags()
    {
        QFETCH(int, lastDay);
        QFETCH(int, count);
        const SchoolSnapshot s = week(5, 6, lastDay, 3);
        TimetableState tt;
        tt.reset(s);
        ListRandom random({0.5});
        RunControl control;
        Placer placer(s, tt, random, control);
        bool daily = false, twice = false;
        placer.flags(count, &daily, &twice);
        QTEST(daily, "daily");
        QTEST(twice, "twice");
    }

    // The candidate counts among the free periods: type 2 needs another free one in the same session.
    void keepsFreePeriod_data()
    {
        QTest::addColumn<int>("freeType");
        QTest::addColumn<int>("candidate");
        QTest::addColumn<bool>("keeps");
        QTest::newRow("type 2, last free of the morning") << 2 << 3 << false;
        QTest::newRow("type 2, afternoon has room") << 2 << 4 << true;
        QTest::newRow("type 1, day has room") << 1 << 3 << true;
        QTest::newRow("type 3, needs none") << 3 << 3 << true;
        QTest::newRow("type 4 refuses") << 4 << 4 << false;
        QTest::newRow("no row refuses") << 0 << 4 << false;
    }
    void keepsFreePeriod()
    {
        QFETCH(int, freeType);
        QFETCH(int, candidate);
        SchoolSnapshot s = week(5, 6, 4, 3);
        if (freeType)
            s.freeTypes.insert(7, freeType);
        s.timetable = {{1, 1, 2, 1, 1, 7, QStringLiteral("M"), {}, {}}, {1, 1, 2, 2, 1, 7, QStringLiteral("M"), {}, {}}};
        TimetableState tt;
        tt.reset(s);
        ListRandom random({0.5});
        RunControl control;
        Placer placer(s, tt, random, control);
        placer.periodsOfDay(2);
        QTEST(placer.keepsFreePeriod(7, 2, candidate), "keeps");
    }
};

QTEST_GUILESS_MAIN(tst_PlacementRules)
#include "tst_placementrules.moc"
