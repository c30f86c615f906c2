#include "completionstore.h"
#include "generationfixture.h"
#include "generationrun.h"
#include "randomschool.h"
#include "weekaudit.h"

#include <QTest>

// The completion keeps the generator's rules: what it places or moves never breaks one, a period it cannot
// place without a break stays open, and a week is judged both by the program's own rule check and by an
// audit written for the tests from the rules themselves.
namespace {

// "teacher class division subject periods, ..."
void allotAll(TestStore &store, const QString &allotments)
{
    for (const QString &item : allotments.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList v = item.simplified().split(QLatin1Char(' '));
        allot(store, v[0].toInt(), v[1].toInt(), v[2].toInt(), v[3].toInt(), v[4].toInt());
    }
}

// "class division day period subject teacher manual, ..."
void placeAll(TestStore &store, const QString &rows)
{
    for (const QString &item : rows.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList v = item.simplified().split(QLatin1Char(' '));
        place(store, v[0].toInt(), v[1].toInt(), v[2].toInt(), v[3].toInt(), v[4].toInt(), v[5].toInt(),
              qPrintable(v[6]));
    }
}

QString joined(const QStringList &lines)
{
    return lines.join(QLatin1Char('\n'));
}

}

class tst_CompletionRules : public QObject
{
    Q_OBJECT

private slots:
    // Two days of four periods, two in the morning. Subject 1 has four periods (two a day), three of them on
    // day 1 at periods 1 to 3, which the rules allow; teacher 3's hand row holds period 4 of day 1. Subject 2
    // (three periods, at most one a session) needs one period of day 1, where teacher 2 is busy in class II
    // at the hand rows given. Moving subject 1 away from period 3 would leave its periods 1 and 2 in one
    // session.
    void smallWeeks_data()
    {
        QTest::addColumn<QString>("allotments");
        QTest::addColumn<QString>("rows");
        QTest::addColumn<int>("typeTwoTeacher"); // given NoOfPeriods 4: free-period type 2
        QTest::addColumn<int>("openAfter");
        const QString threeOnDayOne = QStringLiteral("1 1 1 1 1 1 2, 1 1 1 2 1 1 2, 1 1 1 3 1 1 2, 1 1 2 1 1 1 2, "
                                                     "1 1 1 4 3 3 M, ");
        QTest::newRow("the morning period moves, not the afternoon one")
            << "1 1 1 1 4, 3 1 1 3 1, 2 1 1 2 3, 2 2 1 2 1" << threeOnDayOne + "2 1 1 1 2 2 M" << 0 << 0;
        QTest::newRow("a period placeable only by crowding stays open")
            << "1 1 1 1 4, 3 1 1 3 1, 2 1 1 2 3, 2 2 1 2 2" << threeOnDayOne + "2 1 1 1 2 2 M, 2 1 1 2 2 2 M" << 0 << 1;
        // Teacher 1 keeps a free period in each session taught; busy by hand at period 3 of day 1, teacher 1
        // takes day 1 in the morning, where subject 2 makes room.
        QTest::newRow("a free period in each session")
            << "1 1 1 1 2, 2 1 1 2 6, 1 2 1 1 1"
            << "1 1 1 1 2 2 2, 1 1 1 2 2 2 2, 1 1 1 3 2 2 2, 1 1 2 1 2 2 2, 1 1 2 2 2 2 2, 1 1 2 3 2 2 2, 2 1 1 3 1 1 M"
            << 1 << 0;
    }
    void smallWeeks()
    {
        QFETCH(QString, allotments);
        QFETCH(QString, rows);
        QFETCH(int, typeTwoTeacher);
        TestStore store;
        buildCompletionSchool(store, 2, 4, 2, 3);
        if (typeTwoTeacher > 0) {
            store.exec(QStringLiteral("UPDATE TeacherMaster SET NoOfPeriods = 4 WHERE TeacherCode = ?"), {typeTwoTeacher});
            PhaseOneChecks::BuildFreePeriodDetails(store.db(), store.context().session.calendar);
        }
        allotAll(store, allotments);
        placeAll(store, rows);
        QCOMPARE(CheckStoredTimetable(store.db()), QStringList());
        const CompletionReport report = CompleteTimetable(store.db(), CompletionStage::PhaseTwo, stepBounded(20000));
        QTEST(report.outcome.openAfter, "openAfter");
        QCOMPARE(report.breaksAfter, 0);
        QCOMPARE(joined(CheckStoredTimetable(store.db())), QString());
        QCOMPARE(joined(WeekAudit::Breaks(store.db())), QString());
    }

    // The week each random school is built around keeps every rule, by the program's check and by the audit
    // alike: the two judges agree, and the schools can be timetabled in full.
    void randomSchoolWeeks_data()
    {
        QTest::addColumn<int>("shape");
        QTest::addColumn<int>("seed");
        const QList<RandomSchool::Shape> shapes = RandomSchool::shapes();
        for (int s = 0; s < shapes.size(); ++s)
            for (int seed : {1, 2})
                QTest::addRow("%s, seed %d", shapes[s].name, seed) << s << seed;
    }
    void randomSchoolWeeks()
    {
        QFETCH(int, shape);
        QFETCH(int, seed);
        TestStore store;
        const RandomSchool::Summary school = RandomSchool::write(store.db(), RandomSchool::shapes()[shape], quint32(seed));
        QCOMPARE(school.week.size(), school.periods);
        QVERIFY(school.freeTypes[1] + school.freeTypes[2] > 0);
        QCOMPARE(school.combinedGroups > 0, RandomSchool::shapes()[shape].groups);
        for (const RandomSchool::WeekRow &r : school.week)
            store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, '2', '', ?, ?)"),
                       {r.classCode, r.division, r.day, r.period, r.subject, r.teacher, r.cc, r.ct});
        store.context().session.calendar.load(store.db());
        PhaseOneChecks::BuildFreePeriodDetails(store.db(), store.context().session.calendar);
        QCOMPARE(joined(WeekAudit::Breaks(store.db())), QString());
        QCOMPARE(joined(CheckStoredTimetable(store.db())), QString());
    }

    // Generation and completion over random schools: whatever the completion places or moves, neither judge
    // finds more breaks after it than before.
    void randomSchoolsComplete_data()
    {
        randomSchoolWeeks_data();
    }
    void randomSchoolsComplete()
    {
        QFETCH(int, shape);
        QFETCH(int, seed);
        TestStore store;
        RandomSchool::write(store.db(), RandomSchool::shapes()[shape], quint32(seed));
        const GeneratedWeek week = GenerateAndComplete(store.db(), 3000);
        QVERIFY(week.phaseOne.breaksAfter <= week.phaseOne.breaksBefore);
        QVERIFY2(week.phaseTwo.breaksAfter <= week.phaseTwo.breaksBefore,
                 qPrintable(QStringLiteral("%1 before, %2 after").arg(week.phaseTwo.breaksBefore).arg(week.phaseTwo.breaksAfter)));
        QCOMPARE(joined(WeekAudit::Breaks(store.db())), QString());
        QCOMPARE(week.phaseTwo.breaksAfter, 0);
        QVERIFY(week.placed > 0);
    }
};

QTEST_GUILESS_MAIN(tst_CompletionRules)
#include "tst_completionrules.moc"
