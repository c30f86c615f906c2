#include "frmstartlock.h"
#include "frmstartlogin.h"
#include "frmstartunlock.h"
#include "mainmenu.h"
#include "mditimetable.h"
#include "passwordhash.h"
#include "scriptedmessages.h"
#include "screenregistry.h"
#include "shell.h"
#include "sql.h"
#include "store.h"
#include "teststore.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {
// A stand-in child screen that records that it was opened.
QWidget *fakeScreen(const QString &title)
{
    auto *screen = new QWidget;
    screen->setWindowTitle(title);
    screen->resize(200, 100);
    return screen;
}

ScreenRegistry fakeRegistry()
{
    ScreenRegistry registry;
    registry.addExclusiveScreen(QStringLiteral("frmSchoolSetup"),
                                [](AppContext &) { return fakeScreen(QStringLiteral("School Setup")); },
                                QStringLiteral("Close All Other Windows"));
    for (const char *name : {"frmStateMaster", "frmManualPeriodsEntry", "frmBlankPeriods", "frmUtilUserMaster",
                             "frmUtilUserPrivilegeMaster", "frmrptWorkAllotmentNonTalliedclasses"})
        registry.addScreen(QString::fromLatin1(name),
                           [name](AppContext &) { return fakeScreen(QString::fromLatin1(name)); });
    return registry;
}

QStringList openScreens(mdiTimeTable &window)
{
    QStringList names;
    for (QMdiSubWindow *sub : window.findChild<QMdiArea *>()->subWindowList())
        if (sub->widget())
            names << sub->widget()->objectName();
    return names;
}

void allot(TestStore &store, int periods)
{
    store.exec(QStringLiteral("INSERT OR IGNORE INTO ClassDivisionMaster VALUES (1, 'I', 1, 1)"));
    store.exec(QStringLiteral("INSERT OR IGNORE INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
    store.exec(QStringLiteral("INSERT OR IGNORE INTO SubjectMaster VALUES (1, 'English', 'ENG')"));
    store.exec(QStringLiteral("INSERT OR IGNORE INTO TeacherMaster VALUES (1, 0, 'Anu', 'AN', NULL, 'S', NULL, NULL, "
                              "'', '', '', 0, '', '', 0, '', 45, 0, 0, 0, 0, 0)"));
    store.exec(QStringLiteral("DELETE FROM WorkAllotmentEntry"));
    store.exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (1, 1, 1, 1, ?, '', '', '', 0, 0, 0, '', '')"),
               {periods});
}
}

class tst_mdiTimeTable : public QObject
{
    Q_OBJECT

private slots:
    void menuTree()
    {
        TestStore store;
        ScreenRegistry registry;
        mdiTimeTable window(store.context(), registry);
        QStringList top;
        for (QAction *action : window.menuBar()->actions())
            top << action->objectName();
        QCOMPARE(top, (QStringList{"mnuMasters", "mnuTimeTableEntry", "mnuReports", "mnuUtilities", "mnuHelp",
                                   "mnuWindows", "mnuLock", "mnuClose"}));
        QStringList enabled;
        for (const MenuEntry &entry : MainMenu::entries()) {
            auto *action = window.menuBar()->findChild<QAction *>(QString::fromLatin1(entry.name));
            QVERIFY2(action, entry.name);
            if (!action->isSeparator())
                QCOMPARE(action->text(), QString::fromLatin1(entry.caption));
            if (action->isEnabled())
                enabled << action->objectName();
        }
        QCOMPARE(enabled, (QStringList{"mnuUtilities", "mnuHelp", "mnuTimeTableHelp", "mnuAboutUs", "mnuWindows",
                                       "mnuLock", "mnuClose"}));
        // Entries sit in their own menus, the bulk deletions one level further down.
        auto *utility = window.menuBar()->findChild<QMenu *>(QStringLiteral("mnuTimeTableUtility"));
        QCOMPARE(utility->parent()->objectName(), QStringLiteral("mnuUtilities"));
        QCOMPARE(utility->actions().size(), 6);
        QCOMPARE(utility->actions().last()->objectName(), QStringLiteral("mnuDeleteSubstituteHistory"));
        auto *masters = window.menuBar()->findChild<QMenu *>(QStringLiteral("mnuMasters"));
        QCOMPARE(masters->actions().size(), 8);
        QCOMPARE(masters->actions().at(3)->objectName(), QStringLiteral("mnufrmSchoolSetup"));
    }

    void menuEnablingAtLogin()
    {
        TestStore store;
        const ScreenRegistry registry = fakeRegistry();
        mdiTimeTable window(store.context(), registry);
        const auto enabled = [&](const char *name) {
            return window.menuBar()->findChild<QAction *>(QString::fromLatin1(name))->isEnabled();
        };
        window.applyPrivileges(true, {});
        QVERIFY(enabled("mnuUtilities"));
        QVERIFY(enabled("mnufrmUtilUserMaster"));
        QVERIFY(enabled("mnufrmUtilUserPrivilegeMaster"));
        QVERIFY(!enabled("mnuMasters"));
        QVERIFY(!enabled("mnufrmOptions"));
        QVERIFY(enabled("mnuClose"));

        // A privilege row spelled with other capitals still enables its entry.
        window.applyPrivileges(false, {QStringLiteral("Reports"), QStringLiteral("frmrptWorkAllotmentNonTalliedclasses"),
                                       QStringLiteral("Masters"), QStringLiteral("frmStateMaster")});
        QVERIFY(enabled("mnuReports"));
        QVERIFY(enabled("mnufrmrptWorkAllotmentNonTalliedClasses"));
        QVERIFY(enabled("mnufrmStateMaster"));
        QVERIFY(!enabled("mnufrmCityMaster"));
        // A granted entry whose screen is still to come stays off and says why.
        window.applyPrivileges(false, {QStringLiteral("Masters"), QStringLiteral("frmCityMaster")});
        auto *city = window.menuBar()->findChild<QAction *>(QStringLiteral("mnufrmCityMaster"));
        QVERIFY(!city->isEnabled());
        QVERIFY(city->toolTip().startsWith(QStringLiteral("Not available yet")));
        QVERIFY(!window.menuBar()->findChild<QAction *>(QStringLiteral("mnufrmStateMaster"))->toolTip().startsWith(
            QStringLiteral("Not available yet")));
        QVERIFY(!enabled("mnufrmUtilUserMaster"));
        QVERIFY(enabled("mnuUtilities")); // enabled from the start, whatever the user holds
    }

    void loadHeartbeatAndClose()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        AppContext &ctx = store.context();
        QVERIFY(QDir().mkpath(ctx.tempFolder));
        store.exec(QStringLiteral("UPDATE Options SET ConfirmExit = 'Y'"));
        ScreenRegistry registry;
        mdiTimeTable window(ctx, registry);
        QVERIFY(window.load());
        QVERIFY(ctx.session.confirmExit);
        QCOMPARE(store.scalar(QStringLiteral("SELECT BoardCode || ',' || BoardNo || ',' || Status "
                                             "FROM ExamBoardMaster")),
                 QVariant(QStringLiteral("1,1,A")));
        auto *timer = window.findChild<QTimer *>(QStringLiteral("tmrTimer"));
        QVERIFY(timer && timer->isActive());
        QCOMPARE(timer->interval(), 1000);
        store.exec(QStringLiteral("UPDATE ExamBoardMaster SET Status = 'X'"));
        // The one-second timer puts the status back; a busy machine may hold its first tick back for a while.
        QTRY_COMPARE_WITH_TIMEOUT(store.scalar(QStringLiteral("SELECT Status FROM ExamBoardMaster")),
                                  QVariant(QStringLiteral("A")), 20000);

        // The frame cannot close the program.
        messages.expectInformation(QStringLiteral("If You Want To Close 'Zarlo - TimeTable', Click On The Close Menu"));
        window.show();
        QVERIFY(!window.close());
        QVERIFY(window.isVisible());

        messages.expectQuestion(QStringLiteral("Do You Want To Close 'Zarlo-TimeTable' ?"), false);
        window.closeProgram();
        QVERIFY(timer->isActive());

        QSignalSpy ended(&window, &mdiTimeTable::programEnded);
        messages.expectQuestion(QStringLiteral("Do You Want To Close 'Zarlo-TimeTable' ?"), true);
        window.closeProgram();
        QCOMPARE(ended.count(), 1);
        QVERIFY(!QDir(ctx.tempFolder).exists());
        QVERIFY(!QSqlDatabase::contains(ctx.connectionName));
        QVERIFY2(messages.done(), messages.report());
        // The stopped mark is in the file.
        const QSqlDatabase again = Store::open(StoreFile::Main, store.folder(), ctx.connectionName);
        QCOMPARE(Sql(again).scalar(QStringLiteral("SELECT Status FROM ExamBoardMaster")), QVariant(QStringLiteral("I")));
    }

    void schoolSetupOpensAtOnceAndRunsAlone()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        const ScreenRegistry registry = fakeRegistry();
        mdiTimeTable window(store.context(), registry);
        QVERIFY(window.load());
        window.show();
        store.context().session.userName = QStringLiteral("  Office  ");
        window.activate();
        QCOMPARE(window.statusBar()->findChild<QLabel *>(QStringLiteral("lblUserName"))->text(),
                 QStringLiteral("User Name : Office"));
        QCOMPARE(openScreens(window), QStringList{"frmSchoolSetup"});
        QVERIFY(!window.menuBar()->findChild<QAction *>(QStringLiteral("mnuMasters"))->isVisible());
        QVERIFY(store.context().session.exclusiveScreenOpen);
        QVERIFY(window.OtherChildOpen());

        window.findChild<QMdiArea *>()->closeAllSubWindows();
        QTRY_VERIFY(!store.context().session.exclusiveScreenOpen);
        QVERIFY(openScreens(window).isEmpty());
        QVERIFY(window.menuBar()->findChild<QAction *>(QStringLiteral("mnuMasters"))->isVisible());

        // Beside another screen it refuses to open.
        window.openScreen(QStringLiteral("frmStateMaster"));
        window.openScreen(QStringLiteral("frmStateMaster")); // the open one comes to the front
        QCOMPARE(openScreens(window), QStringList{"frmStateMaster"});
        messages.expectInformation(QStringLiteral("Close All Other Windows"));
        window.openScreen(QStringLiteral("frmSchoolSetup"));
        QCOMPARE(openScreens(window), QStringList{"frmStateMaster"});
        window.openScreen(QStringLiteral("frmCityMaster")); // still to come: opens nothing
        QCOMPARE(openScreens(window), QStringList{"frmStateMaster"});
        QVERIFY2(messages.done(), messages.report());
    }

    void exitAsksWhenOptionsSaySo()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        store.setUpSchool(5, 8, 8, 4);
        store.context().session.confirmExit = true;
        const ScreenRegistry registry = fakeRegistry();
        mdiTimeTable window(store.context(), registry);
        window.show();
        window.openScreen(QStringLiteral("frmStateMaster"));
        QMdiSubWindow *sub = window.findChild<QMdiArea *>()->subWindowList().first();
        messages.expectQuestion(QStringLiteral("Do You Want To Exit frmStateMaster ?"), false);
        sub->close();
        QCOMPARE(openScreens(window), QStringList{"frmStateMaster"});
        messages.expectQuestion(QStringLiteral("Do You Want To Exit frmStateMaster ?"), true);
        sub->close();
        QTRY_VERIFY(openScreens(window).isEmpty());
        QVERIFY2(messages.done(), messages.report());
    }

    void checksBeforeManualEntry()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        store.setUpSchool(5, 8, 8, 4);
        const ScreenRegistry registry = fakeRegistry();
        mdiTimeTable window(store.context(), registry);
        window.show();
        const QString under = QStringLiteral(
            "Working Periods In Few Classes Are Not Properly Filled\nYou Can See These Details In 'WorkAllotment "
            "Details Report' Or 'WorkAllotment Non Tallied Classes Report'\nWithout Filling These Periods You Can "
            "Proceed With 'Manual Entry'\nDo You Want To Proceed ?");
        const QString over = QStringLiteral("'Periods Alloted' Is Greater Than 'Periods Per Week' For Some Classes."
                                            "\nDo You Want To View The Details ?");
        allot(store, 30);
        messages.expectQuestion(under, false);
        window.openScreen(QStringLiteral("frmManualPeriodsEntry"));
        QVERIFY(openScreens(window).isEmpty());

        allot(store, 41);
        messages.expectQuestion(over, false);
        window.openScreen(QStringLiteral("frmManualPeriodsEntry"));
        QVERIFY(openScreens(window).isEmpty());
        messages.expectQuestion(over, true);
        window.openScreen(QStringLiteral("frmManualPeriodsEntry"));
        QCOMPARE(openScreens(window), QStringList{"frmBlankPeriods"});
        window.findChild<QMdiArea *>()->closeAllSubWindows();

        allot(store, 40);
        window.openScreen(QStringLiteral("frmManualPeriodsEntry"));
        QCOMPARE(openScreens(window), QStringList{"frmManualPeriodsEntry"});
        QVERIFY(!window.statusBar()->isVisible());
        window.findChild<QMdiArea *>()->closeAllSubWindows();
        QTRY_VERIFY(window.statusBar()->isVisible());
        QVERIFY2(messages.done(), messages.report());
    }

    void loginPaths()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        store.setUpSchool(5, 8, 8, 4);
        AppContext &ctx = store.context();
        ctx.session.calendar = SchoolCalendar(); // the login reloads it
        frmStartLogin login(ctx);
        QSignalSpy in(&login, &frmStartLogin::loggedIn);
        QSignalSpy ended(&login, &frmStartLogin::programEnded);
        auto *id = login.findChild<QLineEdit *>(QStringLiteral("txtLoginID"));
        auto *password = login.findChild<QLineEdit *>(QStringLiteral("txtPassword"));
        auto *ok = login.findChild<QPushButton *>(QStringLiteral("ImgOK"));
        QCOMPARE(id->maxLength(), 15);

        messages.expectInformation(QStringLiteral("Enter Login ID"));
        id->setText(QStringLiteral("   "));
        QTest::mouseClick(ok, Qt::LeftButton);
        messages.expectInformation(QStringLiteral("Enter Password"));
        id->setText(QStringLiteral("admin"));
        QTest::mouseClick(ok, Qt::LeftButton);
        // No login exists yet: any pair comes in.
        password->setText(QStringLiteral("anything"));
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(in.count(), 1);
        QCOMPARE(in.takeFirst().at(0).toBool(), true);

        store.exec(QStringLiteral("INSERT INTO UserMaster VALUES (1, 'Office Head', 0)"));
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'head', ?, 'N', 0)"),
                   {PasswordHash::make(QStringLiteral("pw"))});
        store.exec(QStringLiteral("INSERT INTO UserMaster VALUES (2, 'Clerk', 0)"));
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (2, 'clerk', ?, 'Y', 0)"),
                   {PasswordHash::make(QStringLiteral("pw"))});
        messages.expectInformation(QStringLiteral("Enter Correct Login ID And Password"));
        QTest::mouseClick(ok, Qt::LeftButton);
        QVERIFY(id->text().isEmpty() && password->text().isEmpty());
        QCOMPARE(in.count(), 0);

        // Enter in the password field acts as OK.
        id->setText(QStringLiteral(" head "));
        password->setText(QStringLiteral("pw"));
        QTest::keyClick(password, Qt::Key_Return);
        QCOMPARE(in.count(), 1);
        QCOMPARE(in.takeFirst().at(0).toBool(), false);
        QCOMPARE(ctx.session.userName, QStringLiteral("Office Head"));
        QCOMPARE(ctx.session.loginId, QStringLiteral("head"));
        QCOMPARE(int(ctx.session.calendar.periodsPerWeek), 40);

        messages.expectInformation(QStringLiteral("Your ID Has Been Blocked. Contact Administrator"));
        id->setText(QStringLiteral("clerk"));
        password->setText(QStringLiteral("pw"));
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(ended.count(), 1);
        QVERIFY(!QSqlDatabase::contains(ctx.connectionName));
        QVERIFY2(messages.done(), messages.report());
    }

    void lockAndUnlock()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        AppContext &ctx = store.context();
        store.exec(QStringLiteral("INSERT INTO UserMaster VALUES (1, 'Office Head', 0)"));
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'head', ?, 'N', 0)"),
                   {PasswordHash::make(QStringLiteral("Secret"))});
        ctx.session.loginId = QStringLiteral("head");
        ctx.session.userCode = 1;

        auto *lock = new frmStartLock(ctx);
        QSignalSpy unlocked(lock, &frmStartLock::unlocked);
        QSignalSpy closeRequested(lock, &frmStartLock::closeProgramRequested);
        lock->show();
        messages.expectQuestion(QStringLiteral("Do You Want To Close 'Zarlo-TimeTable' ?"), false);
        QTest::keyClick(lock, Qt::Key_Escape);
        QCOMPARE(closeRequested.count(), 0);
        QVERIFY(lock->isVisible());
        QTest::keyClick(lock, Qt::Key_A); // any other key does nothing

        QTest::keyClick(lock, Qt::Key_F10);
        auto *unlock = lock->findChild<frmStartUnlock *>();
        QVERIFY(unlock);
        auto *id = unlock->findChild<QLineEdit *>(QStringLiteral("txtLoginID"));
        auto *password = unlock->findChild<QLineEdit *>(QStringLiteral("txtPassword"));
        auto *ok = unlock->findChild<QPushButton *>(QStringLiteral("cmdOK"));
        messages.expectInformation(QStringLiteral("Enter Correct Login ID / Password"));
        id->setText(QStringLiteral("head"));
        password->setText(QStringLiteral("wrong"));
        QTest::mouseClick(ok, Qt::LeftButton);
        QVERIFY(id->text().isEmpty());
        QCOMPARE(unlocked.count(), 0);
        // The login id compares without case, the password exactly, against the same hash as the login.
        messages.expectInformation(QStringLiteral("Enter Correct Login ID / Password"));
        id->setText(QStringLiteral("HEAD"));
        password->setText(QStringLiteral("secret"));
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(unlocked.count(), 0);
        id->setText(QStringLiteral("HEAD"));
        password->setText(QStringLiteral("Secret"));
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(unlocked.count(), 1);
        QTRY_VERIFY(!lock->isVisible());

        auto *second = new frmStartLock(ctx);
        QSignalSpy secondClose(second, &frmStartLock::closeProgramRequested);
        second->show();
        messages.expectQuestion(QStringLiteral("Do You Want To Close 'Zarlo-TimeTable' ?"), true);
        QTest::keyClick(second, Qt::Key_Escape);
        QCOMPARE(secondClose.count(), 1);
        delete second;
        QVERIFY2(messages.done(), messages.report());
    }

    // From splash to main window on a new school: the store is made, any pair logs in, School Setup opens.
    void startOnNewSchool()
    {
        QTemporaryDir dir;
        ScriptedMessages messages;
        const ScreenRegistry registry = fakeRegistry();
        Shell shell(registry, messages, dir.path());
        shell.start();
        QTRY_VERIFY_WITH_TIMEOUT(shell.loginScreen() != nullptr, 5000);
        QVERIFY(QFile::exists(dir.filePath(QStringLiteral("TimeTable.mdb"))));
        QVERIFY(QFile::exists(dir.filePath(QStringLiteral("TimeTablehelp.mdb"))));
        QVERIFY(QFile::exists(dir.filePath(QStringLiteral("Temp/1006.png"))));
        frmStartLogin *login = shell.loginScreen();
        login->findChild<QLineEdit *>(QStringLiteral("txtLoginID"))->setText(QStringLiteral("admin"));
        login->findChild<QLineEdit *>(QStringLiteral("txtPassword"))->setText(QStringLiteral("admin"));
        QTest::mouseClick(login->findChild<QPushButton *>(QStringLiteral("ImgOK")), Qt::LeftButton);
        QVERIFY(shell.mainWindow());
        QTRY_COMPARE(openScreens(*shell.mainWindow()), QStringList{"frmSchoolSetup"});
        QVERIFY(shell.mainWindow()->menuBar()->findChild<QAction *>(QStringLiteral("mnufrmUtilUserMaster"))
                    ->isEnabled());
        QVERIFY2(messages.done(), messages.report());
    }
};

QTEST_MAIN(tst_mdiTimeTable)
#include "tst_mditimetable.moc"
