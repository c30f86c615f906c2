#include "generationfixture.h"

#include <QTest>

class tst_PhaseTwo : public QObject
{
    Q_OBJECT

private slots:
    // Fix Balance Periods frees only the open class's Phase II rows; a teacher whom no random slot suits
    // (free type 4) is then placed in the earliest slots where class and teacher are both free.
    void fixBalanceRedoesOneClassAndFillsEarliestSlots()
    {
        TestStore store;
        buildGenerationSchool(store);
        allot(store, 1, 1, 1, 1, 3);
        allot(store, 2, 1, 1, 2, 1);
        allot(store, 3, 1, 1, 3, 1);
        allot(store, 1, 2, 1, 1, 1);
        store.exec(QStringLiteral("UPDATE TeacherMaster SET NoOfPeriods = NULL WHERE TeacherCode = 1"));
        place(store, 1, 1, 1, 1, 2, 2, "M");
        place(store, 1, 1, 2, 1, 3, 3, "1");
        place(store, 2, 1, 1, 2, 1, 1, "2");
        place(store, 1, 1, 3, 6, 1, 1, "2");
        store.exec(QStringLiteral("UPDATE TTCode SET PIStatus = 'Y'"));
        store.exec(QStringLiteral("INSERT INTO AGP1Master VALUES ('NO')"));
        LcgRandom random;
        GenerationEngine engine(store.db(), random);
        engine.openPhaseTwo();
        YesMessages messages;
        const GenerationResult result = engine.fixBalancePeriods(messages, {});
        QCOMPARE(result.outcome, GenerationResult::Outcome::Completed);
        QCOMPARE(slotsOf(store, 1, 1, 1, 1), (QStringList{"1:3", "1:4", "1:5"}));
        QCOMPARE(slotsOf(store, 1, 2, 1, 1), QStringList{"1:2"});
        QCOMPARE(slotsOf(store, 2, 1, 1, 2), QStringList{"1:1"});
        QCOMPARE(slotsOf(store, 3, 1, 1, 3), QStringList{"2:1"});
        QCOMPARE(result.openPeriods, 0);
        QVERIFY(messages.texts.contains(QStringLiteral("Fixing Of Balance Period Process Done")));
        QCOMPARE(store.scalar(QStringLiteral("SELECT SUM(P2Insert) FROM AutoGenPhase2")).toInt(), 0);
    }

    void phaseTwoRefusals_data()
    {
        QTest::addColumn<QString>("status");
        QTest::addColumn<bool>("phaseOneOpen");
        QTest::addColumn<QString>("text");
        QTest::newRow("phase I not run") << "N" << false
            << "Without Completing AutoGeneration Phase I Process, You Cannot Proceed With AutoGeneration Phase II";
        QTest::newRow("phase I balance open") << "Y" << true
            << "Do You Want To View AutoGeneration Phase I Balance Periods ?";
        QTest::newRow("nothing left") << "Y" << false << "No Periods Exists For AutoGeneration Phase II";
    }
    void phaseTwoRefusals()
    {
        QFETCH(QString, status);
        QFETCH(bool, phaseOneOpen);
        TestStore store;
        buildGenerationSchool(store);
        allot(store, 1, 1, 1, 1, 1, phaseOneOpen ? 7 : 0);
        if (!phaseOneOpen)
            place(store, 1, 1, 1, 1, 1, 1, "M");
        store.exec(QStringLiteral("UPDATE TTCode SET PIStatus = ?"), {status});
        LcgRandom random;
        GenerationEngine engine(store.db(), random);
        engine.openPhaseTwo();
        QCOMPARE(store.scalar(QStringLiteral("SELECT UniformPeriodRequired FROM AGP1Master")).toString(), QStringLiteral("NO"));
        YesMessages messages;
        const GenerationResult result = engine.processPhaseTwo(messages, {});
        QCOMPARE(result.outcome, GenerationResult::Outcome::Stopped);
        QTEST(messages.texts.last(), "text");
        QCOMPARE(result.openPending, phaseOneOpen);
    }
};

QTEST_GUILESS_MAIN(tst_PhaseTwo)
#include "tst_phasetwo.moc"
