#include "combinedtestkit.h"
#include "frmcombinedteacherentry.h"

using namespace CombinedKit;
using Combined::Key;

namespace {
const Key Main{1, 1, 1, 1}; // Teacher 1 takes Subject 1 in I-A for 4 periods

QString excess(int ceiling, int by)
{
    return QStringLiteral("No. Of Periods Alloted For Teacher Teacher 2 Is Only %1\nBut This Selection Will Exceed By %2\nSo You Cannot Add This Teacher In This Combined Teacher Group")
        .arg(ceiling)
        .arg(by);
}
}

class tst_frmCombinedTeacherEntry : public ScreenTest<frmCombinedTeacherEntry>
{
    Q_OBJECT

    QTableWidget *listed() { return control<QTableWidget>(m_screen, "msgDetails"); }

    void chooseMain()
    {
        choose(m_screen, "cboClass", 1);
        choose(m_screen, "cboDivision", 1);
        choose(m_screen, "cboSubject", 1);
    }

    void add(int teacher, int subject)
    {
        choose(m_screen, "cboTeacherAdd", teacher);
        choose(m_screen, "cboSubjectAdd", subject);
        press(m_screen, "cmdAdd");
    }

    void setCeiling(int teacher, int periods)
    {
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET NoOfPeriods = ? WHERE TeacherCode = ?"), {periods, teacher});
    }

private slots:
    void init()
    {
        QVERIFY(openScreen({
            {1, 1, 1, 1, 4},
            {3, 1, 2, 3, 4}
        }));
    }

    void cleanup() { QVERIFY2(closeScreen(), m_messages.report()); }

    // Room = ceiling - allotted - the main row's 4 periods, with Teacher 2's ceiling at 10.
    void roomOfTheAddedTeacher_data()
    {
        QTest::addColumn<int>("plain");
        QTest::addColumn<int>("generatedClass");
        QTest::addColumn<int>("generatedTeacher");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("exactly enough") << 6 << 0 << 0 << QString();
        QTest::newRow("one period short") << 7 << 0 << 0 << excess(10, 1);
        QTest::newRow("generated combined class rows cost nothing") << 6 << 3 << 0 << QString();
        QTest::newRow("generated combined teacher rows count") << 6 << 0 << 1 << excess(10, 1);
    }

    void roomOfTheAddedTeacher()
    {
        QFETCH(int, plain);
        QFETCH(int, generatedClass);
        QFETCH(int, generatedTeacher);
        QFETCH(QString, refusal);
        setCeiling(2, 10);
        allot(*m_store, {2, 2, 1, 2, plain});
        if (generatedClass > 0)
            allot(*m_store, {2, 2, 2, 2, generatedClass, 0, 9, 0, "Y", ""});
        if (generatedTeacher > 0)
            allot(*m_store, {2, 2, 2, 4, generatedTeacher, 0, 0, 9, "", "Y"});
        press(m_screen, "cmdNew");
        chooseMain();
        if (!refusal.isEmpty())
            m_messages.expectInformation(refusal);
        add(2, 2);
        QCOMPARE(cells(listed()).size(), refusal.isEmpty() ? 1 : 0);
    }

    // In an Edit the teacher's own generated row of the group is free again, yet the excess shown leaves it out.
    void roomInAnEdit()
    {
        setCeiling(2, 10);
        allot(*m_store, {2, 2, 1, 2, 6});
        press(m_screen, "cmdNew");
        chooseMain();
        add(2, 2);
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        press(m_screen, "cmdSave");

        setCeiling(2, 9);
        m_screen->loadChosenGroup(Main, 1);
        press(m_screen, "cmdEdit");
        m_messages.expectQuestion(QStringLiteral("Do You Want To Remove The Selected Teacher And Subject From The Group ?"), true);
        clickRow(listed(), 0);
        m_messages.expectInformation(excess(9, 5));
        add(2, 5);
        setCeiling(2, 10);
        press(m_screen, "cmdAdd");
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        press(m_screen, "cmdSave");
        QCOMPARE(allotments(*m_store, QStringLiteral("CTGroupNo > 0")),
                 (QStringList{"1 1 1 1 4|||CT|0 0 1||", "2 1 1 5 4|||CT|0 0 1||Y"}));
    }

    void addRefusals()
    {
        press(m_screen, "cmdNew");
        chooseMain();
        m_messages.expectInformation(QStringLiteral("You Cannot Select The Same Teacher"));
        choose(m_screen, "cboTeacherAdd", 1);
        m_messages.expectInformation(QStringLiteral("You Cannot Select The Same Teacher"));
        press(m_screen, "cmdAdd");
        add(2, 2);
        m_messages.expectInformation(QStringLiteral("Already The Selected Teacher Is Added In This Group\nYou Cannot Add It Again"));
        choose(m_screen, "cboTeacherAdd", 2);
        // I-A has Subject 1 already, whoever teaches it.
        m_messages.expectInformation(QStringLiteral("'Work Allotment Entry' Already Exists For The Selected Class-Division-Subject-Teacher\nHence This Combination Cannot Be Added In A Combined Teacher Group"));
        add(4, 1);
        QCOMPARE(cells(listed()), QStringList{"Teacher 2|Subject 2"});
    }

    // Teachers bound in a subject group cannot share the main row's class division.
    void partnerInACombinedSubjectGroupRefused()
    {
        m_store->exec(QStringLiteral("UPDATE WorkAllotmentEntry SET CP = 'CP', CPGroupNo = 5"));
        press(m_screen, "cmdNew");
        chooseMain();
        m_messages.expectInformation(QStringLiteral("The Teacher Teacher 3 Has A Combined Subject Entry With Teacher 1 For I-A-Subject 1\nHence Combined Teacher Entry Is Not Possible For The Selected Teacher Teacher 3"));
        add(3, 2);
        QVERIFY(cells(listed()).isEmpty());
    }

    void saveWritesGeneratedRowsAndDeleteTestsTheTimetable()
    {
        press(m_screen, "cmdNew");
        chooseMain();
        m_messages.expectInformation(QStringLiteral("Select Teacher-Subject To Be Combined"));
        press(m_screen, "cmdSave");
        add(2, 2);
        add(4, 3);
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        press(m_screen, "cmdSave");
        QCOMPARE(allotments(*m_store, QStringLiteral("CTGroupNo > 0")),
                 (QStringList{"1 1 1 1 4|||CT|0 0 1||", "2 1 1 2 4|||CT|0 0 1||Y", "4 1 1 3 4|||CT|0 0 1||Y"}));

        place(*m_store, Main);
        m_screen->loadChosenGroup(Main, 1);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Combined Teacher Entry ?"), true);
        m_messages.expectInformation(Combined::cannotDeleteText());
        press(m_screen, "cmdDelete");
        QCOMPARE(allotments(*m_store, QStringLiteral("CTGroupNo > 0")).size(), 3);

        m_store->exec(QStringLiteral("DELETE FROM TimeTable"));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Combined Teacher Entry ?"), false);
        press(m_screen, "cmdDelete");
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Combined Teacher Entry ?"), true);
        m_messages.expectInformation(QStringLiteral("Record Deleted"));
        press(m_screen, "cmdDelete");
        QCOMPARE(allotments(*m_store), (QStringList{"1 1 1 1 4||||0 0 0||", "3 1 2 3 4||||0 0 0||"}));
        QCOMPARE(nextNo(*m_store, "CT"), 2);
    }
};

QTEST_MAIN(tst_frmCombinedTeacherEntry)
#include "tst_frmcombinedteacherentry.moc"
