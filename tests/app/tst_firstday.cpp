#include "appscreens.h"
#include "findcontrol.h"
#include "frmstartlogin.h"
#include "mditimetable.h"
#include "scriptedmessages.h"
#include "screenregistry.h"
#include "shell.h"
#include "sql.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

namespace {

QWidget *activeScreen(mdiTimeTable *main)
{
    QMdiSubWindow *window = main->findChild<QMdiArea *>()->activeSubWindow();
    return window ? window->widget() : nullptr;
}

void type(QWidget *screen, const char *name, const QString &text)
{
    FIND_OR_FAIL(field, findControl<QLineEdit>(screen, name));
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
}

void choose(QWidget *screen, const char *name, const QString &text)
{
    FIND_OR_FAIL(combo, findControl<QComboBox>(screen, name));
    combo->setCurrentIndex(combo->findText(text));
    QVERIFY2(combo->currentIndex() >= 0, name);
}

void click(QWidget *screen, const char *name)
{
    FIND_OR_FAIL(button, findControl<QPushButton>(screen, name));
    QTest::mouseClick(button, Qt::LeftButton);
}

void logIn(Shell &shell, const QString &login, const QString &password)
{
    QTRY_VERIFY(shell.loginScreen() != nullptr);
    frmStartLogin *screen = shell.loginScreen();
    FIND_OR_FAIL(loginId, findControl<QLineEdit>(screen, "txtLoginID"));
    FIND_OR_FAIL(passwordField, findControl<QLineEdit>(screen, "txtPassword"));
    loginId->setText(login);
    passwordField->setText(password);
    click(screen, "ImgOK");
}

QAction *menuEntry(mdiTimeTable *main, const char *name)
{
    return findControl<QAction>(main->menuBar(), name);
}

bool entryEnabled(mdiTimeTable *main, const char *name)
{
    FIND_OR_FAIL(action, menuEntry(main, name), false);
    return action->isEnabled();
}

// Opens a screen through its menu entry, as the office does, and returns it once it is in front.
QWidget *openFromMenu(mdiTimeTable *main, const char *entry)
{
    QAction *action = menuEntry(main, entry);
    if (!action || !action->isEnabled())
        return nullptr;
    action->trigger();
    return activeScreen(main);
}

}

class tst_FirstDay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    // A new school office on a fresh store: in with any name, the school described, the first login made on
    // the user screens, the program started again with that login, and the everyday screens within reach.
    void newOfficeGetsIn()
    {
        QTemporaryDir dir;
        ScriptedMessages messages;
        ScreenRegistry registry;
        registerAllScreens(registry);
        Shell shell(registry, messages, dir.path());
        shell.start();

        logIn(shell, QStringLiteral("anyone"), QStringLiteral("anything"));
        mdiTimeTable *main = shell.mainWindow();
        QVERIFY(main);
        QVERIFY(!entryEnabled(main, "mnuMasters"));
        QTRY_VERIFY(activeScreen(main) && activeScreen(main)->objectName() == QLatin1String("frmSchoolSetup"));

        QWidget *setup = activeScreen(main);
        click(setup, "cmdNew");
        type(setup, "txtSchoolName", QStringLiteral("Little Flower School"));
        type(setup, "txtAddress1", QStringLiteral("Church Road"));
        // The state and the city are added from School Setup itself, as a new office must.
        click(setup, "cmdAddState");
        QWidget *states = activeScreen(main);
        QVERIFY(states);
        QCOMPARE(states->objectName(), QStringLiteral("frmStateMaster"));
        click(states, "cmdNew");
        type(states, "txtStateName", QStringLiteral("Kerala"));
        messages.expectInformation(QStringLiteral("State Name Saved"));
        click(states, "cmdSave");
        click(states, "cmdExit");
        QTRY_COMPARE(activeScreen(main), setup);
        choose(setup, "dbcStateName", QStringLiteral("Kerala"));
        click(setup, "cmdAddCityName");
        QWidget *cities = activeScreen(main);
        QVERIFY(cities);
        click(cities, "cmdNew");
        choose(cities, "dbcStateName", QStringLiteral("Kerala"));
        type(cities, "txtCityName", QStringLiteral("Kochi"));
        messages.expectInformation({}).expectQuestion(
            QStringLiteral("Do You Want To Enter New City Name Under The Same State Name ?"), false);
        click(cities, "cmdSave");
        click(cities, "cmdExit");
        QTRY_COMPARE(activeScreen(main), setup);
        choose(setup, "dbcCityName", QStringLiteral("Kochi"));
        type(setup, "txtPincode", QStringLiteral("682001"));
        type(setup, "txtNoOfWorkingDays", QStringLiteral("5"));
        type(setup, "txtPeriodsPerDay", QStringLiteral("2"));
        type(setup, "txtPeriodsOnLastWorkingDay", QStringLiteral("2"));
        type(setup, "txtPeriodsInMorningSession", QStringLiteral("1"));
        click(setup, "cmdPeriodDetails");
        for (const char *minutes : {"45", "45"}) {
            type(setup, "txtDurationInMinutes", QString::fromLatin1(minutes));
            FIND_OR_FAIL(duration, findControl<QLineEdit>(setup, "txtDurationInMinutes"));
            QTest::keyClick(duration, Qt::Key_Return);
        }
        click(setup, "cmdClose");
        messages.expectInformation(QStringLiteral("Record Saved"));
        click(setup, "cmdSave");
        QVERIFY2(messages.done(), messages.report());
        main->findChild<QMdiArea *>()->closeAllSubWindows();
        QTRY_VERIFY(!activeScreen(main));

        QWidget *users = openFromMenu(main, "mnufrmUtilUserMaster");
        QVERIFY(users);
        click(users, "cmdNew");
        type(users, "txtName", QStringLiteral("Office Head"));
        messages.expectInformation(QStringLiteral("Record Saved"));
        click(users, "cmdSave");
        QVERIFY2(messages.done(), messages.report());

        QWidget *privileges = openFromMenu(main, "mnufrmUtilUserPrivilegeMaster");
        QVERIFY(privileges && privileges->objectName() == QLatin1String("frmUtilUserPrivilegeMaster"));
        click(privileges, "cmdNew");
        FIND_OR_FAIL(user, findControl<QComboBox>(privileges, "dbcUserName"));
        user->setCurrentIndex(user->findText(QStringLiteral("Office Head")));
        emit user->activated(user->currentIndex());
        type(privileges, "txtLoginID", QStringLiteral("head"));
        type(privileges, "txtPassword", QStringLiteral("Pass 1"));
        type(privileges, "txtRePassword", QStringLiteral("Pass 1"));
        FIND_OR_FAIL(tree, findControl<QTreeWidget>(privileges, "tvwDisplay"));
        for (int top = 0; top < tree->topLevelItemCount(); ++top)
            tree->topLevelItem(top)->setCheckState(0, Qt::Checked);
        messages.expectInformation(QStringLiteral("Record Saved"));
        messages.expectQuestion({}, true); // the offer to log in again now
        click(privileges, "cmdSave");

        // The session ends, the login comes back and now wants the login made.
        QTRY_VERIFY(shell.mainWindow() == nullptr || !shell.mainWindow()->isVisible());
        messages.expectInformation(QStringLiteral("Enter Correct Login ID And Password"));
        logIn(shell, QStringLiteral("anyone"), QStringLiteral("anything"));
        logIn(shell, QStringLiteral("HEAD"), QStringLiteral("Pass 1"));
        QVERIFY2(messages.done(), messages.report());
        main = shell.mainWindow();
        QVERIFY(main && main->isVisible());
        QCOMPARE(shell.context().session.userName, QStringLiteral("Office Head"));

        // What the login holds is within reach, and each screen opens and answers.
        states = openFromMenu(main, "mnufrmStateMaster");
        QVERIFY(states);
        click(states, "cmdNew");
        type(states, "txtStateName", QStringLiteral("Goa"));
        messages.expectInformation(QStringLiteral("State Name Saved"));
        click(states, "cmdSave");
        QVERIFY2(messages.done(), messages.report());
        for (const char *entry : {"mnufrmTeacherMaster", "mnufrmWorkAllotmentEntry", "mnufrmManualPeriodsEntry",
                                  "mnufrmAutoGenerationPhaseI", "mnufrmAutoGenerationPhaseII", "mnufrmrptTeacherTT"}) {
            main->findChild<QMdiArea *>()->closeAllSubWindows();
            QWidget *screen = openFromMenu(main, entry);
            QVERIFY2(screen, entry);
            QCOMPARE(QByteArray("mnu") + screen->objectName().toLatin1(), QByteArray(entry));
            QVERIFY2(screen->isVisible() && screen->isEnabled(), entry);
        }
        QVERIFY2(messages.done(), messages.report());
        const QSqlDatabase db = shell.context().db();
        QCOMPARE(Sql(db).scalar(QStringLiteral("SELECT COUNT(*) FROM StateMaster WHERE StateName IN ('Kerala', 'Goa')")),
                 QVariant(2));
    }
};

QTEST_MAIN(tst_FirstDay)
#include "tst_firstday.moc"
