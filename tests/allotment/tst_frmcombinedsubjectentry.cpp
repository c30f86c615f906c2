#include "combinedtestkit.h"
#include "frmcombinedsubjectentry.h"
#include "frmcombinedsubjectentrysearch.h"

#include <QLineEdit>

using namespace CombinedKit;
using Combined::Key;

Q_DECLARE_METATYPE(Combined::Key)

namespace {
const Key A{1, 1, 1, 1};       // Teacher 1, I-A, Subject 1: main row of Combined Teacher group 7
const Key B{3, 1, 2, 3};       // Teacher 3, I-B, Subject 3
const Key OtherIA{5, 1, 1, 6}; // Teacher 5, I-A
const Key TwoPeriods{4, 1, 3, 4};
const Key SameTeacher{1, 2, 2, 5};
const Key PartnerOfA{2, 2, 1, 3}; // Teacher 2 stands with Teacher 1 in group 7, and has a group of his own
const Key Free{4, 2, 2, 6};       // Teacher 4, II-B

int rowOf(QTableWidget *grid, const Key &key)
{
    for (int r = 0; grid && r < grid->rowCount(); ++r) {
        auto code = [&](int column) { return grid->item(r, column) ? grid->item(r, column)->text().toInt() : 0; };
        if (Key{code(5), code(6), code(7), code(8)} == key)
            return r;
    }
    return -1;
}
}

class tst_frmCombinedSubjectEntry : public ScreenTest<frmCombinedSubjectEntry>
{
    Q_OBJECT

    QTableWidget *candidates() { return control<QTableWidget>(m_screen, "msgDisplay"); }
    QTableWidget *members() { return control<QTableWidget>(m_screen, "msgCombinedSubjects"); }

    void loadDivision(int classCode, int division)
    {
        choose(m_screen, "cboClass", classCode);
        choose(m_screen, "cboDivision", division);
    }

    void pick(const Key &key)
    {
        loadDivisionIfNeeded(key);
        const int row = rowOf(candidates(), key);
        QVERIFY(row >= 0);
        clickRow(candidates(), row);
    }

    void loadDivisionIfNeeded(const Key &key)
    {
        if (rowOf(candidates(), key) < 0)
            loadDivision(key.classCode, key.division);
    }

    // New, A and B picked, saved: group 1.
    void saveGroupOfAAndB()
    {
        press(m_screen, "cmdNew");
        pick(A);
        pick(B);
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        press(m_screen, "cmdSave");
    }

private slots:
    void init()
    {
        QVERIFY(openScreen({
            {1, 1, 1, 1, 3, 0, 0, 7},
            {2, 1, 1, 2, 3, 0, 0, 7, "", "Y"},
            {2, 2, 1, 3, 3, 0, 0, 8},
            {6, 2, 1, 4, 3, 0, 0, 8, "", "Y"},
            {3, 1, 2, 3, 3},
            {4, 1, 3, 4, 2},
            {1, 2, 2, 5, 3},
            {5, 1, 1, 6, 3},
            {4, 2, 2, 6, 3}
        }));
    }

    void cleanup() { QVERIFY2(closeScreen(), m_messages.report()); }

    void candidatesGatherByClassDivision()
    {
        press(m_screen, "cmdNew");
        loadDivision(1, 1);
        // The generated Combined Teacher row of I-A is never offered.
        QCOMPARE(cells(candidates()), (QStringList{"Teacher 1|I|A|Subject 1|3", "Teacher 5|I|A|Subject 6|3"}));
        loadDivision(1, 2);
        QCOMPARE(cells(candidates()).size(), 3);
        m_messages.expectInformation(QStringLiteral("Already This Class-Division Has Been Loaded"));
        loadDivision(1, 1);
        QCOMPARE(cells(candidates()).size(), 3);
    }

    void pickRefusals_data()
    {
        QTest::addColumn<Key>("candidate");
        QTest::addColumn<QString>("meanwhile");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("deleted in the master") << B << "DELETE FROM WorkAllotmentEntry WHERE TeacherCode = 3"
                                               << "Selected Master Data Is Deleted.\nYou Cannot Save This Data.";
        QTest::newRow("placed periods") << B << "INSERT INTO TimeTable VALUES (1, 2, 1, 1, 3, 3, 'M', '', '', '')"
                                        << "Already TimeTable Entry Exists. So You Cannot Combine";
        QTest::newRow("teacher bound to a member's teacher")
            << PartnerOfA << ""
            << "The Teacher Teacher 2 Has A Combined Teacher Entry For The Subject Teacher 1\nHence You Cannot Have This Teacher In Combined Subject Entry";
        QTest::newRow("other periods") << TwoPeriods << "" << "Selected 'No. Of Periods' Should Be Same";
        QTest::newRow("same teacher")
            << SameTeacher << ""
            << "Already Selected Teacher Exists In This Group\nTeachers Should Be Different For Combined Subject Entry";
        QTest::newRow("same class division")
            << OtherIA << ""
            << "Already Selected Class-Division Exists In This Group\nClass-Division Should Be Different For Combined Subject Entry";
    }

    void pickRefusals()
    {
        QFETCH(Key, candidate);
        QFETCH(QString, meanwhile);
        QFETCH(QString, refusal);
        press(m_screen, "cmdNew");
        pick(A);
        loadDivisionIfNeeded(candidate);
        if (!meanwhile.isEmpty())
            m_store->exec(meanwhile);
        m_messages.expectInformation(refusal);
        pick(candidate);
        QCOMPARE(cells(members()), QStringList{"Teacher 1|I|A|Subject 1|3"});
        QVERIFY(rowOf(candidates(), candidate) >= 0);
    }

    void saveValidatesInOrder()
    {
        press(m_screen, "cmdNew");
        m_messages.expectInformation(QStringLiteral("Select Class"));
        press(m_screen, "cmdSave");
        choose(m_screen, "cboClass", 1);
        m_messages.expectInformation(QStringLiteral("Select Division"));
        press(m_screen, "cmdSave");
        choose(m_screen, "cboDivision", 1);
        m_messages.expectInformation(QStringLiteral("Select Class-Division-Subject-Teacher To Be Combined"));
        press(m_screen, "cmdSave");

        // A member placed after it was picked: the whole entry is discarded.
        pick(A);
        pick(B);
        place(*m_store, B);
        m_messages.expectInformation(QStringLiteral("Time Table Entry Already Exists For The Selected Combination"));
        press(m_screen, "cmdSave");
        QVERIFY(cells(members()).isEmpty());
        QVERIFY(enabled(m_screen, "cmdNew"));
        QVERIFY(allotments(*m_store, QStringLiteral("CPGroupNo > 0")).isEmpty());
    }

    // Save marks the members; the search hands the group back; Edit clears and rewrites it under the same
    // number; Delete dissolves it even with placed periods; the next group takes a new number.
    void groupLifeCycle()
    {
        saveGroupOfAAndB();
        QCOMPARE(allotments(*m_store, QStringLiteral("CPGroupNo > 0")),
                 (QStringList{"1 1 1 1 3|CP||CT|1 0 7||", "3 1 2 3 3|CP|||1 0 0||"}));
        QVERIFY(!enabled(m_screen, "fraMain"));

        press(m_screen, "cmdSearch");
        auto *search = m_screen->findChild<frmCombinedSubjectEntrySearch *>();
        QVERIFY(search);
        m_messages.expectQuestion(QStringLiteral("Do You Want To View All Combined Subject Entry Details ?"), true);
        press(search, "cmdSearch");
        auto *found = control<QTableWidget>(search, "msgDetails");
        QCOMPARE(cells(found), (QStringList{"1|Teacher 1|I|A|Subject 1|3", "1|Teacher 3|I|B|Subject 3|3"}));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), true);
        clickRow(found, 1);
        QCOMPARE(cells(members()).size(), 2);
        QVERIFY(enabled(m_screen, "cmdEdit") && enabled(m_screen, "cmdDelete"));
        QVERIFY(!enabled(m_screen, "cmdNew") && !enabled(m_screen, "cmdSave"));

        press(m_screen, "cmdEdit");
        clickRow(members(), rowOf(members(), B));
        pick(Free);
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        press(m_screen, "cmdSave");
        QCOMPARE(allotments(*m_store, QStringLiteral("CP <> ''")),
                 (QStringList{"1 1 1 1 3|CP||CT|1 0 7||", "4 2 2 6 3|CP|||1 0 0||"}));
        QCOMPARE(nextNo(*m_store, "CP"), 2);

        place(*m_store, A);
        m_screen->loadChosenGroup(A, 1);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Combined Subject Entry ?"), true);
        m_messages.expectInformation(QStringLiteral("Record Deleted"));
        press(m_screen, "cmdDelete");
        QVERIFY(allotments(*m_store, QStringLiteral("CP <> '' OR CPGroupNo <> 0")).isEmpty());
        QCOMPARE(m_store->count(QStringLiteral("TimeTable")), 1);

        press(m_screen, "cmdNew");
        pick(B);
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        press(m_screen, "cmdSave");
        QCOMPARE(allotments(*m_store, QStringLiteral("CPGroupNo > 0")), QStringList{"3 1 2 3 3|CP|||2 0 0||"});
    }

    void editRefusedOncePlaced()
    {
        saveGroupOfAAndB();
        place(*m_store, A);
        m_screen->loadChosenGroup(A, 1);
        m_messages.expectInformation(Combined::cannotEditText());
        press(m_screen, "cmdEdit");
        QVERIFY(!enabled(m_screen, "fraMain"));
        QVERIFY(!enabled(m_screen, "cmdSave"));
        QVERIFY(enabled(m_screen, "cmdDelete"));
    }

    void searchFiltersAndStaleRows()
    {
        saveGroupOfAAndB();
        press(m_screen, "cmdSearch");
        auto *search = m_screen->findChild<frmCombinedSubjectEntrySearch *>();
        QVERIFY(search);
        FIND_OR_FAIL(id, control<QLineEdit>(search, "txtCombinedSubjectId"));
        id->setText(QStringLiteral("99"));
        m_messages.expectInformation(QStringLiteral("No Record Exists"));
        press(search, "cmdSearch");

        id->clear();
        choose(search, "cboTeacher", 3);
        press(search, "cmdSearch");
        auto *found = control<QTableWidget>(search, "msgDetails");
        QCOMPARE(cells(found), QStringList{"1|Teacher 3|I|B|Subject 3|3"});
        m_store->exec(QStringLiteral("UPDATE WorkAllotmentEntry SET CP = '', CPGroupNo = 0 WHERE TeacherCode = 3"));
        m_messages.expectInformation(QStringLiteral("Record Has Been Deleted In Master Screen"));
        clickRow(found, 0);
        QVERIFY(!enabled(m_screen, "cmdEdit"));
    }

    void newNeedsThePrivilege()
    {
        m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'clerk', 'pw', 'N', 0)"));
        m_store->context().session.userCode = 1;
        m_messages.expectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
        press(m_screen, "cmdNew");
        QVERIFY(!enabled(m_screen, "fraDisplay"));
        QVERIFY(enabled(m_screen, "cmdNew"));
    }
};

QTEST_MAIN(tst_frmCombinedSubjectEntry)
#include "tst_frmcombinedsubjectentry.moc"
