#include "combinedtestkit.h"
#include "frmcombinedclassentry.h"
#include "frmcombinedclassentrysearch.h"

#include <QLabel>

using namespace CombinedKit;
using Combined::Key;

namespace {
const Key Main{1, 1, 1, 1}; // Teacher 1 takes Subject 1 in I-A
const QString Taken = QStringLiteral("'Work Allotment Entry' Already Exists For The Selected Class-Division-Subject\nHence This Combination Cannot Be Added In A Combined Class Group");
}

class tst_frmCombinedClassEntry : public ScreenTest<frmCombinedClassEntry>
{
    Q_OBJECT

    QTableWidget *listed() { return control<QTableWidget>(m_screen, "msgDetails"); }

    void chooseMain(int classCode, int division, int subject)
    {
        choose(m_screen, "cboClass", classCode);
        choose(m_screen, "cboDivision", division);
        if (subject > 0)
            choose(m_screen, "cboSubject", subject);
    }

    void add(int classCode, int division)
    {
        choose(m_screen, "cboClassAdd", classCode);
        choose(m_screen, "cboDivisionAdd", division);
        press(m_screen, "cmdAdd");
    }

    // New, I-A Subject 1 combined with I-B and I-C: group 1.
    void saveGroup()
    {
        press(m_screen, "cmdNew");
        chooseMain(1, 1, 1);
        add(1, 2);
        add(1, 3);
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        press(m_screen, "cmdSave");
    }

private slots:
    void init()
    {
        QVERIFY(openScreen({
            {1, 1, 1, 1, 3},
            {2, 2, 1, 1, 3}, // II-A has Subject 1 with another teacher
            {3, 1, 2, 2, 4},
            {4, 2, 2, 3, 2}
        }));
    }

    void cleanup() { QVERIFY2(closeScreen(), m_messages.report()); }

    // Each added class division gets a row with the main row's teacher, subject and periods, CC "CC",
    // the group number and CCSystem "Y"; the main row is only marked.
    void generatedRowsCarryTheMainRow()
    {
        press(m_screen, "cmdNew");
        chooseMain(1, 1, 1);
        QCOMPARE(labelText(m_screen, "lblTeacherName"), QStringLiteral("Teacher 1"));
        QCOMPARE(labelText(m_screen, "lblNoOfSectionPeriods"), QStringLiteral("3"));
        add(1, 2);
        add(2, 2);
        m_messages.expectInformation(QStringLiteral("Already This Class-Division Is Added In This Group\nYou Cannot Add It Again"));
        add(1, 2);
        QCOMPARE(cells(listed()), (QStringList{"I|B", "II|B"}));
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        press(m_screen, "cmdSave");
        QCOMPARE(allotments(*m_store, QStringLiteral("TeacherCode = 1")),
                 (QStringList{"1 1 1 1 3||CC||0 1 0||", "1 1 2 1 3||CC||0 1 0|Y|", "1 2 2 1 3||CC||0 1 0|Y|"}));
        QCOMPARE(nextNo(*m_store, "CC"), 2);
        QVERIFY(cells(listed()).isEmpty());
        QVERIFY(enabled(m_screen, "cmdNew"));
    }

    void addRefusals_data()
    {
        QTest::addColumn<int>("mainSubject");
        QTest::addColumn<int>("classCode");
        QTest::addColumn<int>("division");
        QTest::addColumn<QStringList>("refusals");
        QTest::newRow("no class") << 1 << 0 << 0 << QStringList{"Select Class"};
        QTest::newRow("no division") << 1 << 1 << 0 << QStringList{"Select Division"};
        QTest::newRow("no main subject") << 0 << 1 << 2 << QStringList{"Select Subject"};
        // Choosing the division already tells; Add refuses again.
        QTest::newRow("the main class division")
            << 1 << 1 << 1
            << QStringList{Taken, "The Selected Class Is The Main Class To Which Other Classes Will Be Combined\nHence You Cannot Add This Class To The List"};
        QTest::newRow("subject taught there by another teacher") << 1 << 2 << 1 << QStringList{Taken, Taken};
    }

    void addRefusals()
    {
        QFETCH(int, mainSubject);
        QFETCH(int, classCode);
        QFETCH(int, division);
        QFETCH(QStringList, refusals);
        press(m_screen, "cmdNew");
        chooseMain(1, 1, mainSubject);
        for (const QString &text : std::as_const(refusals))
            m_messages.expectInformation(text);
        if (classCode > 0)
            choose(m_screen, "cboClassAdd", classCode);
        if (division > 0)
            choose(m_screen, "cboDivisionAdd", division);
        press(m_screen, "cmdAdd");
        QVERIFY(cells(listed()).isEmpty());
    }

    void saveValidatesInOrder()
    {
        press(m_screen, "cmdNew");
        m_messages.expectInformation(QStringLiteral("Select Class"));
        press(m_screen, "cmdSave");
        chooseMain(1, 1, 1);
        m_messages.expectInformation(QStringLiteral("Select Class-Division To Be Combined"));
        press(m_screen, "cmdSave");
        add(1, 2);
        // Meanwhile I-B is given Subject 1 on the work allotment screen.
        allot(*m_store, {5, 1, 2, 1, 3});
        m_messages.expectInformation(QStringLiteral("Already 'Work Allotment Entry' Exists For The Combined Class-Division\nReselect The Combination"));
        press(m_screen, "cmdSave");
        QVERIFY(cells(listed()).isEmpty());
        QVERIFY(enabled(m_screen, "cmdSave"));
        QCOMPARE(m_store->count(QStringLiteral("WorkAllotmentEntry")), 5);
    }

    // After an Edit the generated rows are those of the new list: a dropped class division loses its row.
    void editDropsAClassDivision()
    {
        saveGroup();
        m_screen->loadChosenGroup(Main, 1);
        QCOMPARE(cells(listed()), (QStringList{"I|B", "I|C"}));
        FIND_OR_FAIL(subject, control<QComboBox>(m_screen, "cboSubject"));
        QCOMPARE(subject->currentText(), QStringLiteral("Subject 1"));
        press(m_screen, "cmdEdit");
        m_messages.expectQuestion(QStringLiteral("Do You Want To Remove The Selected Class-Division From The Group ?"), true);
        clickRow(listed(), 1);
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        press(m_screen, "cmdSave");
        QCOMPARE(allotments(*m_store, QStringLiteral("TeacherCode = 1")),
                 (QStringList{"1 1 1 1 3||CC||0 1 0||", "1 1 2 1 3||CC||0 1 0|Y|"}));
        QCOMPARE(nextNo(*m_store, "CC"), 2);
    }

    void deleteTestsTheTimetableAndNumbersStayUsed()
    {
        saveGroup();
        place(*m_store, Main);
        m_screen->loadChosenGroup(Main, 1);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Combined Class Entry ?"), true);
        m_messages.expectInformation(Combined::cannotDeleteText());
        press(m_screen, "cmdDelete");
        QCOMPARE(allotments(*m_store, QStringLiteral("CCGroupNo = 1")).size(), 3);

        m_store->exec(QStringLiteral("DELETE FROM TimeTable"));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Combined Class Entry ?"), true);
        m_messages.expectInformation(QStringLiteral("Record Deleted"));
        press(m_screen, "cmdDelete");
        QCOMPARE(allotments(*m_store, QStringLiteral("TeacherCode = 1")), QStringList{"1 1 1 1 3||||0 0 0||"});

        saveGroup();
        QCOMPARE(allotments(*m_store, QStringLiteral("TeacherCode = 1 AND CCSystem = ''")),
                 QStringList{"1 1 1 1 3||CC||0 2 0||"});
    }

    void choosingTheMainRow()
    {
        saveGroup();
        press(m_screen, "cmdNew");
        const QString existing = QStringLiteral("Combined Class Entry Already Exists For This Selection\nDo You Want To View The Details ?");
        m_messages.expectQuestion(existing, false);
        chooseMain(1, 1, 1);
        QVERIFY(labelText(m_screen, "lblTeacherName").isEmpty());
        m_messages.expectQuestion(existing, true);
        choose(m_screen, "cboSubject", 1);
        QCOMPARE(cells(listed()).size(), 2);
        QVERIFY(enabled(m_screen, "cmdEdit"));

        press(m_screen, "cmdCancel");
        press(m_screen, "cmdNew");
        m_messages.expectInformation(QStringLiteral("The Selected Combination Is A System Generated Work Allotment Entry\nSo It Cannot Be Selected"));
        chooseMain(1, 2, 1);
        FIND_OR_FAIL(subject, control<QComboBox>(m_screen, "cboSubject"));
        QCOMPARE(subject->currentData().toInt(), 0);
        place(*m_store, {3, 1, 2, 2});
        m_messages.expectInformation(QStringLiteral("Time Table Entry Already Exists For This Selection"));
        choose(m_screen, "cboSubject", 2);
    }

    void searchListsMainRowsOnly()
    {
        saveGroup();
        press(m_screen, "cmdSearch");
        auto *search = m_screen->findChild<frmCombinedClassEntrySearch *>();
        QVERIFY(search);
        choose(search, "cboClass", 1);
        press(search, "cmdSearch");
        QCOMPARE(cells(control<QTableWidget>(search, "msgDetails")), QStringList{"1|Teacher 1|I|A|Subject 1|3"});
    }
};

QTEST_MAIN(tst_frmCombinedClassEntry)
#include "tst_frmcombinedclassentry.moc"
