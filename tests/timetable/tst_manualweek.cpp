#include "manualweek.h"
#include "smallschool.h"

#include <QTest>

namespace {
// A TimeTable row as the writers store it; `cc`/`ct` mark a generated row.
void put(TestStore &store, int classCode, int division, int day, int period, int subject, int teacher,
         const char *cc = "", const char *ct = "")
{
    store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, 'M', '', ?, ?)"),
               {classCode, division, day, period, subject, teacher, QString::fromLatin1(cc), QString::fromLatin1(ct)});
}
}

class tst_ManualWeek : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ManualWeek week() const { return ManualWeek(m_store->db(), m_store->context().session.calendar); }

private slots:
    void init()
    {
        m_store = new TestStore;
        buildSmallSchool(*m_store);
        allot(*m_store, {1, 1, 1, 1, 2});                 // I-A S1 by T1
        allot(*m_store, {2, 1, 2, 2, 3, 0, 5});           // I-B S2 by T2, main row of CC 5
        allot(*m_store, {2, 1, 3, 2, 3, 0, 5, 0, "Y"});   // CC 5 generated for I-C
        allot(*m_store, {5, 2, 1, 5, 2, 0, 0, 7});        // II-A S5 by T5, main row of CT 7
        allot(*m_store, {6, 2, 1, 6, 2, 0, 0, 7, "", "Y"}); // CT 7 generated for T6
    }

    void cleanup() { delete m_store; }

    void layoutFollowsTheCalendar()
    {
        const WeekLayout layout = week().layout();
        QCOMPARE(layout.days, (QList<int>{1, 2, 3, 4, 5}));
        QCOMPARE(layout.dayNames.first(), QStringLiteral("Monday"));
        QCOMPARE(layout.periodNames, (QStringList{"P1", "P2", "P3", "P4", "P5", "P6"}));
    }

    // The main row is written first here, so only the reading order can put its text in the cell.
    void mainRowShowsWhereASlotHoldsSeveral()
    {
        put(*m_store, 1, 2, 2, 3, 2, 2);
        put(*m_store, 1, 3, 2, 3, 2, 2, "CC");
        put(*m_store, 2, 1, 3, 1, 5, 5);
        put(*m_store, 2, 1, 3, 1, 6, 6, "", "Y");

        const WeekGrid fromGenerated = week().teacherWeek({1, 3, 2, 2});
        QCOMPARE(fromGenerated.at(1, 3).text, QStringLiteral("I/B"));
        QVERIFY(!fromGenerated.at(1, 3).ofSelection);
        QCOMPARE(fromGenerated.occupied, 1);
        const WeekGrid fromMain = week().teacherWeek({1, 2, 2, 2});
        QVERIFY(fromMain.at(1, 3).ofSelection);
        QCOMPARE(fromMain.occupied, 1);

        const WeekGrid classWeek = week().classWeek({2, 1, 6, 6});
        QCOMPARE(classWeek.at(2, 1).text, QStringLiteral("S5"));
        QVERIFY(!classWeek.at(2, 1).ofSelection);
        QVERIFY(week().classWeek({2, 1, 5, 5}).at(2, 1).ofSelection);
        QVERIFY(!classWeek.at(0, 1).filled());
    }

    void noTeacherNoTeacherWeek()
    {
        put(*m_store, 1, 1, 1, 1, 1, 1);
        const WeekGrid teacherWeek = week().teacherWeek({1, 1, 1, 0});
        QCOMPARE(teacherWeek.cells.size(), 5);
        QVERIFY(!teacherWeek.at(0, 1).filled());
        QCOMPARE(week().allottedPeriods({1, 1, 1, 1}), 2);
        QCOMPARE(week().allottedPeriods({1, 1, 1, 2}), 0);
    }

    void periodsToBeFilledLeavesOutFinishedSubjects()
    {
        allot(*m_store, {3, 1, 1, 3, 3});
        put(*m_store, 1, 1, 1, 1, 1, 1);
        put(*m_store, 1, 1, 1, 2, 1, 1);
        put(*m_store, 1, 1, 2, 1, 3, 3);
        const QList<SubjectBalance> open = week().periodsToBeFilled(1, 1);
        QCOMPARE(open.size(), 1);
        QCOMPARE(open[0].subjectName, QStringLiteral("Subject 3"));
        QCOMPARE(open[0].allotted, 3);
        QCOMPARE(open[0].filled, 1);
        QCOMPARE(open[0].balance(), 2);
        QVERIFY(week().periodsToBeFilled(2, 2).isEmpty()); // nothing allotted
    }
};

QTEST_GUILESS_MAIN(tst_ManualWeek)
#include "tst_manualweek.moc"
