#include "login.h"
#include "passwordhash.h"
#include "privilegetree.h"
#include "scriptedmessages.h"
#include "teststore.h"
#include "usermaster.h"
#include "userprivileges.h"

#include <QTest>

namespace {

QList<bool> none()
{
    return QList<bool>(PrivilegeTree::nodes().size(), false);
}

// The nodes an administrator must hold, and nothing else.
QList<bool> administration()
{
    QList<bool> checked = none();
    for (int node : {PrivilegeTree::UtilitiesNode, PrivilegeTree::UserPrivilegesNode,
                     PrivilegeTree::UserPrivilegesNewNode, PrivilegeTree::UserPrivilegesEditNode})
        checked[node - 1] = true;
    return checked;
}

int nodeOf(const char *key)
{
    const QList<PrivilegeNode> &nodes = PrivilegeTree::nodes();
    for (int i = 0; i < nodes.size(); ++i)
        if (nodes[i].key == QLatin1String(key))
            return i;
    return -1;
}

LoginEntry entry(int userCode, const QString &login, const QString &password, const QList<bool> &checked,
                 const QString &blocked = QStringLiteral("NO"))
{
    LoginEntry e;
    e.userCode = userCode;
    e.loginId = login;
    e.password = password;
    e.retyped = password;
    e.blocked = blocked;
    e.checked = checked;
    return e;
}

int addUser(TestStore &store, const QString &name)
{
    const SaveResult saved = ReferenceMasterService(store.db(), userKind(), 0).save(0, name);
    return saved.code;
}

}

class tst_UserPrivileges : public QObject
{
    Q_OBJECT

private slots:
    void treeOrderAndRows()
    {
        const QList<PrivilegeNode> &nodes = PrivilegeTree::nodes();
        QCOMPARE(nodes.size(), 101);
        // Positions the rules address by number, and the keys a stored row is read back by.
        QCOMPARE(nodes[PrivilegeTree::UtilitiesNode - 1].key, QStringLiteral("Utilities"));
        QCOMPARE(nodes[PrivilegeTree::UserPrivilegesNode - 1].key, QStringLiteral("frmUtilUserPrivilegeMaster"));
        QCOMPARE(nodes[PrivilegeTree::UserPrivilegesEditNode].key, QStringLiteral("frmUtilUserPrivilegeMasterCopy"));
        QCOMPARE(nodes[97].key, QStringLiteral("frmFileBackupRestoreRestor"));
        QCOMPARE(nodes[100].key, QStringLiteral("frmOptionsSave"));
        QCOMPARE(nodes[84].text, QStringLiteral("Delete Auto Generation Phase 2 Entries "));

        // Checking a screen checks its buttons; the rows name the screen for each.
        QList<bool> checked = none();
        PrivilegeTree::setSubtree(checked, nodeOf("frmStateMaster"), true);
        QCOMPARE(PrivilegeTree::rowsFor(checked),
                 (QList<PrivilegeRow>{{"frmStateMaster", 'D'}, {"frmStateMaster", 'N'}, {"frmStateMaster", 'E'},
                                      {"frmStateMaster", 'X'}}));
        QCOMPARE(checked[nodeOf("frmCityMaster")], false);
        // A top node takes its whole branch, the bulk deletions under TimeTable Utility included.
        checked = none();
        PrivilegeTree::setSubtree(checked, PrivilegeTree::UtilitiesNode - 1, true);
        QCOMPARE(checked.count(true), 101 - 79);
        QVERIFY(PrivilegeTree::keepsAdministration(checked));
        QVERIFY(checked[nodeOf("DeleteSubstituteHistory")]);
        // What is stored reads back as the same tree, whatever the case of the stored names.
        QList<PrivilegeRow> rows = PrivilegeTree::rowsFor(checked);
        rows.append({"FRMOPTIONS", 's'});
        QCOMPARE(PrivilegeTree::checkedFor(rows), checked);
        QCOMPARE(PrivilegeTree::rowsFor(PrivilegeTree::allChecked()).size(), 101);
        // A button under an unchecked screen has no screen to name.
        checked = none();
        checked[nodeOf("frmStateMasterNew")] = true;
        QCOMPARE(PrivilegeTree::rowsFor(checked), (QList<PrivilegeRow>{{QString(), 'N'}}));
    }

    void hashes()
    {
        const QString first = PasswordHash::make(QStringLiteral("s3cret"));
        const QString second = PasswordHash::make(QStringLiteral("s3cret"));
        QVERIFY(first != QStringLiteral("s3cret"));
        QVERIFY(!first.contains(QStringLiteral("s3cret")));
        QVERIFY(first != second);
        QVERIFY(PasswordHash::verify(first, QStringLiteral("s3cret")));
        QVERIFY(PasswordHash::verify(second, QStringLiteral("s3cret")));
        QVERIFY(!PasswordHash::verify(first, QStringLiteral("S3cret")));
        QVERIFY(!PasswordHash::verify(QStringLiteral("s3cret"), QStringLiteral("s3cret"))); // a plain value never passes
        QVERIFY(!PasswordHash::verify(QString(), QString()));
    }

    void firstLoginAndLogins()
    {
        TestStore store;
        UserPrivilegeService service(store.db());
        const int head = addUser(store, QStringLiteral("Office Head"));
        const int clerk = addUser(store, QStringLiteral("Clerk"));
        QCOMPARE(service.users(), (QList<CodeName>{{clerk, "Clerk"}, {head, "Office Head"}}));

        // The first login must keep administration and may not be blocked.
        LoginSaveResult result = service.save(entry(head, "Head", "pw", none()), 0);
        QCOMPARE(result.message, QStringLiteral("Atleast One User Should Have Privilege To 'Utility Privilege' Menu"));
        result = service.save(entry(head, "Head", "pw", administration(), "YES"), 0);
        QCOMPARE(result.message, QStringLiteral("All The Users Cannot Be Blocked"));
        QCOMPARE(store.count(QStringLiteral("UserPrivilegeMaster")), 0);
        result = service.save(entry(head, "Head", "pw", administration()), 0);
        QVERIFY(result.saved && result.firstLogin);
        QCOMPARE(result.message, QStringLiteral("Record Saved"));
        const QString stored = store.scalar(QStringLiteral("SELECT Password FROM UserPrivilegeMaster")).toString();
        QVERIFY(stored != QStringLiteral("pw"));

        result = service.save(entry(clerk, "HEAD", "pw", none()), head);
        QCOMPARE(result.message, QStringLiteral("Login ID Already Exists"));
        result = service.save(entry(clerk, "clerk", "pw", none(), "YES"), head);
        QVERIFY(result.saved && !result.firstLogin);
        QCOMPARE(store.scalar(QStringLiteral("SELECT CreatedBy FROM UserPrivilegeMaster WHERE UserCode = ?"), {clerk}),
                 QVariant(head));
        // Same password, another salt.
        QVERIFY(store.scalar(QStringLiteral("SELECT Password FROM UserPrivilegeMaster WHERE UserCode = ?"), {clerk})
                != stored);

        // Login ids compare without case, passwords exactly; the blocked word goes only with the right password.
        QCOMPARE(checkLogin(store.db(), "head", "pw").outcome, LoginResult::Outcome::Accepted);
        QCOMPARE(checkLogin(store.db(), "head", "PW").outcome, LoginResult::Outcome::WrongPair);
        QCOMPARE(checkLogin(store.db(), "clerk", "pw").outcome, LoginResult::Outcome::Blocked);
        QCOMPARE(checkLogin(store.db(), "clerk", "wrong").outcome, LoginResult::Outcome::WrongPair);
        // A login whose user was deleted finds nobody.
        store.exec(QStringLiteral("DELETE FROM UserMaster WHERE UserCode = ?"), {clerk});
        QCOMPARE(checkLogin(store.db(), "clerk", "pw").outcome, LoginResult::Outcome::WrongPair);
    }

    void saveRefusals_data()
    {
        QTest::addColumn<LoginEntry>("input");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("field");
        const QList<bool> admin = administration();
        QTest::newRow("no user") << entry(0, "x", "pw", admin) << "Select User Name" << int(LoginField::UserName);
        QTest::newRow("no login") << entry(1, " ", "pw", admin) << "Enter Login ID" << int(LoginField::LoginId);
        LoginEntry e = entry(1, "x", "", admin);
        QTest::newRow("no password") << e << "Enter Password" << int(LoginField::Password);
        e = entry(1, "x", "pw", admin);
        e.retyped.clear();
        QTest::newRow("no retype") << e << "Enter Re-Type Password" << int(LoginField::RePassword);
        QTest::newRow("no block answer") << entry(1, "x", "pw", admin, "") << "Select Whether User Is Blocked Or Not"
                                         << int(LoginField::Blocked);
        e = entry(1, "x", "pw", admin);
        e.retyped = QStringLiteral("pW");
        QTest::newRow("different") << e << "Password Does Not Match" << int(LoginField::Password);
        QList<bool> orphan = admin;
        orphan[nodeOf("frmStateMasterEdit")] = true;
        QTest::newRow("button without its screen")
            << entry(1, "x", "pw", orphan)
            << "Without Selecting Main Nodes Child Nodes Cannot Be Selected\n(e.g.Without Selecting 'User Master', "
               "New/Edit/Delete Of 'User Master' Alone Cannot Be Saved)"
            << int(LoginField::None);
    }

    void saveRefusals()
    {
        QFETCH(LoginEntry, input);
        QFETCH(QString, message);
        QFETCH(int, field);
        TestStore store;
        addUser(store, QStringLiteral("Office Head"));
        const LoginSaveResult result = UserPrivilegeService(store.db()).save(input, 0);
        QCOMPARE(result.saved, false);
        QCOMPARE(result.message, message);
        QCOMPARE(int(result.field), field);
        // Nothing half-saved: no login and no privilege row.
        QCOMPARE(store.count(QStringLiteral("UserPrivilegeMaster")), 0);
        QCOMPARE(store.count(QStringLiteral("UserPrivilegeDetails")), 0);
    }

    void lastAdministratorStays()
    {
        TestStore store;
        ScriptedMessages messages;
        UserPrivilegeService service(store.db());
        const int head = addUser(store, QStringLiteral("Office Head"));
        const int clerk = addUser(store, QStringLiteral("Clerk"));
        const int typist = addUser(store, QStringLiteral("Typist"));
        QVERIFY(service.save(entry(head, "head", "pw", administration()), 0).saved);
        QList<bool> masters = none();
        PrivilegeTree::setSubtree(masters, 0, true);
        QVERIFY(service.save(entry(clerk, "clerk", "pw", masters), head).saved);

        // By Save: neither blocked nor stripped, and the old password stays when not retyped.
        LoginEntry edit = entry(head, "head", "", administration(), "YES");
        edit.keepPassword = true;
        QCOMPARE(service.save(edit, head).message, QStringLiteral("All The Users Cannot Be Blocked"));
        edit = entry(head, "head", "", masters);
        edit.keepPassword = true;
        QCOMPARE(service.save(edit, head).message,
                 QStringLiteral("Atleast One User Should Have Privilege To 'Utility Privilege' Menu"));
        edit.checked = administration();
        edit.checked[0] = true;
        const LoginSaveResult updated = service.save(edit, head);
        QCOMPARE(updated.message, QStringLiteral("Record Updated"));
        QCOMPARE(checkLogin(store.db(), "head", "pw").outcome, LoginResult::Outcome::Accepted);
        // Nor deleted from the user master.
        QCOMPARE(service.checkUserRemovable(head),
                 QStringLiteral("Atleast One User Should Have Privilege To 'Utility Privilege' Menu"));
        QCOMPARE(service.checkUserRemovable(clerk), QString());

        // By Copy: the administrator may not take the clerk's rows in place of his own.
        CopyResult copied = service.copy(clerk, head, messages);
        QCOMPARE(copied.message, QStringLiteral("Selected User Doesnot Have Any Privilege To Transfer"));
        QCOMPARE(service.copy(0, head, messages).message, QStringLiteral("Select 'From User'"));
        QCOMPARE(service.copy(head, 0, messages).message, QStringLiteral("Select 'To User'"));
        QCOMPARE(service.copy(head, head, messages).message,
                 QStringLiteral("Both 'From User' And 'To User' Should Not Be Same"));
        QCOMPARE(service.copy(typist, clerk, messages).message, QStringLiteral("Login Not Created For Typist"));
        QCOMPARE(service.copy(head, typist, messages).message, QStringLiteral("Login Not Created For Typist"));

        // The target's rows are replaced only on Yes.
        const QString question =
            QStringLiteral("Privilege Already Exists For Clerk.Do You Want To Replace The Existing Privilege ?");
        const int clerkRows = store.scalar(QStringLiteral("SELECT COUNT(*) FROM UserPrivilegeDetails WHERE UserCode = ?"),
                                           {clerk}).toInt();
        messages.expectQuestion(question, false);
        copied = service.copy(head, clerk, messages);
        QVERIFY(!copied.copied && copied.message.isEmpty());
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM UserPrivilegeDetails WHERE UserCode = ?"), {clerk})
                     .toInt(),
                 clerkRows);
        messages.expectQuestion(question, true);
        copied = service.copy(head, clerk, messages);
        QCOMPARE(copied.message, QStringLiteral("Privilege Copied"));
        QCOMPARE(service.login(clerk)->rows, service.login(head)->rows);
        QVERIFY2(messages.done(), messages.report());

        // Now two administrators: either may be blocked, not both.
        edit = entry(head, "head", "", administration(), "YES");
        edit.keepPassword = true;
        QVERIFY(service.save(edit, head).saved);
        edit = entry(clerk, "clerk", "", administration(), "YES");
        edit.keepPassword = true;
        QCOMPARE(service.save(edit, head).message, QStringLiteral("All The Users Cannot Be Blocked"));
        QCOMPARE(service.copy(typist, head, messages).message, QStringLiteral("Login Not Created For Typist"));
    }
};

QTEST_GUILESS_MAIN(tst_UserPrivileges)
#include "tst_userprivileges.moc"
