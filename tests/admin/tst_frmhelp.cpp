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
        auto *name = help.findChild<QLabel *>(QStringLiteral("lblName"));
        auto *detail = help.findChild<QTextEdit *>(QStringLiteral("txtDetail"));
        auto *tree = help.findChild<QTreeWidget *>(QStringLiteral("tvwDisplay"));
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
