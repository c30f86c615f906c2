#include "completionstore.h"
#include "phaseonechecks.h"
#include "sampleschool.h"
#include "schoolcalendar.h"
#include "teststore.h"
#include "transaction.h"

#include <QTest>

// A sample school can always be timetabled: the week it is built around, written as generator rows, keeps
// every rule the rule check knows, with each teacher's free-period type taken from the stored working
// periods as the generators take it.
class tst_SampleWeek : public QObject
{
    Q_OBJECT

private slots:
    void plantedWeekKeepsEveryRule_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("seed");
        QTest::newRow("small") << int(SampleSchool::Size::Small) << 1;
        QTest::newRow("small, another seed") << int(SampleSchool::Size::Small) << 9;
        QTest::newRow("medium") << int(SampleSchool::Size::Medium) << 1;
        QTest::newRow("large") << int(SampleSchool::Size::Large) << 1;
        QTest::newRow("tight") << int(SampleSchool::Size::Tight) << 1;
        QTest::newRow("tight, another seed") << int(SampleSchool::Size::Tight) << 5;
    }

    void plantedWeekKeepsEveryRule()
    {
        QFETCH(int, size);
        QFETCH(int, seed);
        TestStore store;
        SampleSchool::build(store.db(), SampleSchool::Size(size), quint32(seed));
        SchoolCalendar calendar;
        calendar.load(store.db());
        PhaseOneChecks::BuildFreePeriodDetails(store.db(), calendar);
        {
            Transaction transaction(store.db());
            for (const SampleSchool::WeekPeriod &p : SampleSchool::plantedWeek(SampleSchool::Size(size), quint32(seed)))
                store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, '2', '', ?, ?)"),
                           {p.classCode, p.division, p.day, p.period, p.subject, p.teacher, p.cc, p.ct});
            transaction.commit();
        }
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable")),
                 store.scalar(QStringLiteral("SELECT SUM(NoOfSectionPeriods) FROM WorkAllotmentEntry")));
        // The tight school's teachers keep no free period (type 3); the others have teachers of more than one
        // type.
        const auto ofType = [&](int type) {
            return store.scalar(QStringLiteral("SELECT COUNT(*) FROM FreePeriodDetails WHERE TeacherCode > 0 AND "
                                               "FreeType = ?"), {type}).toInt();
        };
        const int teachers = store.scalar(QStringLiteral("SELECT COUNT(*) FROM TeacherMaster WHERE TeacherCode > 0")).toInt();
        if (size == int(SampleSchool::Size::Tight))
            QCOMPARE(ofType(3), teachers);
        else
            QVERIFY(ofType(3) < teachers && ofType(1) + ofType(2) < teachers);
        QCOMPARE(CheckStoredTimetable(store.db()), QStringList());

        // The check does read the week: a period moved onto another of its class division is a break.
        store.exec(QStringLiteral("UPDATE TimeTable SET PeriodCode = CASE PeriodCode WHEN 2 THEN 3 ELSE 2 END WHERE "
                                  "rowid = (SELECT MIN(rowid) FROM TimeTable WHERE IFNULL(CT, '') = '' AND IFNULL(CC, '') = '')"));
        QVERIFY(!CheckStoredTimetable(store.db()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_SampleWeek)
#include "tst_sampleweek.moc"
