#include "manualentry.h"
#include "scriptedmessages.h"
#include "smallschool.h"

#include <QTest>

namespace {
const QString Modify = QStringLiteral("Do You Want To Modify It ? ");
}

class tst_ManualEntry : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;

    ManualEntry entry() { return ManualEntry(m_store->db(), m_store->context().session.calendar, m_messages); }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        buildSmallSchool(*m_store);
        allot(*m_store, {1, 1, 1, 1, 2});                     // I-A S1 by T1, plain, 2 periods
        allot(*m_store, {2, 1, 2, 2, 3, 0, 5});               // I-B S2 by T2, main row of CC 5
        allot(*m_store, {2, 1, 3, 2, 3, 0, 5, 0, "Y"});       // CC 5 generated for I-C
        allot(*m_store, {3, 1, 1, 3, 3, 4});                  // I-A S3 by T3: CP 4
        allot(*m_store, {4, 2, 1, 4, 3, 4});                  // II-A S4 by T4: CP 4
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_store;
    }

    void plainPeriodsUpToTheAllotment()
    {
        QCOMPARE(entry().place({1, 1, 1, 0}, {1, 1}), ManualEntry::Result::Nothing); // incomplete: no teacher's row
        QCOMPARE(entry().place({1, 1, 1, 1}, {1, 1}), ManualEntry::Result::Placed);
        QCOMPARE(entry().place({1, 1, 1, 1}, {2, 1}), ManualEntry::Result::Placed);
        m_messages.expectInformation(QStringLiteral("'Occupied Periods' Should Not Exceed 'Allotted Periods'"));
        QCOMPARE(entry().place({1, 1, 1, 1}, {3, 1}), ManualEntry::Result::Refused);
        QCOMPARE(m_store->count(QStringLiteral("TimeTable")), 2);
        QCOMPARE(slotRows(*m_store, 1, 1), QStringList{"1/1:1:1:M::"});
    }

    // One click on a Combined Class group: a row per class division, one teacher.
    void combinedClassInOneClick()
    {
        QCOMPARE(entry().place({1, 2, 2, 2}, {2, 3}), ManualEntry::Result::Placed);
        QCOMPARE(slotRows(*m_store, 2, 3), (QStringList{"1/2:2:2:M::", "1/3:2:2:M:CC:"}));
    }

    void lastDayRefusesPlacingAndRemoving()
    {
        m_messages.expectInformation(QStringLiteral("Last Working Day Has Only 4 Periods"));
        QCOMPARE(entry().place({1, 1, 1, 1}, {5, 5}), ManualEntry::Result::Refused);
        m_messages.expectInformation(QStringLiteral("Last Working Day Has Only 4 Periods"));
        QCOMPARE(entry().removeClassEntry(1, 1, {5, 6}), ManualEntry::Result::Refused);
        QCOMPARE(entry().place({1, 1, 1, 1}, {5, 4}), ManualEntry::Result::Placed);
        QCOMPARE(m_store->count(QStringLiteral("TimeTable")), 1);
    }

    // A taken member class division refuses the whole group; nothing is written for the free member.
    void groupRefusedWhenAMembersDivisionIsTaken()
    {
        m_store->exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (5, 2, 1, 5, 2, '', '', '', 0, 0, 0, '', '')"));
        QCOMPARE(entry().place({2, 1, 5, 5}, {1, 2}), ManualEntry::Result::Placed);
        m_messages.expectInformation(QStringLiteral("One Of The Combined Subjects Period Is Not Free\n"
                                                    "So You Cannot Allot This Period\n"));
        QCOMPARE(entry().place({1, 1, 3, 3}, {1, 2}), ManualEntry::Result::Refused);
        QCOMPARE(slotRows(*m_store, 1, 2), QStringList{"2/1:5:5:M::"});
    }

    // Modify removes the old entry at once; when the new group then finds a teacher busy, the cell stays empty.
    void modifyThenRefusedLeavesTheCellEmpty()
    {
        QCOMPARE(entry().place({1, 1, 1, 1}, {4, 2}), ManualEntry::Result::Placed);
        // T4 is busy elsewhere in that slot.
        m_store->exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (4, 2, 2, 6, 2, '', '', '', 0, 0, 0, '', '')"));
        QCOMPARE(entry().place({2, 2, 6, 4}, {4, 2}), ManualEntry::Result::Placed);
        m_messages.expectQuestion(QStringLiteral("Already Class I/A Is Allotted With S1\n") + Modify, true);
        m_messages.expectInformation(QStringLiteral("One Of The Teachers In This Group Is Not Free"));
        QCOMPARE(entry().place({1, 1, 3, 3}, {4, 2}), ManualEntry::Result::Refused);
        QCOMPARE(slotRows(*m_store, 4, 2), QStringList{"2/2:6:4:M::"});

        // No keeps the old entry.
        QCOMPARE(entry().place({1, 1, 1, 1}, {4, 3}), ManualEntry::Result::Placed);
        m_messages.expectQuestion(QStringLiteral("Already Class I/A Is Allotted With S1\n") + Modify, false);
        QCOMPARE(entry().place({1, 1, 3, 3}, {4, 3}), ManualEntry::Result::Refused);
        QCOMPARE(slotRows(*m_store, 4, 3), QStringList{"1/1:1:1:M::"});
    }

    void modifyNamesTheGroupItTakesAlong()
    {
        QCOMPARE(entry().place({1, 1, 3, 3}, {3, 1}), ManualEntry::Result::Placed);
        m_messages.expectQuestion(QStringLiteral("Already Class I/A Is Allotted With S3\n"
                                                 "It Also Has A Combined Subject Entry\n"
                                                 "Modifing This Will Remove All The Corresponding Entries\n")
                                      + Modify,
                                  true);
        QCOMPARE(entry().place({1, 1, 1, 1}, {3, 1}), ManualEntry::Result::Placed);
        QCOMPARE(slotRows(*m_store, 3, 1), QStringList{"1/1:1:1:M::"});
    }

    // Removing from the teacher's grid through a generated class division takes the whole group.
    void removeAGroupFromEitherGrid()
    {
        QCOMPARE(entry().place({1, 2, 2, 2}, {1, 4}), ManualEntry::Result::Placed);
        const QString question = QStringLiteral("It Has A Combined Class Entry\n"
                                                "Deleting This Will Delete All The Corresponding Entries\n"
                                                "Do You Want To Delete It ? ");
        m_messages.expectQuestion(question, false);
        QCOMPARE(entry().removeClassEntry(1, 3, {1, 4}), ManualEntry::Result::Refused);
        QCOMPARE(slotRows(*m_store, 1, 4).size(), 2);
        m_messages.expectQuestion(question, true);
        QCOMPARE(entry().removeTeacherEntry(2, {1, 4}), ManualEntry::Result::Removed);
        QVERIFY(slotRows(*m_store, 1, 4).isEmpty());
        QCOMPARE(entry().removeTeacherEntry(2, {1, 4}), ManualEntry::Result::Nothing);

        QCOMPARE(entry().place({1, 1, 1, 1}, {1, 5}), ManualEntry::Result::Placed);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete It ? "), true);
        QCOMPARE(entry().removeClassEntry(1, 1, {1, 5}), ManualEntry::Result::Removed);
    }
};

QTEST_GUILESS_MAIN(tst_ManualEntry)
#include "tst_manualentry.moc"
