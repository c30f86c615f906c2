#include "generationfixture.h"
#include "phaseonechecks.h"

#include <QTest>

class tst_PhaseOne : public QObject
{
    Q_OBJECT

private slots:
    // Uniform periods walk the week in order with no draw; a day that fails is lost, and a period beyond
    // the short last day leaves that day to the random remainder.
    void uniformPeriods_data()
    {
        QTest::addColumn<int>("periods");
        QTest::addColumn<int>("periodCode");
        QTest::addColumn<int>("busyDay");
        QTest::addColumn<QStringList>("slots");
        QTest::addColumn<int>("open");
        QTest::addColumn<int>("draws");
        QTest::newRow("whole week") << 5 << 2 << 0 << QStringList{"1:2", "2:2", "3:2", "4:2", "5:2"} << 0 << 0;
        QTest::newRow("taken day is lost") << 5 << 2 << 3 << QStringList{"1:2", "2:2", "4:2", "5:2"} << 1 << 0;
        QTest::newRow("fewer than the days") << 3 << 2 << 0 << QStringList{"1:2", "2:2", "3:2"} << 0 << 0;
        QTest::newRow("later day after a failure") << 3 << 2 << 2 << QStringList{"1:2", "3:2", "4:2"} << 0 << 0;
        QTest::newRow("beyond the short last day") << 5 << 5 << 0
                                                   << QStringList{"1:5", "2:5", "3:5", "4:5", "5:1"} << 0 << 2;
    }
    void uniformPeriods()
    {
        QFETCH(int, periods);
        QFETCH(int, periodCode);
        QFETCH(int, busyDay);
        TestStore store;
        buildGenerationSchool(store);
        allot(store, 1, 1, 1, 1, periods);
        allot(store, 1, 2, 1, 1, 2);
        store.exec(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 1, DivisionCode = 1, SubjectCode = 1, "
                                  "PeriodCode = ? WHERE TeacherCode = 1"), {periodCode});
        // The teacher is held elsewhere at the uniform period: the check of the class passes, the day fails.
        if (busyDay)
            place(store, 2, 1, busyDay, periodCode, 1, 1, "M");
        store.exec(QStringLiteral("INSERT INTO AGP1Master VALUES ('YES')"));
        // Draws of the random remainder, used only when the period is beyond the short last day: day 5, period 1.
        ListRandom random({0.9, 0.0});
        GenerationEngine engine(store.db(), random);
        engine.openPhaseOne();
        YesMessages messages;
        const GenerationResult result = engine.processPhaseOne(messages, {});
        QCOMPARE(result.outcome, GenerationResult::Outcome::Completed);
        QTEST(slotsOf(store, 1, 1, 1, 1), "slots");
        QTEST(result.openPeriods, "open");
        QTEST(random.used(), "draws");
        QCOMPARE(store.scalar(QStringLiteral("SELECT PIStatus FROM TTCode")).toString(), QStringLiteral("Y"));
        QCOMPARE(store.scalar(QStringLiteral("SELECT SUM(P1Insert + P2Insert) FROM AutoGenPhase1")).toInt(),
                 result.openPeriods);
        QVERIFY(messages.texts.contains(QStringLiteral("Auto Generation Phase I Completed")));
    }

    // A "No" period of a teacher is refused on every day, in both passes.
    void teacherSettingRefusesItsPeriod()
    {
        TestStore store;
        buildGenerationSchool(store);
        allot(store, 1, 1, 1, 1, 5);
        store.exec(QStringLiteral("INSERT INTO AGP1Master VALUES ('NO')"));
        SchoolCalendar calendar = store.context().session.calendar;
        PhaseOneChecks::CreateTeacherDetails(store.db(), calendar);
        store.exec(QStringLiteral("INSERT INTO AGP1TeacherDetails VALUES ('Teacher 1', 'No', '', '', '', '', '', '1', "
                                  "'30', '1', '1')"));
        ListRandom random({0.0, 0.4});
        GenerationEngine engine(store.db(), random);
        engine.openPhaseOne();
        YesMessages messages;
        engine.processPhaseOne(messages, {});
        QCOMPARE(slotsOf(store, 1, 1, 1, 1), (QStringList{"1:3", "2:3", "3:3", "4:3", "5:2"}));
        QCOMPARE(store.scalar(QStringLiteral("SELECT groupno FROM AutoGenPhase1")).toInt(), 2);
    }

    // A combined subject unit is tested member by member and written whole, or not at all.
    void combinedUnitPlacedWhole()
    {
        TestStore store;
        buildGenerationSchool(store);
        allot(store, 1, 1, 1, 1, 2, 1);
        allot(store, 2, 1, 2, 2, 2, 1);
        allot(store, 2, 2, 1, 2, 1);
        place(store, 2, 1, 1, 1, 2, 2, "M"); // the second member's teacher is busy at day 1, period 1
        store.exec(QStringLiteral("INSERT INTO AGP1Master VALUES ('NO')"));
        ListRandom random({0.0, 0.0, 0.0, 0.2, 0.2, 0.5});
        GenerationEngine engine(store.db(), random);
        engine.openPhaseOne();
        YesMessages messages;
        const GenerationResult result = engine.processPhaseOne(messages, {});
        QCOMPARE(slotsOf(store, 1, 1, 1, 1), (QStringList{"1:2", "2:4"}));
        QCOMPARE(slotsOf(store, 2, 1, 2, 2), (QStringList{"1:2", "2:4"}));
        QCOMPARE(result.openPeriods, 0);
        QCOMPARE(random.used(), 6);
    }

    void uniformConditionStopsProcess()
    {
        TestStore store;
        buildGenerationSchool(store);
        allot(store, 1, 1, 1, 1, 5);
        allot(store, 2, 1, 1, 2, 5);
        store.exec(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 1, DivisionCode = 1, SubjectCode = 1, "
                                  "PeriodCode = 2 WHERE TeacherCode = 1"));
        place(store, 1, 1, 3, 2, 2, 2, "M"); // the class's own slot is taken by another subject
        store.exec(QStringLiteral("INSERT INTO AGP1Master VALUES ('YES')"));
        LcgRandom random;
        GenerationEngine engine(store.db(), random);
        engine.openPhaseOne();
        YesMessages messages;
        const GenerationResult result = engine.processPhaseOne(messages, {});
        QCOMPARE(result.outcome, GenerationResult::Outcome::Stopped);
        QCOMPARE(messages.texts.last(), QStringLiteral("Uniform Period Condition Is Not Satisfied For The Following "
                                                       "Classes\nClass Name : I    Division Name : A\n"));
        QCOMPARE(store.count(QStringLiteral("TimeTable")), 1);
    }
};

QTEST_GUILESS_MAIN(tst_PhaseOne)
#include "tst_phaseone.moc"
