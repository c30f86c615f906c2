#include "generationfixture.h"
#include "sampleschool.h"
#include "storedrows.h"

#include <QSqlRecord>
#include <QTest>

namespace {

// Every row of a table in rowid order, each value as SQL writes it, so that NULL, '' and 7 and '7' differ.
QStringList dump(const QSqlDatabase &db, const QString &table)
{
    QSqlQuery q(db);
    q.exec(QStringLiteral("SELECT * FROM %1 LIMIT 0").arg(table));
    QStringList quoted{QStringLiteral("rowid")};
    for (int c = 0; c < q.record().count(); ++c)
        quoted << QStringLiteral("quote(%1)").arg(q.record().fieldName(c));
    q.exec(QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(quoted.join(QLatin1Char(',')), table));
    QStringList rows;
    while (q.next()) {
        QStringList values;
        for (int c = 0; c < quoted.size(); ++c)
            values << q.value(c).toString();
        rows << values.join(QLatin1Char('|'));
    }
    return rows;
}

qint64 changes(const TestStore &store)
{
    return store.scalar(QStringLiteral("SELECT total_changes()")).toLongLong();
}

using Rows = QList<QVariantList>;

// The steps of `ttcli generate` on the small sample school; `between` runs after Phase II.
QStringList generate(bool keepState, const std::function<void(TestStore &)> &between)
{
    TestStore store;
    SampleSchool::build(store.db(), SampleSchool::Size::Small, 1);
    LcgRandom random;
    GenerationEngine engine(store.db(), random);
    engine.keepStateBetweenSteps(keepState);
    YesMessages messages;
    engine.openPhaseOne();
    engine.saveDefaultSettings(QStringLiteral("YES"));
    engine.processPhaseOne(messages, {});
    engine.openPhaseTwo();
    engine.processPhaseTwo(messages, {});
    between(store);
    for (int press = 0; press < 2; ++press)
        engine.fixBalancePeriods(messages, {});
    return dump(store.db(), QStringLiteral("TimeTable")) + dump(store.db(), QStringLiteral("AutoGenPhase1"))
        + dump(store.db(), QStringLiteral("AutoGenPhase2")) + dump(store.db(), QStringLiteral("FreePeriodDetails"));
}

// A period placed by hand for the first allotment still open, in a slot of its own choosing.
void placeByHand(const QSqlDatabase &db)
{
    QSqlQuery q(db);
    QVERIFY(q.exec(QStringLiteral("INSERT INTO TimeTable SELECT ClassCode, DivisionCode, 1, 1, SubjectCode, TeacherCode, "
                                  "'M', '', '', '' FROM AutoGenPhase2 WHERE P2Insert > 0 ORDER BY rowid LIMIT 1")));
    QCOMPARE(q.numRowsAffected(), 1);
}

}

// Writing a generation step's rows at the cost of what changed, and reading the store back between steps
// only where something else changed it.
class tst_StoredRows : public QObject
{
    Q_OBJECT

private slots:
    // ReplaceTableRows leaves what emptying the table and inserting the rows leaves: the same values, NULL
    // and '' apart, at rowids 1, 2, 3 ...; and it writes no row that is stored alike already.
    void replaceLeavesWhatRewriteLeaves_data()
    {
        QTest::addColumn<Rows>("stored");
        QTest::addColumn<bool>("gap");
        QTest::addColumn<Rows>("wanted");
        QTest::addColumn<int>("rowsWritten");
        const Rows three{{1, QStringLiteral("A"), QString()}, {2, QStringLiteral(""), QStringLiteral("x")},
                         {3, QString(), QStringLiteral("")}};
        Rows oneChanged = three;
        oneChanged[1][0] = 9;
        Rows emptyForNull = three;
        emptyForNull[0][2] = QStringLiteral("");
        Rows textForNumber = three;
        textForNumber[2][0] = QStringLiteral("x");
        // Enough rows for inserts of several rows to a statement and a remainder; names and notes repeat and
        // change at different strides, NULL and '' among them.
        Rows many;
        for (int i = 0; i < 37; ++i)
            many.append({i / 3, i % 4 == 0 ? QString() : i % 4 == 1 ? QStringLiteral("") : QStringLiteral("N%1").arg(i % 5),
                         i % 7 < 3 ? QString() : QStringLiteral("x")});
        QTest::newRow("into an empty table") << Rows{} << false << three << 3;
        QTest::newRow("many rows into an empty table") << Rows{} << false << many << 37;
        QTest::newRow("many rows after a gap") << three << true << many << 39;
        QTest::newRow("nothing changed") << three << false << three << 0;
        QTest::newRow("one count changed") << three << false << oneChanged << 1;
        QTest::newRow("'' stored where NULL is wanted") << emptyForNull << false << three << 1;
        QTest::newRow("text stored where a number is wanted") << textForNumber << false << three << 1;
        QTest::newRow("fewer rows") << three << false << three.mid(0, 1) << 2;
        QTest::newRow("more rows") << three.mid(0, 2) << false << three << 1;
        QTest::newRow("rowids with a gap") << three << true << three.mid(0, 2) << 4;
        QTest::newRow("to nothing") << three << false << Rows{} << 3;
    }
    void replaceLeavesWhatRewriteLeaves()
    {
        QFETCH(Rows, stored);
        QFETCH(bool, gap);
        QFETCH(Rows, wanted);
        TestStore store;
        for (const char *table : {"Written", "Rewritten"}) {
            store.exec(QStringLiteral("CREATE TABLE %1 (Code INTEGER, Name TEXT COLLATE NOCASE, Note TEXT)").arg(QLatin1String(table)));
            for (const QVariantList &row : stored)
                store.exec(QStringLiteral("INSERT INTO %1 VALUES (?, ?, ?)").arg(QLatin1String(table)), row);
            if (gap)
                store.exec(QStringLiteral("DELETE FROM %1 WHERE rowid = 2").arg(QLatin1String(table)));
        }
        store.exec(QStringLiteral("DELETE FROM Rewritten"));
        for (const QVariantList &row : wanted)
            store.exec(QStringLiteral("INSERT INTO Rewritten VALUES (?, ?, ?)"), row);

        const qint64 before = changes(store);
        ReplaceTableRows(store.db(), QStringLiteral("Written"), wanted);
        QTEST(int(changes(store) - before), "rowsWritten");
        QCOMPARE(dump(store.db(), QStringLiteral("Written")), dump(store.db(), QStringLiteral("Rewritten")));
    }

    // With the state kept between steps a whole run places exactly what it places when every step reads the
    // store again, also when rows were placed by hand in between, through this connection or another.
    void keptStateGivesTheSameRows_data()
    {
        QTest::addColumn<QString>("between");
        QTest::newRow("nothing in between") << "";
        QTest::newRow("same connection") << "same";
        QTest::newRow("other connection") << "other";
    }
    void keptStateGivesTheSameRows()
    {
        QFETCH(QString, between);
        auto write = [&](TestStore &store) {
            if (between == QLatin1String("same"))
                placeByHand(store.db());
            if (between != QLatin1String("other"))
                return;
            const QString name = QStringLiteral("tst_storedrows_other");
            {
                QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
                other.setDatabaseName(store.db().databaseName());
                QVERIFY(other.open());
                placeByHand(other);
                other.close();
            }
            QSqlDatabase::removeDatabase(name);
        };
        const QStringList kept = generate(true, write);
        const QStringList read = generate(false, write);
        QVERIFY(!kept.isEmpty());
        QCOMPARE(kept, read);
    }
};

QTEST_GUILESS_MAIN(tst_StoredRows)
#include "tst_storedrows.moc"
