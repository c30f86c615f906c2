#include "routines.h"
#include "sampleschool.h"
#include "sql.h"
#include "storeerror.h"
#include "teststore.h"

#include <QSqlQuery>
#include <QTest>

namespace {
int count(TestStore &store, const char *statement)
{
    return store.scalar(QString::fromLatin1(statement)).toInt();
}
}

class tst_SampleSchool : public QObject
{
    Q_OBJECT

private slots:
    void invariants_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("divisions");
        QTest::newRow("small") << int(SampleSchool::Size::Small) << 6;
        QTest::newRow("medium") << int(SampleSchool::Size::Medium) << 30;
        QTest::newRow("large") << int(SampleSchool::Size::Large) << 120;
    }

    void invariants()
    {
        QFETCH(int, size);
        QFETCH(int, divisions);
        TestStore store;
        const SampleSchool::Summary summary = SampleSchool::build(store.db(), SampleSchool::Size(size), 7);
        QCOMPARE(summary.classDivisions, divisions);
        store.context().session.calendar.load(store.db());
        const SchoolCalendar &calendar = store.context().session.calendar;
        QCOMPARE(int(calendar.periodsPerWeek), summary.periodsPerWeek);
        if (size == int(SampleSchool::Size::Large)) {
            QCOMPARE(summary.teachers, 200);
            QCOMPARE(int(calendar.noOfWorkingDays), 6);
            QCOMPARE(int(calendar.periodsPerDay), 8);
        }

        // Every class division's week is filled exactly, counting real work only.
        QVERIFY(!ClassesOverAllotted(store.db(), calendar));
        QVERIFY(!ClassesUnderAllotted(store.db(), calendar));
        QCOMPARE(count(store, "SELECT COUNT(DISTINCT ClassCode * 100 + DivisionCode) FROM WorkAllotmentEntry"), divisions);

        // One teacher per class division and subject.
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT 1 FROM WorkAllotmentEntry GROUP BY ClassCode, "
                              "DivisionCode, SubjectCode HAVING COUNT(DISTINCT TeacherCode) > 1)"),
                 0);
        // A teacher's allotted periods (generated combined class rows excluded) stay within the ceiling, and
        // the ceiling within the week; short names are unique.
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster t WHERE t.TeacherCode > 0 AND (t.NoOfPeriods > "
                              "(SELECT (NoOfWorkingDays - 1) * PeriodsPerDay + PeriodsOnLastWorkingDay FROM SchoolSetup) "
                              "OR (SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry w WHERE "
                              "w.TeacherCode = t.TeacherCode AND (w.CCSystem IS NULL OR w.CCSystem = '')) > t.NoOfPeriods)"),
                 0);
        QCOMPARE(count(store, "SELECT COUNT(DISTINCT TeacherShortName) FROM TeacherMaster WHERE TeacherCode > 0"),
                 summary.teachers);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster WHERE TeacherCode > 0 AND length(TeacherShortName) > 3"),
                 0);

        // Combined subject groups: same periods, different teachers and class divisions, no system rows.
        QVERIFY(summary.combinedSubjectGroups > 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT CPGroupNo FROM WorkAllotmentEntry WHERE CPGroupNo > 0 "
                              "GROUP BY CPGroupNo HAVING COUNT(DISTINCT NoOfSectionPeriods) > 1 OR COUNT(*) < 2 "
                              "OR COUNT(DISTINCT TeacherCode) < COUNT(*) "
                              "OR COUNT(DISTINCT ClassCode * 100 + DivisionCode) < COUNT(*) "
                              "OR SUM(CCSystem = 'Y' OR CTSystem = 'Y') > 0)"),
                 0);
        // Combined class groups: one main row, generated rows with its teacher, subject and periods.
        QVERIFY(summary.combinedClassGroups > 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT CCGroupNo FROM WorkAllotmentEntry WHERE CCGroupNo > 0 "
                              "GROUP BY CCGroupNo HAVING SUM(CCSystem = 'Y') < 1 OR SUM(CCSystem <> 'Y') <> 1 "
                              "OR COUNT(DISTINCT TeacherCode) > 1 OR COUNT(DISTINCT SubjectCode) > 1 "
                              "OR COUNT(DISTINCT NoOfSectionPeriods) > 1 OR SUM(CC <> 'CC') > 0)"),
                 0);
        // Combined teacher groups: one class division, one main row, generated rows for other teachers.
        QVERIFY(summary.combinedTeacherGroups > 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT CTGroupNo FROM WorkAllotmentEntry WHERE CTGroupNo > 0 "
                              "GROUP BY CTGroupNo HAVING SUM(CTSystem = 'Y') < 1 OR SUM(CTSystem <> 'Y') <> 1 "
                              "OR COUNT(DISTINCT ClassCode * 100 + DivisionCode) > 1 OR COUNT(DISTINCT TeacherCode) < COUNT(*) "
                              "OR COUNT(DISTINCT NoOfSectionPeriods) > 1 OR SUM(CT <> 'CT') > 0)"),
                 0);
        // Group numbers came from the counters.
        QCOMPARE(store.scalar(QStringLiteral("SELECT NextNo FROM ControlFileMaster WHERE ID = 'CC'")).toInt(),
                 summary.combinedClassGroups + 1);

        // Each class teacher's allotment exists, outside any group, with a period every day.
        QVERIFY(summary.classTeachers >= divisions / 3);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster t WHERE t.TeacherCode > 0 AND t.ClassCode > 0 AND "
                              "NOT EXISTS (SELECT 1 FROM WorkAllotmentEntry w WHERE w.TeacherCode = t.TeacherCode AND "
                              "w.ClassCode = t.ClassCode AND w.DivisionCode = t.DivisionCode AND w.SubjectCode = "
                              "t.SubjectCode AND w.CPGroupNo = 0 AND w.CCGroupNo = 0 AND w.CTGroupNo = 0 AND "
                              "w.NoOfSectionPeriods >= (SELECT NoOfWorkingDays FROM SchoolSetup))"),
                 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster WHERE ClassCode > 0 AND PeriodCode <> 1"), 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT 1 FROM TeacherMaster WHERE ClassCode > 0 "
                              "GROUP BY ClassCode, DivisionCode HAVING COUNT(*) > 1)"),
                 0);
    }

    void sameSeedSameSchool()
    {
        TestStore first;
        TestStore second;
        SampleSchool::build(first.db(), SampleSchool::Size::Medium, 3);
        SampleSchool::build(second.db(), SampleSchool::Size::Medium, 3);
        const QString rows = QStringLiteral("SELECT group_concat(TeacherName || TeacherShortName || NoOfPeriods, ',') "
                                            "FROM TeacherMaster");
        QCOMPARE(first.scalar(rows), second.scalar(rows));
        QVERIFY_THROWS_EXCEPTION(StoreError, SampleSchool::build(first.db(), SampleSchool::Size::Small));
    }
};

QTEST_GUILESS_MAIN(tst_SampleSchool)
#include "tst_sampleschool.moc"
