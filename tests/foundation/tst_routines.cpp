#include "login.h"
#include "passwordhash.h"
#include "privileges.h"
#include "routines.h"
#include "runstatus.h"
#include "scriptedmessages.h"
#include "sql.h"
#include "store.h"
#include "teststore.h"
#include "transaction.h"

#include <QTest>

namespace {
// A class I with divisions A and B, a teacher and two subjects.
void addClassAndTeacher(TestStore &store)
{
    store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 2, 1)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'B', 2)"));
    store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'ENG')"));
    store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (2, 'Hindi', 'HIN')"));
    for (int t = 1; t <= 2; ++t)
        store.addTeacher({t, QStringLiteral("Teacher %1").arg(t), QStringLiteral("T%1").arg(t), 40});
}

void allot(TestStore &store, int teacher, int division, int subject, int periods, const QVariant &ctSystem = {})
{
    store.exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, 1, ?, ?, ?, '', '', '', 0, 0, 0, '', ?)"),
               {teacher, division, subject, periods, ctSystem});
}

void addLogin(TestStore &store, int userCode, const QString &name, const QString &login, const QString &password,
              const QString &block)
{
    store.exec(QStringLiteral("INSERT INTO UserMaster VALUES (?, ?, 0)"), {userCode, name});
    store.exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (?, ?, ?, ?, 0)"),
               {userCode, login, PasswordHash::make(password), block});
}
}

class tst_Routines : public QObject
{
    Q_OBJECT

private slots:
    void nextCodeCounts()
    {
        TestStore store;
        // Only the code-0 row: the first real code is 1. An empty table also gives 1.
        QCOMPARE(NextCode(store.db(), QStringLiteral("StateMaster"), QStringLiteral("StateCode")), 1);
        QCOMPARE(NextCode(store.db(), QStringLiteral("SubstituteAllotment"), QStringLiteral("SACode")), 1);
        store.exec(QStringLiteral("INSERT INTO StateMaster VALUES (7, 'Goa')"));
        QCOMPARE(NextCode(store.db(), QStringLiteral("StateMaster"), QStringLiteral("StateCode")), 8);
    }

    void nextGroupNo()
    {
        TestStore store;
        QCOMPARE(NextGroupNo(store.db(), QStringLiteral("CC")), 1);
        QCOMPARE(NextGroupNo(store.db(), QStringLiteral("CC")), 2);
        QCOMPARE(NextGroupNo(store.db(), QStringLiteral("CP")), 1);
        QCOMPARE(store.scalar(QStringLiteral("SELECT NextNo FROM ControlFileMaster WHERE ID = 'CC'")), QVariant(3));
        store.exec(QStringLiteral("DELETE FROM ControlFileMaster WHERE ID = 'CT'"));
        QCOMPARE(NextGroupNo(store.db(), QStringLiteral("CT")), 0);
        QCOMPARE(store.count(QStringLiteral("ControlFileMaster")), 2);
    }

    void tallies_data()
    {
        QTest::addColumn<int>("divisionA");
        QTest::addColumn<int>("divisionB");
        QTest::addColumn<bool>("over");
        QTest::addColumn<bool>("under");
        QTest::newRow("both exact") << 45 << 45 << false << false;
        QTest::newRow("one short") << 45 << 44 << false << true;
        QTest::newRow("one over") << 46 << 45 << true << false;
        QTest::newRow("one over, one short") << 46 << 10 << true << true;
        QTest::newRow("B has no allotment: not reported") << 45 << 0 << false << false;
    }

    // The week of 6 days, 8 periods and 5 on the last day has 45 periods.
    void tallies()
    {
        QFETCH(int, divisionA);
        QFETCH(int, divisionB);
        QFETCH(bool, over);
        QFETCH(bool, under);
        TestStore store;
        store.setUpSchool(6, 8, 5, 4);
        addClassAndTeacher(store);
        allot(store, 1, 1, 1, divisionA - 5);
        allot(store, 2, 1, 2, 5);
        if (divisionB > 0)
            allot(store, 1, 2, 1, divisionB);
        // A row the system added for a combined teacher group is no work of the class.
        allot(store, 2, 2, 1, 9, QStringLiteral("Y"));
        const SchoolCalendar &calendar = store.context().session.calendar;
        QCOMPARE(ClassesOverAllotted(store.db(), calendar), over);
        QCOMPARE(ClassesUnderAllotted(store.db(), calendar), under);
    }

    void tallyCountsNullSystemAsReal()
    {
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        addClassAndTeacher(store);
        // Rows written by name leave CTSystem null: they are real work.
        store.exec(QStringLiteral("INSERT INTO WorkAllotmentEntry (TeacherCode, ClassCode, DivisionCode, SubjectCode, "
                                  "NoOfSectionPeriods) VALUES (1, 1, 1, 1, 41)"));
        QVERIFY(ClassesOverAllotted(store.db(), store.context().session.calendar));
    }

    void checkPrivilege()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        AppContext &ctx = store.context();
        // No login at all: everything passes.
        QVERIFY(CheckPrivilege(ctx, QStringLiteral("frmStateMaster"), Privileges::Delete));

        addLogin(store, 1, QStringLiteral("Office"), QStringLiteral("office"), QStringLiteral("pw"),
                 QStringLiteral("N"));
        ctx.session.userCode = 1;
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES ('frmStateMaster', 'N', 1)"));
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES ('frmCityMaster', 'E', 2)"));
        QVERIFY(CheckPrivilege(ctx, QStringLiteral("frmStateMaster"), Privileges::New));
        QVERIFY(ctx.session.lastPrivilegeRefusal.isEmpty());
        QVERIFY(!CheckPrivilege(ctx, QStringLiteral("frmCityMaster"), Privileges::Edit)); // another user's row
        QCOMPARE(ctx.session.lastPrivilegeRefusal, QStringLiteral("You Have No Privilege To Modify This Entry"));

        messages.expectInformation(QStringLiteral("You Have No Privilege To Delete"));
        QVERIFY(!AllowedOrSay(ctx, QStringLiteral("frmStateMaster"), Privileges::Delete));
        QVERIFY2(messages.done(), messages.report());

        QCOMPARE(Privileges::refusalText(QStringLiteral("frmOptions"), Privileges::Save),
                 QStringLiteral("You Have No Privilege To Save"));
        QCOMPARE(Privileges::refusalText(QStringLiteral("frmTeacherMaster"), Privileges::Save),
                 QStringLiteral("You Have No Privilege To Change The Financial Year"));
    }

    void login_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("password");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<int>("userCode");
        using O = LoginResult::Outcome;
        QTest::newRow("known pair") << "office" << "Secret" << int(O::Accepted) << 1;
        QTest::newRow("login in other case") << "OFFICE" << "Secret" << int(O::Accepted) << 1;
        QTest::newRow("password in other case") << "office" << "secret" << int(O::WrongPair) << 0;
        QTest::newRow("wrong password") << "office" << "nope" << int(O::WrongPair) << 0;
        QTest::newRow("unknown login") << "nobody" << "Secret" << int(O::WrongPair) << 0;
        QTest::newRow("blocked with right password") << "clerk" << "pw" << int(O::Blocked) << 0;
        QTest::newRow("blocked with wrong password") << "clerk" << "bad" << int(O::WrongPair) << 0;
        QTest::newRow("quote in the login") << "o'brien" << "x'y" << int(O::Accepted) << 3;
        QTest::newRow("user row deleted") << "gone" << "pw" << int(O::WrongPair) << 0;
    }

    void login()
    {
        QFETCH(QString, login);
        QFETCH(QString, password);
        QFETCH(int, outcome);
        QFETCH(int, userCode);
        TestStore store;
        QCOMPARE(int(checkLogin(store.db(), login, password).outcome), int(LoginResult::Outcome::NoLoginsYet));
        addLogin(store, 1, QStringLiteral("Office"), QStringLiteral("office"), QStringLiteral("Secret"),
                 QStringLiteral("N"));
        addLogin(store, 2, QStringLiteral("Clerk"), QStringLiteral("clerk"), QStringLiteral("pw"), QStringLiteral("Y"));
        addLogin(store, 3, QStringLiteral("O'Brien"), QStringLiteral("o'brien"), QStringLiteral("x'y"),
                 QStringLiteral("N"));
        addLogin(store, 4, QStringLiteral("Gone"), QStringLiteral("gone"), QStringLiteral("pw"), QStringLiteral("N"));
        store.exec(QStringLiteral("DELETE FROM UserMaster WHERE UserCode = 4"));
        const LoginResult result = checkLogin(store.db(), login, password);
        QCOMPARE(int(result.outcome), outcome);
        QCOMPARE(result.userCode, userCode);
    }

    void codeReferenceAndHeading()
    {
        TestStore store;
        store.setUpSchool(5, 8, 8, 4);
        QString user;
        QVERIFY(IsCodeReferenced(store.db(), QStringLiteral(" CityMaster "), QStringLiteral("CityCode"), 1, &user));
        QCOMPARE(user, QStringLiteral("SchoolSetup"));
        QVERIFY(!IsCodeReferenced(store.db(), QStringLiteral("CityMaster"), QStringLiteral("CityCode"), 2, &user));
        QVERIFY(user.isEmpty());

        const SchoolHeading heading = LoadSchoolHeading(store.db());
        QCOMPARE(heading.schoolName, QStringLiteral("Model School"));
        QCOMPARE(heading.address, QStringLiteral("Main Road,Ward 4"));
        QCOMPARE(heading.place, QStringLiteral("Kochi,Kerala-682001"));
    }

    void runStatus()
    {
        TestStore store;
        RunStatus::reset(store.db());
        RunStatus::reset(store.db());
        QCOMPARE(store.count(QStringLiteral("ExamBoardMaster")), 1);
        RunStatus::markStopped(store.db());
        QCOMPARE(store.scalar(QStringLiteral("SELECT Status FROM ExamBoardMaster WHERE BoardCode = 1")),
                 QVariant(QStringLiteral("I")));
        QVERIFY(RunStatus::heartbeat(store.db()));
        QCOMPARE(store.scalar(QStringLiteral("SELECT Status FROM ExamBoardMaster")), QVariant(QStringLiteral("A")));
        {
            // While a screen's Save is open the tick stays out of it.
            Transaction save(store.db());
            QVERIFY(!RunStatus::heartbeat(store.db()));
        }
        RunStatus::ensureClasswiseWorkingDays(store.db()); // exists already: no error
        QVERIFY(Store::tableExists(store.db(), QStringLiteral("ClasswiseNoOfWorkingDays")));
    }
};

QTEST_GUILESS_MAIN(tst_Routines)
#include "tst_routines.moc"
