#include "generationfixture.h"
#include "sampleschool.h"
#include "timetablechecks.h"

#include <QTest>

// Whole runs on the sample schools: whatever the draws, the rules between rows must hold.
class tst_GenerationInvariants : public QObject
{
    Q_OBJECT

private slots:
    void wholeRun_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("uniform");
        QTest::newRow("small, uniform") << int(SampleSchool::Size::Small) << "YES";
        QTest::newRow("medium, uniform") << int(SampleSchool::Size::Medium) << "YES";
        QTest::newRow("medium, no uniform") << int(SampleSchool::Size::Medium) << "NO";
        QTest::newRow("tight, uniform") << int(SampleSchool::Size::Tight) << "YES";
    }
    void wholeRun()
    {
        QFETCH(int, size);
        QFETCH(QString, uniform);
        TestStore store;
        SampleSchool::build(store.db(), SampleSchool::Size(size), 1);
        // Class I works one day less than the school.
        store.exec(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays SELECT ClassCode, "
                                  "(SELECT NoOfWorkingDays FROM SchoolSetup) - (ClassCode = 1) FROM ClassDivisionMaster "
                                  "WHERE ClassCode > 0"));
        LcgRandom random;
        GenerationEngine engine(store.db(), random);
        engine.openPhaseOne();
        QVERIFY(engine.saveDefaultSettings(uniform));
        YesMessages messages;
        GenerationResult result = engine.processPhaseOne(messages, {});
        QCOMPARE(result.outcome, GenerationResult::Outcome::Completed);
        engine.openPhaseTwo();
        result = engine.processPhaseTwo(messages, {});
        for (int press = 0; press < 2 && result.openPeriods > 0; ++press)
            result = engine.fixBalancePeriods(messages, {});

        // A teacher stands twice in a slot only inside one Combined Class group, a class division holds two rows
        // only inside one Combined Teacher group.
        QCOMPARE(store.scalar(TimetableChecks::teacherClashes()).toInt(), 0);
        QCOMPARE(store.scalar(TimetableChecks::classClashes()).toInt(), 0);
        // Every period is placed or listed as pending, never both and never more than allotted.
        QCOMPARE(store.scalar(QStringLiteral(
            "SELECT COUNT(*) FROM WorkAllotmentEntry w JOIN AutoGenPhase2 a ON a.TeacherCode = w.TeacherCode AND "
            "a.ClassCode = w.ClassCode AND a.DivisionCode = w.DivisionCode AND a.SubjectCode = w.SubjectCode WHERE "
            "a.P2Insert < 0 OR a.P2Insert + (SELECT COUNT(*) FROM TimeTable t WHERE t.TeacherCode = w.TeacherCode AND "
            "t.ClassCode = w.ClassCode AND t.DivisionCode = w.DivisionCode AND t.SubjectCode = w.SubjectCode) <> "
            "w.NoOfSectionPeriods")).toInt(), 0);
        QCOMPARE(store.count(QStringLiteral("AutoGenPhase2")), store.count(QStringLiteral("WorkAllotmentEntry")));
        // The members of a group share every slot; the week's bounds and the class's own working days hold.
        QCOMPARE(store.scalar(TimetableChecks::splitGroups()).toInt(), 0);
        QCOMPARE(store.scalar(TimetableChecks::outsideWeek()).toInt(), 0);
        QCOMPARE(store.scalar(TimetableChecks::offClassDays()).toInt(), 0);
        QVERIFY(store.count(QStringLiteral("TimeTable")) > 0);
    }
};

QTEST_GUILESS_MAIN(tst_GenerationInvariants)
#include "tst_generationinvariants.moc"
