#include "routines.h"
#include "sampleschool.h"
#include "sql.h"
#include "storeerror.h"
#include "teststore.h"
#include "timetablechecks.h"
#include "transaction.h"

#include <QSqlQuery>
#include <QTest>

namespace {
int count(TestStore &store, const char *statement)
{
    return store.scalar(QString::fromLatin1(statement)).toInt();
}

// Each teacher's allotted periods, generated Combined Class rows not counted, with the working periods.
QList<QPair<int, int>> loads(TestStore &store)
{
    QList<QPair<int, int>> list;
    QSqlQuery q = Sql(store.db()).run(QStringLiteral(
        "SELECT (SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry w WHERE w.TeacherCode = "
        "t.TeacherCode AND IFNULL(w.CCSystem, '') = ''), t.NoOfPeriods FROM TeacherMaster t WHERE t.TeacherCode > 0"));
    while (q.next())
        list.append({q.value(0).toInt(), q.value(1).toInt()});
    return list;
}

void writeWeek(TestStore &store, const QList<SampleSchool::WeekPeriod> &week)
{
    Transaction transaction(store.db());
    for (const SampleSchool::WeekPeriod &p : week)
        store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, '2', '', ?, ?)"),
                   {p.classCode, p.division, p.day, p.period, p.subject, p.teacher, p.cc, p.ct});
    transaction.commit();
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
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("periods");
        QTest::newRow("small") << int(SampleSchool::Size::Small) << 6 << 5 << 7;
        QTest::newRow("medium") << int(SampleSchool::Size::Medium) << 30 << 6 << 7;
        QTest::newRow("large") << int(SampleSchool::Size::Large) << 120 << 6 << 8;
        QTest::newRow("tight") << int(SampleSchool::Size::Tight) << 24 << 6 << 7;
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
        QTEST(int(calendar.noOfWorkingDays), "days");
        QTEST(int(calendar.periodsPerDay), "periods");

        // Every class division's week is filled exactly, counting real work only.
        QVERIFY(!ClassesOverAllotted(store.db(), calendar));
        QVERIFY(!ClassesUnderAllotted(store.db(), calendar));
        QCOMPARE(count(store, "SELECT COUNT(DISTINCT ClassCode * 100 + DivisionCode) FROM WorkAllotmentEntry"), divisions);

        // One teacher per class division and subject.
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT 1 FROM WorkAllotmentEntry GROUP BY ClassCode, "
                              "DivisionCode, SubjectCode HAVING COUNT(DISTINCT TeacherCode) > 1)"),
                 0);
        // Allotted periods within the ceiling, the ceiling within the week; short names unique.
        const int week = summary.periodsPerWeek;
        const QList<QPair<int, int>> allotted = loads(store);
        QCOMPARE(allotted.size(), summary.teachers);
        int nearFull = 0;
        for (const auto &[load, ceiling] : allotted) {
            QVERIFY(load <= ceiling && ceiling <= week);
            if (size == int(SampleSchool::Size::Tight)) {
                // At 95% of the week or more, so with fewer free periods than days: no free period is kept.
                QVERIFY2(load * 100 >= 95 * week, qPrintable(QString::number(load)));
                QVERIFY(week - ceiling < int(calendar.noOfWorkingDays));
            }
            nearFull += load * 100 >= 75 * week && load * 100 <= 95 * week;
        }
        if (size != int(SampleSchool::Size::Tight))
            QVERIFY2(nearFull * 10 >= summary.teachers * 7, qPrintable(QStringLiteral("%1 of %2").arg(nearFull).arg(summary.teachers)));
        QCOMPARE(count(store, "SELECT COUNT(DISTINCT TeacherShortName) FROM TeacherMaster WHERE TeacherCode > 0"),
                 summary.teachers);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster WHERE TeacherCode > 0 AND length(TeacherShortName) > 3"),
                 0);

        // Rows entered on the work allotment screen carry its five columns only.
        QVERIFY(count(store, "SELECT COUNT(*) FROM WorkAllotmentEntry WHERE CP IS NULL AND CC IS NULL AND CT IS NULL "
                             "AND CPGroupNo IS NULL AND CCGroupNo IS NULL AND CTGroupNo IS NULL") > 0);
        // Combined subject groups: same periods, different teachers and class divisions, no system rows.
        QVERIFY(summary.combinedSubjectGroups > 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT CPGroupNo FROM WorkAllotmentEntry WHERE CPGroupNo > 0 "
                              "GROUP BY CPGroupNo HAVING COUNT(DISTINCT NoOfSectionPeriods) > 1 OR COUNT(*) < 2 "
                              "OR COUNT(DISTINCT TeacherCode) < COUNT(*) "
                              "OR COUNT(DISTINCT ClassCode * 100 + DivisionCode) < COUNT(*) "
                              "OR SUM(IFNULL(CCSystem, '') = 'Y' OR IFNULL(CTSystem, '') = 'Y') > 0 OR SUM(CP <> 'CP') > 0)"),
                 0);
        // Combined class groups: one main row, generated rows with its teacher, subject and periods.
        QVERIFY(summary.combinedClassGroups > 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT CCGroupNo FROM WorkAllotmentEntry WHERE CCGroupNo > 0 "
                              "GROUP BY CCGroupNo HAVING SUM(CCSystem = 'Y') < 1 OR SUM(IFNULL(CCSystem, '') <> 'Y') <> 1 "
                              "OR COUNT(DISTINCT TeacherCode) > 1 OR COUNT(DISTINCT SubjectCode) > 1 "
                              "OR COUNT(DISTINCT NoOfSectionPeriods) > 1 OR SUM(CC <> 'CC') > 0)"),
                 0);
        // Combined teacher groups: one class division, one main row, generated rows for other teachers.
        QVERIFY(summary.combinedTeacherGroups > 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT CTGroupNo FROM WorkAllotmentEntry WHERE CTGroupNo > 0 "
                              "GROUP BY CTGroupNo HAVING SUM(CTSystem = 'Y') < 1 OR SUM(IFNULL(CTSystem, '') <> 'Y') <> 1 "
                              "OR COUNT(DISTINCT ClassCode * 100 + DivisionCode) > 1 OR COUNT(DISTINCT TeacherCode) < COUNT(*) "
                              "OR COUNT(DISTINCT NoOfSectionPeriods) > 1 OR SUM(CT <> 'CT') > 0)"),
                 0);
        // Group numbers came from the counters.
        QCOMPARE(store.scalar(QStringLiteral("SELECT NextNo FROM ControlFileMaster WHERE ID = 'CC'")).toInt(),
                 summary.combinedClassGroups + 1);

        // Most class divisions have a class teacher, who teaches them a subject with a period every day, in no
        // group, and holds the first period.
        QVERIFY(summary.classTeachers * 2 > divisions);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster WHERE ClassCode > 0"), summary.classTeachers);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster t WHERE t.TeacherCode > 0 AND t.ClassCode > 0 AND "
                              "NOT EXISTS (SELECT 1 FROM WorkAllotmentEntry w WHERE w.TeacherCode = t.TeacherCode AND "
                              "w.ClassCode = t.ClassCode AND w.DivisionCode = t.DivisionCode AND w.SubjectCode = "
                              "t.SubjectCode AND IFNULL(w.CPGroupNo, 0) = 0 AND IFNULL(w.CCGroupNo, 0) = 0 AND "
                              "IFNULL(w.CTGroupNo, 0) = 0 AND w.NoOfSectionPeriods >= (SELECT NoOfWorkingDays FROM SchoolSetup))"),
                 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster WHERE ClassCode > 0 AND PeriodCode <> 1"), 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM (SELECT 1 FROM TeacherMaster WHERE ClassCode > 0 "
                              "GROUP BY ClassCode, DivisionCode HAVING COUNT(*) > 1)"),
                 0);
    }

    // The week the school is built around fills every class division and holds every allotment exactly,
    // with no teacher or class division in two places but inside one group, each group together and each
    // class teacher in period 1 every day. (The generation tests put it through the full rule check.)
    void plantedWeekHoldsTheAllotments_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("small") << int(SampleSchool::Size::Small);
        QTest::newRow("medium") << int(SampleSchool::Size::Medium);
        QTest::newRow("tight") << int(SampleSchool::Size::Tight);
    }

    void plantedWeekHoldsTheAllotments()
    {
        QFETCH(int, size);
        TestStore store;
        const SampleSchool::Summary summary = SampleSchool::build(store.db(), SampleSchool::Size(size), 2);
        writeWeek(store, SampleSchool::plantedWeek(SampleSchool::Size(size), 2));
        // Every allotment row holds exactly its periods, and every row is one of an allotment.
        QCOMPARE(count(store, "SELECT COUNT(*) FROM WorkAllotmentEntry w WHERE NoOfSectionPeriods <> (SELECT COUNT(*) "
                              "FROM TimeTable t WHERE t.TeacherCode = w.TeacherCode AND t.ClassCode = w.ClassCode AND "
                              "t.DivisionCode = w.DivisionCode AND t.SubjectCode = w.SubjectCode)"),
                 0);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TimeTable t JOIN WorkAllotmentEntry w ON t.TeacherCode = "
                              "w.TeacherCode AND t.ClassCode = w.ClassCode AND t.DivisionCode = w.DivisionCode AND "
                              "t.SubjectCode = w.SubjectCode AND t.CC = IFNULL(w.CCSystem, '') AND t.CT = IFNULL(w.CTSystem, '')"),
                 store.count(QStringLiteral("TimeTable")));
        // Each class division has one main row in every period of the week, and none beyond it.
        QCOMPARE(store.scalar(TimetableChecks::outsideWeek()).toInt(), 0);
        QCOMPARE(count(store, "SELECT COUNT(DISTINCT ClassCode * 10000 + DivisionCode * 100 + DayCode * 10 + PeriodCode) "
                              "FROM TimeTable WHERE CT = ''"),
                 summary.classDivisions * summary.periodsPerWeek);
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TimeTable WHERE CT = ''"), summary.classDivisions * summary.periodsPerWeek);
        // A teacher stands twice in a slot only inside one Combined Class group, a class division holds two rows
        // only inside one Combined Teacher group.
        QCOMPARE(store.scalar(TimetableChecks::teacherClashes()).toInt(), 0);
        QCOMPARE(store.scalar(TimetableChecks::classClashes()).toInt(), 0);
        // The members of a group share every slot.
        QCOMPARE(store.scalar(TimetableChecks::splitGroups()).toInt(), 0);
        // Each class teacher's subject stands at the uniform period on every working day.
        QCOMPARE(count(store, "SELECT COUNT(*) FROM TeacherMaster m JOIN TimeTable t ON t.TeacherCode = m.TeacherCode "
                              "AND t.ClassCode = m.ClassCode AND t.DivisionCode = m.DivisionCode AND t.SubjectCode = "
                              "m.SubjectCode AND t.PeriodCode = m.PeriodCode WHERE m.ClassCode > 0"),
                 summary.classTeachers * int(store.scalar(QStringLiteral("SELECT NoOfWorkingDays FROM SchoolSetup")).toInt()));
    }

    void sameSeedSameSchool()
    {
        TestStore first;
        TestStore second;
        SampleSchool::build(first.db(), SampleSchool::Size::Medium, 3);
        SampleSchool::build(second.db(), SampleSchool::Size::Medium, 3);
        const QString teachers = QStringLiteral("SELECT group_concat(TeacherName || TeacherShortName || NoOfPeriods || "
                                                "ClassCode || DivisionCode || SubjectCode, ',') FROM TeacherMaster");
        QCOMPARE(first.scalar(teachers), second.scalar(teachers));
        const QString allotments = QStringLiteral("SELECT group_concat(TeacherCode || ':' || ClassCode || '/' || "
                                                  "DivisionCode || ':' || SubjectCode || '=' || NoOfSectionPeriods || "
                                                  "IFNULL(CPGroupNo, '') || IFNULL(CCGroupNo, '') || IFNULL(CTGroupNo, ''), "
                                                  "',') FROM WorkAllotmentEntry");
        QCOMPARE(first.scalar(allotments), second.scalar(allotments));
        const auto rows = [](const QList<SampleSchool::WeekPeriod> &week) {
            QStringList list;
            for (const SampleSchool::WeekPeriod &p : week)
                list << QStringLiteral("%1/%2@%3.%4:%5:%6%7%8").arg(p.classCode).arg(p.division).arg(p.day).arg(p.period)
                            .arg(p.subject).arg(p.teacher).arg(p.cc, p.ct);
            return list;
        };
        QCOMPARE(rows(SampleSchool::plantedWeek(SampleSchool::Size::Medium, 3)),
                 rows(SampleSchool::plantedWeek(SampleSchool::Size::Medium, 3)));
        QVERIFY(rows(SampleSchool::plantedWeek(SampleSchool::Size::Medium, 3))
                != rows(SampleSchool::plantedWeek(SampleSchool::Size::Medium, 4)));
        QVERIFY_THROWS_EXCEPTION(StoreError, SampleSchool::build(first.db(), SampleSchool::Size::Small));
    }

    void sizeWords()
    {
        SampleSchool::Size size = SampleSchool::Size::Small;
        QVERIFY(SampleSchool::parseSize(QStringLiteral(" Tight "), &size));
        QCOMPARE(size, SampleSchool::Size::Tight);
        QVERIFY(SampleSchool::parseSize(QStringLiteral("large"), &size));
        QCOMPARE(size, SampleSchool::Size::Large);
        QVERIFY(!SampleSchool::parseSize(QStringLiteral("huge"), &size));
        QCOMPARE(size, SampleSchool::Size::Large);
    }
};

QTEST_GUILESS_MAIN(tst_SampleSchool)
#include "tst_sampleschool.moc"
