#include "schema.h"
#include "scriptedmessages.h"
#include "store.h"
#include "storestart.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>

// How the program opens a school at start: read-only folders, a school held by another window, a lock left
// by a run that ended without closing.
class tst_StoreStart : public QObject
{
    Q_OBJECT

    static void makeStore(const QString &folder)
    {
        QDir().mkpath(folder);
        Store::open(StoreFile::Main, folder, QStringLiteral("made"));
        Store::close(QStringLiteral("made"));
    }

    static const QString &user() { static const QString name = QStringLiteral("office"); return name; }

private slots:
    void readOnlyFolder_data()
    {
        QTest::addColumn<bool>("copyWanted");
        QTest::addColumn<bool>("userFolderHasSchool");
        QTest::addColumn<bool>("opensCopy");
        QTest::newRow("copied to the user's folder") << true << false << true;
        QTest::newRow("opened read-only") << false << false << false;
        QTest::newRow("copy refused: a school stands there") << true << true << false;
    }

    void readOnlyFolder()
    {
        QFETCH(bool, copyWanted);
        QFETCH(bool, userFolderHasSchool);
        QFETCH(bool, opensCopy);
        QTemporaryDir dir;
        const QString shared = dir.filePath(QStringLiteral("shared"));
        const QString mine = dir.filePath(QStringLiteral("mine"));
        makeStore(shared);
        if (userFolderHasSchool)
            makeStore(mine);
        ScriptedMessages messages;
        messages.expectQuestion(QStringLiteral("The School In %1 Cannot Be Changed There: The Folder Or The File Is "
                                               "Read-Only.\n\nYes: Copy It To %2 And Open The Copy\n"
                                               "No: Open It Read-Only")
                                    .arg(QDir::toNativeSeparators(shared), QDir::toNativeSeparators(mine)),
                                copyWanted);
        if (userFolderHasSchool)
            messages.expectCritical(QStringLiteral("A School Already Stands In %1\nThe School Is Opened Read-Only.")
                                        .arg(QDir::toNativeSeparators(mine)));

        const StoreStart start = chooseStoreStart(shared, mine, user(), messages,
                                                  [&](const QString &folder) { return folder == shared; });
        QVERIFY2(messages.done(), messages.report());
        QVERIFY(!start.quit);
        QCOMPARE(start.folder, opensCopy ? mine : shared);
        QCOMPARE(start.readOnly, !opensCopy);
        if (opensCopy)
            QVERIFY(Store::isOurs(QDir(mine).filePath(Schema::fileName(StoreFile::Main)), StoreFile::Main));
        QCOMPARE(start.lock != nullptr, opensCopy); // a read-only school takes no lock
    }

    void heldByAnotherWindow_data()
    {
        QTest::addColumn<bool>("openReadOnly");
        QTest::newRow("read-only") << true;
        QTest::newRow("not at all") << false;
    }

    void heldByAnotherWindow()
    {
        QFETCH(bool, openReadOnly);
        QTemporaryDir dir;
        makeStore(dir.path());
        StoreLock first(dir.path());
        QCOMPARE(first.take(QStringLiteral("Anita")), StoreLock::State::Taken);

        ScriptedMessages messages;
        messages.expectQuestion({}, openReadOnly);
        const StoreStart start = chooseStoreStart(dir.path(), dir.filePath(QStringLiteral("mine")), user(), messages,
                                                  [](const QString &) { return false; });
        QVERIFY2(messages.done(), messages.report());
        const QString asked = messages.shown().constFirst().text;
        QVERIFY2(asked.startsWith(QStringLiteral("This School Is Open By Anita On %1 Since ")
                                      .arg(QSysInfo::machineHostName())),
                 qPrintable(asked));
        QCOMPARE(start.quit, !openReadOnly);
        QCOMPARE(start.readOnly, openReadOnly);
    }

    void lockLeftByAnEndedRun_data()
    {
        QTest::addColumn<bool>("leftBehind");
        QTest::newRow("clean start") << false;
        QTest::newRow("after an unclean end") << true;
    }

    void lockLeftByAnEndedRun()
    {
        QFETCH(bool, leftBehind);
        QTemporaryDir dir;
        makeStore(dir.path());
        if (leftBehind) {
            // The lock of a process that is gone: a pid no process has, on this machine.
            QFile lock(dir.filePath(Schema::fileName(StoreFile::Main) + QStringLiteral(".lock")));
            QVERIFY(lock.open(QIODevice::WriteOnly));
            lock.write(QByteArray("2147483646\nzarlo-timetable\n") + QSysInfo::machineHostName().toUtf8() + '\n');
        }
        ScriptedMessages messages;
        const StoreStart start = chooseStoreStart(dir.path(), dir.filePath(QStringLiteral("mine")), user(), messages,
                                                  [](const QString &) { return false; });
        QVERIFY2(messages.done(), messages.report());
        QVERIFY(!start.readOnly && !start.quit);
        QCOMPARE(start.checkFirst, leftBehind);
        QVERIFY(start.lock);
        QCOMPARE(start.lock->holder().section(QLatin1Char(' '), 0, 0), user());
    }
};

QTEST_GUILESS_MAIN(tst_StoreStart)
#include "tst_storestart.moc"
