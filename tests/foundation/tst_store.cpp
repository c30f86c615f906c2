#include "schema.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"
#include "teststore.h"
#include "transaction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

class tst_Store : public QObject
{
    Q_OBJECT

private:
    static QStringList columns(const QSqlDatabase &db, const QString &table)
    {
        QStringList names;
        QSqlQuery query = Sql(db).run(QStringLiteral("SELECT name FROM pragma_table_info(?) ORDER BY cid"), {table});
        while (query.next())
            names << query.value(0).toString();
        return names;
    }

    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void writeFile(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }

    // Runs statements on a plain SQLite connection to `path`, outside the store's own code.
    static void sqlite(const QString &path, const QStringList &statements)
    {
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("plain"));
            db.setDatabaseName(path);
            QVERIFY(db.open());
            for (const QString &statement : statements)
                QVERIFY2(QSqlQuery(db).exec(statement), qPrintable(statement));
            db.close();
        }
        QSqlDatabase::removeDatabase(QStringLiteral("plain"));
    }

    static void makeFile(const QTemporaryDir &dir, const QString &kind)
    {
        const QString path = dir.filePath(QStringLiteral("TimeTable.mdb"));
        const QString ours = QString::number(Schema::applicationId(StoreFile::Main));
        if (kind == QLatin1String("empty")) {
            writeFile(path, {});
        } else if (kind == QLatin1String("text")) {
            writeFile(path, QByteArray("Class,Teacher\n5A,Rao\n").repeated(20));
        } else if (kind == QLatin1String("foreign")) {
            sqlite(path, {QStringLiteral("CREATE TABLE SchoolSetup (x)")});
        } else if (kind == QLatin1String("bare")) {
            sqlite(path, {QStringLiteral("PRAGMA application_id = ") + ours, QStringLiteral("CREATE TABLE x (y)")});
        } else if (kind == QLatin1String("help")) {
            Store::open(StoreFile::Help, dir.path(), QStringLiteral("help"));
            Store::close(QStringLiteral("help"));
            QVERIFY(QFile::rename(dir.filePath(Schema::fileName(StoreFile::Help)), path));
        } else {
            Store::open(StoreFile::Main, dir.path(), QStringLiteral("made"));
            Store::close(QStringLiteral("made"));
            if (kind == QLatin1String("newer"))
                sqlite(path, {QStringLiteral("PRAGMA user_version = %1").arg(Schema::Version + 1)});
            if (kind == QLatin1String("truncated"))
                QVERIFY(QFile::resize(path, QFileInfo(path).size() / 2));
        }
    }

private slots:
    // Tables read by position: the named columns must stand at their places.
    void positionalTables()
    {
        TestStore store;
        const QStringList timeTable = columns(store.db(), QStringLiteral("TimeTable"));
        QCOMPARE(timeTable.size(), 10);
        QCOMPARE(timeTable.mid(0, 7), (QStringList{"ClassCode", "DivisionCode", "DayCode", "PeriodCode",
                                                   "SubjectCode", "TeacherCode", "Manual"}));
        QCOMPARE(timeTable.mid(8), (QStringList{"CC", "CT"}));
        const QStringList phase1 = columns(store.db(), QStringLiteral("AutoGenPhase1"));
        QCOMPARE(phase1.size(), 14);
        QCOMPARE(phase1.mid(0, 9), (QStringList{"groupno", "ID", "ClassCode", "DivisionCode", "TeacherCode",
                                                "SubjectCode", "PeriodCode", "P1Insert", "P2Insert"}));
        QCOMPARE(phase1.mid(11, 2), (QStringList{"CCSystem", "CTSystem"}));
        QCOMPARE(columns(store.db(), QStringLiteral("AutoGenPhase2")), phase1.mid(1));
        QCOMPARE(columns(store.db(), QStringLiteral("FreePeriodDetails")).size(), 7);
        QCOMPARE(columns(store.db(), QStringLiteral("FreePeriodDetails")).at(1), QStringLiteral("FreeType"));
    }

    void seedRows()
    {
        TestStore store;
        for (const char *table : {"StateMaster", "CityMaster", "BloodGroupMaster"}) {
            QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 = '-Nil-'")
                                      .arg(QLatin1String(table),
                                           QString::fromLatin1(table).replace(QStringLiteral("Master"),
                                                                              QStringLiteral("Name"))))
                         .toInt(),
                     1);
        }
        for (const char *check : {"SELECT COUNT(*) FROM SalutationMaster WHERE SalutationCode = 0",
                                  "SELECT COUNT(*) FROM TeacherMaster WHERE TeacherCode = 0",
                                  "SELECT COUNT(*) FROM SubjectMaster WHERE SubjectCode = 0",
                                  "SELECT COUNT(*) FROM ClassDivisionMaster WHERE ClassCode = 0",
                                  "SELECT COUNT(*) FROM PeriodDuration WHERE PeriodCode = 0 AND PeriodName = ''",
                                  "SELECT COUNT(*) FROM TTCode WHERE PIStatus = 'N'",
                                  "SELECT COUNT(*) FROM Options"})
            QVERIFY2(store.scalar(QString::fromLatin1(check)).toInt() == 1, check);
        QCOMPARE(store.scalar(QStringLiteral("SELECT group_concat(ID || NextNo, ',') FROM ControlFileMaster")),
                 QVariant(QStringLiteral("CP1,CC1,CT1")));
        // The seven weekdays run through a week in order; Monday is day 1 until School Setup rotates them.
        QCOMPARE(store.count(QStringLiteral("DayMaster")), 7);
        QCOMPARE(store.scalar(QStringLiteral("SELECT DayName FROM DayMaster WHERE DayCode = 1")),
                 QVariant(QStringLiteral("Monday")));
        QCOMPARE(store.count(QStringLiteral("UserPrivilegeMaster")), 0);
    }

    void textComparesWithoutCase()
    {
        TestStore store;
        store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'Mathematics', 'MAT')"));
        QCOMPARE(store.scalar(QStringLiteral("SELECT SubjectCode FROM SubjectMaster WHERE SubjectName = ?"),
                              {QStringLiteral("MATHEMATICS")}),
                 QVariant(1));
    }

    void usedMasterCannotBeDeleted()
    {
        TestStore store;
        store.exec(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala')"));
        store.exec(QStringLiteral("INSERT INTO CityMaster VALUES (1, 1, 'Kochi')"));
        QVERIFY_THROWS_EXCEPTION(StoreError, Sql(store.db()).run(QStringLiteral("DELETE FROM StateMaster "
                                                                                "WHERE StateCode = 1")));
        QCOMPARE(store.count(QStringLiteral("StateMaster")), 2);
        // The refusal can name what still uses the record.
        QCOMPARE(Store::firstUserOf(store.db(), QStringLiteral("StateMaster"), QStringLiteral("StateCode"), 1),
                 QStringLiteral("CityMaster"));
        QCOMPARE(Store::usedElsewhereText(QStringLiteral("CityMaster")),
                 QStringLiteral("This Record Is Used In 'City Master'. So You Cannot Delete It"));
        QVERIFY(Store::firstUserOf(store.db(), QStringLiteral("StateMaster"), QStringLiteral("StateCode"), 2)
                    .isEmpty());
        // A division is known by the pair: allotting to a division that does not exist is refused.
        store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1)"));
        store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
        store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'ENG')"));
        store.addTeacher({1, QStringLiteral("Anu"), QStringLiteral("AN")});
        QVERIFY_THROWS_EXCEPTION(StoreError,
                                 Sql(store.db()).run(QStringLiteral("INSERT INTO WorkAllotmentEntry (TeacherCode, "
                                                                    "ClassCode, DivisionCode, SubjectCode, "
                                                                    "NoOfSectionPeriods) VALUES (1, 1, 2, 1, 5)")));
    }

    void catalogue()
    {
        TestStore store;
        QVERIFY(Store::tableExists(store.db(), QStringLiteral("timetable")));
        QVERIFY(!Store::tableExists(store.db(), QStringLiteral("AGP1TeacherDetails")));
        QStringList users;
        for (const Store::Reference &reference : Store::referencesTo(store.db(), QStringLiteral("TeacherMaster")))
            users << reference.childTable;
        users.sort();
        QCOMPARE(users, (QStringList{"SubstituteAllotment", "SubstituteAllotment", "TimeTable", "WorkAllotmentEntry"}));
    }

    // A Save that fails half-way leaves nothing behind; an inner guard rolls back only its own part.
    void transactions()
    {
        TestStore store;
        const Sql sql(store.db());
        try {
            Transaction save(store.db());
            sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Goa')"));
            sql.run(QStringLiteral("INSERT INTO NoSuchTable VALUES (1)"));
            save.commit();
            QFAIL("the second statement should have failed");
        } catch (const StoreError &error) {
            QVERIFY(error.text().contains(QStringLiteral("NoSuchTable")));
        }
        QCOMPARE(store.count(QStringLiteral("StateMaster")), 1);

        Transaction outer(store.db());
        sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa')"));
        {
            Transaction inner(store.db());
            sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (3, 'Assam')"));
        }
        QVERIFY(Transaction::isOpen(store.db()));
        outer.commit();
        QVERIFY(!Transaction::isOpen(store.db()));
        QCOMPARE(store.scalar(QStringLiteral("SELECT group_concat(StateCode) FROM StateMaster")),
                 QVariant(QStringLiteral("0,2")));
    }

    void companionFilesAndMarks()
    {
        QTemporaryDir dir;
        for (StoreFile file : {StoreFile::Main, StoreFile::BackupHistory, StoreFile::Help}) {
            Store::open(file, dir.path(), QStringLiteral("marks"));
            Store::close(QStringLiteral("marks"));
            const QString path = dir.filePath(Schema::fileName(file));
            QVERIFY(Store::isOurs(path, file));
            QVERIFY(!QFile::exists(path + QStringLiteral(".new")));
        }
        QVERIFY(!Store::isOurs(dir.filePath(QStringLiteral("TimeTable.mdb")), StoreFile::Help));
        QFile stranger(dir.filePath(QStringLiteral("other.mdb")));
        QVERIFY(stranger.open(QIODevice::WriteOnly));
        stranger.write(QByteArray(200, 'x'));
        stranger.close();
        QVERIFY(!Store::isOurs(stranger.fileName(), StoreFile::Main));

        const QSqlDatabase help = Store::open(StoreFile::Help, dir.path(), QStringLiteral("help"));
        const Sql sql(help);
        QCOMPARE(sql.scalar(QStringLiteral("SELECT COUNT(*) FROM HelpDetails")).toInt(), 40);
        QCOMPARE(sql.scalar(QStringLiteral("SELECT COUNT(*) FROM HelpDetails WHERE length(Details) < 200")).toInt(),
                 0);
        QCOMPARE(sql.scalar(QStringLiteral("SELECT ScreenName FROM HelpDetails WHERE Scrno = 10")),
                 QVariant(QStringLiteral("Teacher Master")));
        QCOMPARE(sql.scalar(QStringLiteral("PRAGMA user_version")).toInt(), Schema::Version);
        Store::close(QStringLiteral("help"));

        const QSqlDatabase backup = Store::open(StoreFile::BackupHistory, dir.path(), QStringLiteral("backup"));
        QVERIFY(Store::tableExists(backup, QStringLiteral("BackupDatabase")));
        QVERIFY(Store::tableExists(backup, QStringLiteral("RestoreDatabase")));
        Store::close(QStringLiteral("backup"));
    }

    // A file that is not a usable store of ours is refused with its path and the cause, and not changed.
    void unusableFilesAreRefusedUntouched_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("cause");
        QTest::newRow("empty") << "empty" << "It Is Empty";
        QTest::newRow("text") << "text" << "It Is Not A Database";
        QTest::newRow("foreign database") << "foreign" << "It Is A Database Of Another Program";
        QTest::newRow("help file under the main name") << "help" << "It Is The File 'TimeTablehelp.mdb'";
        QTest::newRow("cut short") << "truncated" << "It Is Cut Short";
        QTest::newRow("newer version") << "newer" << "It Was Made By A Newer Version Of Zarlo-TimeTable";
        QTest::newRow("our mark, no tables") << "bare" << "It Has No Table SchoolSetup";
    }

    void unusableFilesAreRefusedUntouched()
    {
        QFETCH(QString, kind);
        QFETCH(QString, cause);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("TimeTable.mdb"));
        makeFile(dir, kind);
        const QByteArray before = contents(path);

        for (Store::Access access : {Store::Access::ReadWrite, Store::Access::ReadOnly}) {
            try {
                Store::open(StoreFile::Main, dir.path(), QStringLiteral("refused"), access);
                QFAIL("the file was taken as a store");
            } catch (const UnusableStore &error) {
                QVERIFY2(error.text().contains(QDir::toNativeSeparators(path)), qPrintable(error.text()));
                QVERIFY2(error.text().contains(cause), qPrintable(error.text()));
            }
            QVERIFY(!QSqlDatabase::contains(QStringLiteral("refused")));
        }
        QCOMPARE(contents(path), before);
    }

    void damageIsFoundByTheQuickCheck()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("TimeTable.mdb"));
        QCOMPARE(Store::integrityProblem(Store::open(StoreFile::Main, dir.path(), QStringLiteral("whole"))), QString());
        Store::close(QStringLiteral("whole"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qint64 pageSize = 4096;
        QVERIFY(file.size() > 8 * pageSize);
        for (qint64 page = 2; page < file.size() / pageSize; page += 3) {
            file.seek(page * pageSize);
            file.write(QByteArray(64, char(0x7f)));
        }
        file.close();
        QVERIFY(!Store::integrityProblem(Store::open(StoreFile::Main, dir.path(), QStringLiteral("damaged"))).isEmpty());
        Store::close(QStringLiteral("damaged"));
    }

    // A writer holds the store from its first read: a second one is told in words, readers go on reading.
    void secondWriterIsToldAndReadersRead()
    {
        TestStore store;
        Transaction first(store.db());
        Sql(store.db()).run(QStringLiteral("INSERT INTO StateMaster VALUES (7, 'Goa')"));

        const QString name = QStringLiteral("second");
        {
            QSqlDatabase second = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            second.setDatabaseName(store.db().databaseName());
            second.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=1"));
            QVERIFY(second.open());
            QCOMPARE(Sql(second).scalar(QStringLiteral("SELECT COUNT(*) FROM StateMaster")).toInt(), 1);
            try {
                Transaction other(second);
                QFAIL("a second writer began while the first held the store");
            } catch (const StoreBusy &busy) {
                QCOMPARE(busy.text(), StoreBusy::busyText());
            }
            QVERIFY(!Transaction::isOpen(second));
        }
        Store::close(name);
        first.commit();
        QCOMPARE(store.scalar(QStringLiteral("SELECT StateName FROM StateMaster WHERE StateCode = 7")),
                 QVariant(QStringLiteral("Goa")));
    }

    void unopenableFolderReportsTheStoresText()
    {
        QVERIFY_THROWS_EXCEPTION(StoreError, Store::open(StoreFile::Main, QStringLiteral("/proc/no-such-folder"),
                                                         QStringLiteral("bad")));
        QVERIFY(!QSqlDatabase::contains(QStringLiteral("bad")));
    }
};

QTEST_GUILESS_MAIN(tst_Store)
#include "tst_store.moc"
