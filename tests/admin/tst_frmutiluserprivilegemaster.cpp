#include "findcontrol.h"
#include "frmutiluserprivilegemaster.h"
#include "login.h"
#include "privilegetree.h"
#include "scriptedmessages.h"
#include "teststore.h"
#include "usermaster.h"
#include "userprivileges.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {

class RestartHost : public ScreenHost
{
public:
    void openScreen(const QString &formName) override { opened << formName; }
    void restartProgram() override { ++restarts; }
    QStringList opened;
    int restarts = 0;
};

const QString ViewQuestion =
    QStringLiteral("Privilege Already Exists To This User. Do You Want To View The Details ?");

void chooseUser(frmUtilUserPrivilegeMaster &screen, const QString &name)
{
    FIND_OR_FAIL(combo, findControl<QComboBox>(&screen, "dbcUserName"));
    const int index = combo->findText(name);
    QVERIFY(index >= 0);
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

void check(frmUtilUserPrivilegeMaster &screen, const QString &text)
{
    FIND_OR_FAIL(tree, findControl<QTreeWidget>(&screen, "tvwDisplay"));
    const QList<QTreeWidgetItem *> found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    QVERIFY(!found.isEmpty());
    found.first()->setCheckState(0, Qt::Checked);
}

void click(frmUtilUserPrivilegeMaster &screen, const char *name)
{
    FIND_OR_FAIL(button, findControl<QPushButton>(&screen, name));
    QTest::mouseClick(button, Qt::LeftButton);
}

bool enabled(frmUtilUserPrivilegeMaster &screen, const char *name)
{
    FIND_OR_FAIL(widget, findControl<QWidget>(&screen, name), false);
    return widget->isEnabled();
}

}

class tst_frmUtilUserPrivilegeMaster : public QObject
{
    Q_OBJECT

private slots:
    // The first login of a new store, made on the screen; then shown back, and saved without retyping.
    void firstLogin()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        RestartHost host;
        store.context().host = &host;
        store.context().session.openAccess = true; // logged in with any pair, as on a new store
        const int head = ReferenceMasterService(store.db(), userKind()).save(0, QStringLiteral("Office Head")).code;
        frmUtilUserPrivilegeMaster screen(store.context());
        screen.show();
        FIND_OR_FAIL(tree, findControl<QTreeWidget>(&screen, "tvwDisplay"));
        FIND_OR_FAIL(loginId, findControl<QLineEdit>(&screen, "txtLoginID"));
        FIND_OR_FAIL(password, findControl<QLineEdit>(&screen, "txtPassword"));
        FIND_OR_FAIL(rePassword, findControl<QLineEdit>(&screen, "txtRePassword"));
        QVERIFY(!tree->isEnabled());
        QVERIFY(enabled(screen, "Frame4")); // no login yet: everything passes

        click(screen, "cmdNew");
        QVERIFY(tree->isEnabled());
        QVERIFY(!enabled(screen, "Frame4"));
        chooseUser(screen, QStringLiteral("Office Head"));
        loginId->setText(QStringLiteral("head"));
        password->setText(QStringLiteral("Secret1"));
        rePassword->setText(QStringLiteral("Secret1"));
        // Checking Utilities checks everything under it, the user screens' buttons too.
        check(screen, QStringLiteral("Utilities"));
        check(screen, QStringLiteral("Masters"));
        messages.expectInformation(QStringLiteral("Record Saved"));
        messages.expectQuestion(QStringLiteral("The first login is made. From the next start every user logs in with "
                                               "a login ID and password and sees only the menus granted in User "
                                               "Privileges; until then this session keeps the menus it has.\nDo you "
                                               "want to log in again now?"),
                                true);
        click(screen, "cmdSave");
        QVERIFY2(messages.done(), messages.report());
        QCOMPARE(host.restarts, 1);
        QVERIFY(!tree->isEnabled());
        QCOMPARE(checkLogin(store.db(), "HEAD", "Secret1").outcome, LoginResult::Outcome::Accepted);
        const QVariant hash = store.scalar(QStringLiteral("SELECT Password FROM UserPrivilegeMaster"));

        // Shown back: the mask, not the password; the same tree. The session keeps its access until it ends.
        click(screen, "cmdEdit");
        messages.expectQuestion(ViewQuestion, true);
        chooseUser(screen, QStringLiteral("Office Head"));
        QCOMPARE(loginId->text(), QStringLiteral("head"));
        QVERIFY(password->text() != QStringLiteral("Secret1"));
        const QList<QTreeWidgetItem *> utilities = tree->findItems(QStringLiteral("Options"),
                                                                   Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(utilities.first()->checkState(0), Qt::Checked);
        QCOMPARE(utilities.first()->child(0)->checkState(0), Qt::Checked);
        // Unchecking a screen clears its buttons; saved without retyping, the hash stays.
        tree->findItems(QStringLiteral("Teacher Master"), Qt::MatchExactly | Qt::MatchRecursive)
            .first()
            ->setCheckState(0, Qt::Unchecked);
        messages.expectInformation(QStringLiteral("Record Updated"));
        click(screen, "cmdSave");
        QVERIFY2(messages.done(), messages.report());
        QCOMPARE(store.scalar(QStringLiteral("SELECT Password FROM UserPrivilegeMaster")), hash);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM UserPrivilegeDetails WHERE FormName = "
                                             "'frmTeacherMaster'")),
                 QVariant(0));
        QCOMPARE(store.count(QStringLiteral("UserPrivilegeDetails")), 31 + 22 - 4); // Masters and Utilities, less one screen
        QCOMPARE(host.restarts, 1);
    }

    // A user without Edit or Copy of this screen finds those buttons refusing, and the copy frame off.
    void refusedButtons()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        const QSqlDatabase db = store.db();
        QVERIFY(addUserWithLogin(db, QStringLiteral("Office Head"), QStringLiteral("head"), QStringLiteral("pw"), true)
                    .saved);
        const NewUserResult clerk =
            addUserWithLogin(db, QStringLiteral("Clerk"), QStringLiteral("clerk"), QStringLiteral("pw"), false);
        QVERIFY(clerk.saved);
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES ('frmUtilUserPrivilegeMaster', 'D', ?)"),
                   {clerk.userCode});
        store.exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES ('frmUtilUserPrivilegeMaster', 'N', ?)"),
                   {clerk.userCode});
        store.context().session.userCode = clerk.userCode;
        frmUtilUserPrivilegeMaster screen(store.context());
        screen.show();
        QVERIFY(!enabled(screen, "Frame4"));
        messages.expectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
        click(screen, "cmdEdit");
        QVERIFY(!enabled(screen, "tvwDisplay"));
        click(screen, "cmdNew");
        QVERIFY(enabled(screen, "tvwDisplay"));
        // Typing a login before choosing a user is refused.
        FIND_OR_FAIL(login, findControl<QLineEdit>(&screen, "txtLoginID"));
        messages.expectInformation(QStringLiteral("Select User Name"));
        login->setFocus();
        QTest::keyClick(login, Qt::Key_A);
        QVERIFY(login->text().isEmpty());
        QVERIFY2(messages.done(), messages.report());
    }
};

QTEST_MAIN(tst_frmUtilUserPrivilegeMaster)
#include "tst_frmutiluserprivilegemaster.moc"
