#include "completionstore.h"
#include "generationfixture.h"
#include "rulecheck.h"
#include "sampleschool.h"

#include <QTest>

namespace {

void allotGroup(TestStore &store, int teacher, int classCode, int division, int subject, int periods, int ccGroup)
{
    store.exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', ?, '', 0, ?, 0, '', '')"),
               {teacher, classCode, division, subject, periods, ccGroup ? "CC" : "", ccGroup});
}

QString week(TestStore &store)
{
    return store.scalar(QStringLiteral("SELECT group_concat(x, ' ') FROM (SELECT ClassCode || DivisionCode || ':' || TeacherCode "
                                       "|| '@' || DayCode || '.' || PeriodCode || Manual AS x FROM TimeTable ORDER BY rowid)"))
        .toString();
}

}

class tst_Completion : public QObject
{
    Q_OBJECT

private slots:
    void twoStepChainMovesOnePeriod()
    {
        // Two days of two periods. Teacher 2 is held in II-A at period 1 on both days, so his two periods in
        // I-A must take period 2; the generator gave period 2 of day 1 to teacher 1.
        TestStore store;
        buildCompletionSchool(store, 2, 2, 1, 2);
        allot(store, 1, 1, 1, 1, 2);
        allot(store, 2, 1, 1, 2, 2);
        allot(store, 2, 2, 1, 2, 2);
        place(store, 2, 1, 1, 1, 2, 2, "M");
        place(store, 2, 1, 2, 1, 2, 2, "M");
        place(store, 1, 1, 1, 2, 1, 1, "2");
        place(store, 1, 1, 2, 1, 1, 1, "2");
        place(store, 1, 1, 2, 2, 2, 2, "2");
        const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, stepBounded());
        QCOMPARE(report.outcome.openBefore, 1);
        QCOMPARE(report.outcome.openAfter, 0);
        QCOMPARE(report.outcome.placed, 1);
        QCOMPARE(report.outcome.moved, 1);
        QCOMPARE(report.breaksAfter, 0);
        // Table order kept: the moved row stays where it stood, the new one comes last.
        QCOMPARE(week(store), QStringLiteral("21:2@1.1M 21:2@2.1M 11:1@1.12 11:1@2.12 11:2@2.22 11:2@1.22"));
        QCOMPARE(store.scalar(QStringLiteral("SELECT SUM(P2Insert) FROM AutoGenPhase2")).toInt(), 0);
    }

    void threeStepChainAndDeterminism()
    {
        // One day of three periods. Teacher 3 is free only at period 1 and teacher 2 not at period 3: the
        // open period of teacher 3 moves teacher 2, who moves teacher 1.
        QString first;
        for (int run = 0; run < 2; ++run) {
            TestStore store;
            buildCompletionSchool(store, 1, 3, 3, 4);
            allot(store, 1, 1, 1, 1, 1);
            allot(store, 2, 1, 1, 2, 1);
            allot(store, 3, 1, 1, 3, 1);
            allot(store, 3, 2, 1, 3, 2);
            allot(store, 2, 2, 1, 2, 1);
            place(store, 2, 1, 1, 2, 3, 3, "M");
            place(store, 2, 1, 1, 3, 3, 3, "M");
            place(store, 2, 1, 1, 1, 2, 4, "M"); // II-A: Teacher 4 at period 1, so teacher 2 meets it at 3
            place(store, 2, 1, 1, 3, 2, 2, "M");
            place(store, 1, 1, 1, 1, 2, 2, "2");
            place(store, 1, 1, 1, 2, 1, 1, "2");
            const QString before = week(store);
            const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, stepBounded());
            QCOMPARE(report.outcome.openAfter, 0);
            QCOMPARE(report.outcome.moved, 2);
            QVERIFY(week(store).startsWith(before.section(' ', 0, 3))); // the hand rows stand as they were
            QCOMPARE(slotsOf(store, 3, 1, 1, 3), QStringList{QStringLiteral("1:1")});
            QCOMPARE(slotsOf(store, 2, 1, 1, 2), QStringList{QStringLiteral("1:2")});
            QCOMPARE(slotsOf(store, 1, 1, 1, 1), QStringList{QStringLiteral("1:3")});
            if (run == 0)
                first = week(store);
            else
                QCOMPARE(week(store), first);
        }
    }

    void combinedGroupMovesWhole()
    {
        // Teacher 1 takes I-A and I-B together; teacher 2 can take I-A only at period 1, where the group stands.
        TestStore store;
        buildCompletionSchool(store, 1, 3, 3, 3);
        allotGroup(store, 1, 1, 1, 1, 1, 1);
        allotGroup(store, 1, 1, 2, 1, 1, 1);
        allot(store, 2, 1, 1, 2, 1);
        allot(store, 2, 2, 1, 2, 2);
        place(store, 2, 1, 1, 2, 2, 2, "M");
        place(store, 2, 1, 1, 3, 2, 2, "M");
        place(store, 1, 1, 1, 1, 1, 1, "1");
        place(store, 1, 2, 1, 1, 1, 1, "1");
        const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, stepBounded());
        QCOMPARE(report.outcome.openAfter, 0);
        QCOMPARE(report.outcome.moved, 2);
        const QStringList a = slotsOf(store, 1, 1, 1, 1);
        QCOMPARE(a.size(), 1);
        QVERIFY(a.first() != QStringLiteral("1:1"));
        QCOMPARE(slotsOf(store, 1, 1, 2, 1), a);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE Manual = '1'")).toInt(), 2); // kept
    }

    void phaseOneBalanceCompletedLetsPhaseTwoStart()
    {
        // Teacher 1 is set free at period 3 and may not take period 1 (held by hand): only period 2 is left,
        // where the generator put teacher 2's Phase I period.
        TestStore store;
        buildCompletionSchool(store, 1, 3, 3, 3);
        store.exec(QStringLiteral("CREATE TABLE AGP1TeacherDetails (TeacherName TEXT, P1 TEXT, P2 TEXT, P3 TEXT, "
                                  "TeacherCode TEXT, NoOfPeriods TEXT, Counts TEXT, POLWDC TEXT)"));
        store.exec(QStringLiteral("INSERT INTO AGP1TeacherDetails VALUES ('Teacher 1', '', '', 'No', '1', '3', '1', ''), "
                                  "('Teacher 2', '', '', '', '2', '3', '0', '')"));
        allot(store, 1, 1, 1, 1, 1);
        allot(store, 2, 1, 1, 2, 1);
        allot(store, 3, 1, 1, 3, 1);
        place(store, 1, 1, 1, 1, 3, 3, "M");
        place(store, 1, 1, 1, 2, 2, 2, "1");
        const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseOne, stepBounded());
        QCOMPARE(report.outcome.openAfter, 0);
        QCOMPARE(slotsOf(store, 1, 1, 1, 1), QStringList{QStringLiteral("1:2")});
        QCOMPARE(slotsOf(store, 2, 1, 1, 2), QStringList{QStringLiteral("1:3")});
        QCOMPARE(store.scalar(QStringLiteral("SELECT Manual FROM TimeTable WHERE TeacherCode = 1")).toString(), QStringLiteral("1"));
        QCOMPARE(store.scalar(QStringLiteral("SELECT IFNULL(SUM(P1Insert + P2Insert), 0) FROM AutoGenPhase1")).toInt(), 0);

        LcgRandom random;
        GenerationEngine engine(store.db(), random);
        engine.openPhaseTwo();
        QVERIFY(engine.pending(PendingView::PhaseOne).rows.isEmpty());
    }

    void impossibleWeekIsExplainedAndLeftAsItWas()
    {
        TestStore store;
        buildCompletionSchool(store, 1, 3, 3, 4);
        allot(store, 1, 1, 1, 1, 1);
        allot(store, 2, 1, 1, 2, 1);
        allot(store, 3, 1, 1, 3, 1);
        allot(store, 4, 1, 1, 4, 1);
        place(store, 1, 1, 1, 1, 1, 1, "2");
        place(store, 1, 1, 1, 2, 2, 2, "2");
        place(store, 1, 1, 1, 3, 3, 3, "M");
        const QString before = week(store);
        const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, stepBounded());
        QCOMPARE(report.outcome.openAfter, 1);
        QCOMPARE(report.outcome.moved, 0);
        QCOMPARE(week(store), before);
        QVERIFY2(report.reasons.contains(QStringLiteral("Class I A Needs 4 Periods But Has Only 3 Periods On Its Working Days")),
                 qPrintable(report.reasons.join(QLatin1Char('\n'))));
    }

    void cancelKeepsAConsistentWeek()
    {
        TestStore store;
        SampleSchool::build(store.db(), SampleSchool::Size::Medium);
        YesMessages messages;
        LcgRandom random;
        GenerationEngine engine(store.db(), random);
        engine.openPhaseOne();
        engine.saveDefaultSettings(QStringLiteral("NO"));
        engine.processPhaseOne(messages, {});
        engine.openPhaseTwo();
        engine.processPhaseTwo(messages, {});
        const int rows = store.count(QStringLiteral("TimeTable"));
        Completion::Settings cancelled;
        cancelled.cancelRequested = [] { return true; };
        const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, cancelled);
        QVERIFY(report.outcome.cancelled || report.outcome.openBefore == 0);
        QCOMPARE(store.count(QStringLiteral("TimeTable")), rows + report.outcome.placed);
        QVERIFY(report.breaksAfter <= report.breaksBefore);

        // Then a full run finishes the medium school's week without a break.
        const CompletionReport full = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, stepBounded());
        QCOMPARE(full.outcome.openAfter, 0);
        QCOMPARE(CheckStoredTimetable(store.db()), QStringList());
    }

    void ruleCheckNamesEachBreak()
    {
        // Two days of three periods, two in the morning.
        TestStore store;
        buildCompletionSchool(store, 2, 3, 2, 2);
        allot(store, 1, 1, 1, 1, 1);
        allot(store, 1, 1, 2, 1, 1);
        allot(store, 2, 2, 1, 2, 3);
        place(store, 1, 1, 1, 1, 1, 1, "2");
        place(store, 1, 2, 1, 1, 1, 1, "2"); // teacher 1 in two classes at once
        place(store, 2, 1, 1, 1, 2, 2, "2");
        place(store, 2, 1, 2, 1, 2, 2, "2");
        place(store, 2, 1, 2, 2, 2, 2, "2"); // three periods over two days: no two in one session
        QCOMPARE(CheckStoredTimetable(store.db()),
                 QStringList({QStringLiteral("Teacher Teacher 1 Is In Two Places In Day 1 Period 1"),
                              QStringLiteral("Subject 2 Of Class II A Has 2 Periods In Day 2")}));
        // Hand rows are the user's choice; a class that works one day only cannot have the second.
        store.exec(QStringLiteral("UPDATE TimeTable SET Manual = 'M' WHERE ClassCode = 1"));
        store.exec(QStringLiteral("UPDATE ClasswiseNoOfWorkingDays SET NoOfWorkingDays = 1 WHERE ClassCode = 2"));
        const QStringList breaks = CheckStoredTimetable(store.db());
        QVERIFY2(breaks.contains(QStringLiteral("Class II A Does Not Work In Day 2 Period 1")), qPrintable(breaks.join('\n')));
        QVERIFY(!breaks.join('\n').contains(QStringLiteral("Teacher 1")));
    }
};

QTEST_GUILESS_MAIN(tst_Completion)
#include "tst_completion.moc"
