#include "placement.h"
#include "smallschool.h"

#include <QSqlQuery>
#include <QTest>

using namespace Placement;

namespace {
QStringList keys(const QList<GroupMember> &members)
{
    QStringList list;
    for (const GroupMember &m : members)
        list << QStringLiteral("T%1 %2/%3 S%4").arg(m.teacher).arg(m.classCode).arg(m.division).arg(m.subject);
    return list;
}

QList<GroupMember> membersOf(TestStore &store, int classCode, int division, int subject)
{
    return GroupMembersOf(store.db(), classCode, division, subject,
                          GroupNumbersOf(store.db(), classCode, division, subject));
}
}

class tst_Placement : public QObject
{
    Q_OBJECT

private slots:
    void weekAndLastDay()
    {
        TestStore store;
        buildSmallSchool(store);
        SchoolCalendar calendar = store.context().session.calendar;
        QCOMPARE(WeekDays(calendar), (QList<int>{1, 2, 3, 4, 5}));
        QCOMPARE(PeriodsOn(calendar, 4), 6);
        QCOMPARE(PeriodsOn(calendar, 5), 4);
        QVERIFY(InWeek(calendar, {5, 4}));
        QVERIFY(!InWeek(calendar, {5, 5}));
        QVERIFY(!InWeek(calendar, {6, 1}));
        // A week starting on day 6 of DayMaster wraps past 7.
        calendar.dayCode = 6;
        calendar.noOfWorkingDays = 3;
        QCOMPARE(WeekDays(calendar), (QList<int>{6, 7, 1}));
        QCOMPARE(PeriodsOn(calendar, 1), 4);
    }

    void members_data()
    {
        QTest::addColumn<int>("classCode");
        QTest::addColumn<int>("division");
        QTest::addColumn<int>("subject");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("plain row") << 2 << 2 << 6 << QStringList{"T6 2/2 S6"};
        QTest::newRow("combined subject alone") << 1 << 3 << 4 << QStringList{"T4 1/3 S4", "T5 2/1 S5"};
        QTest::newRow("combined teacher from its generated row")
            << 2 << 2 << 3 << QStringList{"T2 2/2 S2", "T3 2/2 S3"};
        // I-A S1 is in CP 1 and CT 9; CP 1 holds I-B S2, the main row of CC 5, whose generated row comes in.
        QTest::newRow("subject member that is a combined class main row")
            << 1 << 1 << 1 << QStringList{"T1 1/1 S1", "T6 1/1 S6", "T2 1/2 S2", "T2 1/1 S2"};
        // From the generated row: CC 5 gives I-B S2 and I-A S2; widening I-B S2 brings I-A S1 of CP 1;
        // I-A S1 is also the main row of CT 9, but rows found by widening are not widened again.
        QTest::newRow("chain of three cut at the third")
            << 1 << 1 << 2 << QStringList{"T2 1/2 S2", "T2 1/1 S2", "T1 1/1 S1"};
    }

    void members()
    {
        QFETCH(int, classCode);
        QFETCH(int, division);
        QFETCH(int, subject);
        QFETCH(QStringList, expected);
        TestStore store;
        buildSmallSchool(store);
        allot(store, {1, 1, 1, 1, 4, 1, 0, 9});                 // I-A S1: CP 1, main row of CT 9
        allot(store, {6, 1, 1, 6, 4, 0, 0, 9, "", "Y"});        // CT 9 generated: T6 in I-A
        allot(store, {2, 1, 2, 2, 4, 1, 5});                    // I-B S2: CP 1, main row of CC 5
        allot(store, {2, 1, 1, 2, 4, 0, 5, 0, "Y"});            // CC 5 generated: I-A S2
        allot(store, {4, 1, 3, 4, 3, 2});                       // I-C S4: CP 2
        allot(store, {5, 2, 1, 5, 3, 2});                       // II-A S5: CP 2
        allot(store, {2, 2, 2, 2, 2, 0, 0, 7});                 // II-B S2: main row of CT 7
        allot(store, {3, 2, 2, 3, 2, 0, 0, 7, "", "Y"});        // CT 7 generated: T3 S3 in II-B
        allot(store, {6, 2, 2, 6, 5});                          // II-B S6: plain
        QCOMPARE(keys(membersOf(store, classCode, division, subject)), expected);
    }

    void placeAndRemoveAGroup()
    {
        TestStore store;
        buildSmallSchool(store);
        allot(store, {2, 1, 2, 2, 4, 0, 5});
        allot(store, {2, 1, 1, 2, 4, 0, 5, 0, "Y"});
        allot(store, {2, 2, 1, 2, 4, 0, 5, 0, "Y"});
        const QList<GroupMember> members = membersOf(store, 1, 2, 2);
        const PeriodSlot slot{3, 2};
        // One teacher for three class divisions: free for every member while the slot is empty.
        for (const GroupMember &m : members)
            QVERIFY(TeacherIsFree(store.db(), m.teacher, slot));
        PlaceMembers(store.db(), members, slot, Origin::PhaseOne);
        QCOMPARE(slotRows(store, 3, 2), (QStringList{"1/2:2:2:1::", "1/1:2:2:1:Y:", "2/1:2:2:1:Y:"}));
        QVERIFY(!TeacherIsFree(store.db(), 2, slot));
        QVERIFY(!ClassDivisionIsFree(store.db(), 2, 1, slot));
        QVERIFY(ClassDivisionIsFree(store.db(), 2, 1, {3, 3}));
        QCOMPARE(PlacedCount(store.db(), 2, 1, 1, 2), 1);
        const GroupKinds kinds = OccupiedGroupKinds(store.db(), members, slot);
        QVERIFY(kinds.combinedClass && !kinds.combinedSubject && !kinds.combinedTeacher);

        // Removing through a generated row takes the whole group; a member without a row is passed over.
        RemoveMembers(store.db(), membersOf(store, 2, 1, 2), slot);
        QVERIFY(slotRows(store, 3, 2).isEmpty());
        RemoveMembers(store.db(), members, slot);
    }

    // In a Combined Teacher slot the class division has a row per teacher: the main row is read last.
    void mainRowAndReadingOrder()
    {
        TestStore store;
        buildSmallSchool(store);
        allot(store, {2, 2, 2, 2, 2, 0, 0, 7});
        allot(store, {3, 2, 2, 3, 2, 0, 0, 7, "", "Y"});
        const PeriodSlot slot{1, 1};
        QCOMPARE(MainSubjectAt(store.db(), 2, 2, slot), -1);
        PlaceMembers(store.db(), membersOf(store, 2, 2, 2), slot, Origin::Manual);
        QCOMPARE(slotRows(store, 1, 1), (QStringList{"2/2:2:2:M::", "2/2:3:3:M::CT"}));
        QCOMPARE(MainSubjectAt(store.db(), 2, 2, slot), 2);
        QSqlQuery query(store.db());
        QVERIFY(query.exec(QStringLiteral("SELECT SubjectCode FROM TimeTable WHERE ClassCode = 2 AND DivisionCode = 2 ")
                           + slotReadingOrder()));
        QStringList order;
        while (query.next())
            order << query.value(0).toString();
        QCOMPARE(order.last(), QStringLiteral("2"));
        // Marks count as generated whatever their value; empty and null do not.
        QVERIFY(isGeneratedMark(QStringLiteral("Y")) && isGeneratedMark(QStringLiteral("CT")));
        QVERIFY(!isGeneratedMark(QString()) && !isGeneratedMark(QVariant()) && !isGeneratedMark(QStringLiteral("")));
    }
};

QTEST_GUILESS_MAIN(tst_Placement)
#include "tst_placement.moc"
