#include "findcontrol.h"
#include "frmhelp.h"
#include "scriptedmessages.h"
#include "sql.h"
#include "store.h"
#include "teststore.h"

#include <QLabel>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>

class tst_frmHelp : public QObject
{
    Q_OBJECT

private slots:
    void opensOnTheScreensPage()
    {
        TestStore store;
        ScriptedMessages messages;
        store.setMessages(messages);
        // A page whose name holds an ampersand shows it once on the label.
        {
            const QSqlDatabase help = Store::open(StoreFile::Help, store.folder(), QStringLiteral("helpfile"));
            Sql(help).run(QStringLiteral("UPDATE HelpDetails SET ScreenName = 'Backup & Restore' WHERE Scrno = 47"));
        }
        Store::close(QStringLiteral("helpfile"));

        store.context().session.helpScreenNo = 10;
        frmHelp help(store.context());
        FIND_OR_FAIL(name, findControl<QLabel>(&help, "lblName"));
        FIND_OR_FAIL(detail, findControl<QTextEdit>(&help, "txtDetail"));
        FIND_OR_FAIL(tree, findControl<QTreeWidget>(&help, "tvwDisplay"));
        QCOMPARE(name->text(), QStringLiteral("Teacher Master"));
        QVERIFY(detail->toPlainText().contains(QStringLiteral("teacher"), Qt::CaseInsensitive));
        QCOMPARE(tree->topLevelItemCount(), 40);

        QTreeWidgetItem *backup = tree->findItems(QStringLiteral("BACKUP & RESTORE"), Qt::MatchFixedString).value(0);
        QVERIFY(backup);
        emit tree->itemClicked(backup, 0);
        QCOMPARE(name->text(), QStringLiteral("Backup && Restore"));

        // An unknown number leaves the text as it was and the list full.
        help.showScreen(99);
        QCOMPARE(name->text(), QStringLiteral("Backup && Restore"));
        QVERIFY2(messages.done(), messages.report());
    }
};

QTEST_MAIN(tst_frmHelp)
#include "tst_frmhelp.moc"
