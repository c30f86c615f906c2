#include "generationfixture.h"
#include "pendingreasons.h"
#include "phaseonechecks.h"

#include <QTest>
#include <functional>

namespace {

// The pending allotment of every case: teacher 1, class I division A, subject 1. Teacher 2 fills the class
// and teacher 1 is kept busy in class II A.
enum class School { ClassFull, TeacherFull, NeverTogether, ClassDays, FreeTypeDay, FreeTypeSession, Settings,
                    OneADay, Session, Removed, PlacedSince };

// Places rows in the slots of the fixture's week (days 1 to 5, 4 periods on the last) that `where` picks.
void fill(TestStore &store, int classCode, int teacher, int subject, const std::function<bool(int, int)> &where)
{
    for (int day = 1; day <= 5; ++day)
        for (int period = 1; period <= (day == 5 ? 4 : 6); ++period)
            if (where(day, period))
                place(store, classCode, 1, day, period, subject, teacher, "M");
}

void busyClass(TestStore &store, const std::function<bool(int, int)> &where) { fill(store, 1, 2, 2, where); }
void busyTeacher(TestStore &store, const std::function<bool(int, int)> &where) { fill(store, 2, 1, 3, where); }

void build(TestStore &store, School school)
{
    buildGenerationSchool(store);
    const int freeType = school == School::FreeTypeDay ? 1 : school == School::FreeTypeSession ? 2 : 3;
    store.exec(QStringLiteral("INSERT INTO FreePeriodDetails VALUES (1, ?, 0, 0, 0, 0, '')"), {freeType});
    const int periods = school == School::Session ? 6 : school == School::OneADay ? 2 : school == School::PlacedSince ? 1 : 3;
    if (school != School::Removed)
        allot(store, 1, 1, 1, 1, periods, school == School::Settings ? 7 : 0);
    const auto all = [](int, int) { return true; };
    switch (school) {
    case School::ClassFull:
        return busyClass(store, all);
    case School::TeacherFull:
        return busyTeacher(store, all);
    case School::NeverTogether:
        busyClass(store, [](int day, int) { return day <= 2; });
        return busyTeacher(store, [](int day, int) { return day >= 3; });
    case School::ClassDays:
        store.exec(QStringLiteral("UPDATE ClasswiseNoOfWorkingDays SET NoOfWorkingDays = 3 WHERE ClassCode = 1"));
        return busyClass(store, [](int day, int) { return day <= 3; });
    case School::FreeTypeDay:
        return busyTeacher(store, [](int, int period) { return period != 1; });
    case School::FreeTypeSession:
        return busyTeacher(store, [](int, int period) { return period != 1 && period != 4; });
    case School::Settings: {
        const SchoolCalendar &calendar = store.context().session.calendar;
        PhaseOneChecks::CreateTeacherDetails(store.db(), calendar);
        PhaseOneChecks::CreateSubjectDetails(store.db(), calendar);
        store.exec(QStringLiteral("INSERT INTO AGP1TeacherDetails (TeacherName, TeacherCode, P1) VALUES ('Teacher 1', '1', 'No')"));
        store.exec(QStringLiteral("INSERT INTO AGP1SubjectDetails (SubjectName, SubjectCode, P2) VALUES ('Subject 1', 1, 'No')"));
        return busyClass(store, [](int day, int period) { return day != 1 || period > 3; });
    }
    case School::OneADay:
        place(store, 1, 1, 1, 1, 1, 1, "M");
        return busyClass(store, [](int day, int period) { return day != 1 || period > 3; });
    case School::Session:
        place(store, 1, 1, 1, 1, 1, 1, "2");
        return busyClass(store, [](int day, int period) { return day != 1 || period > 4; });
    case School::Removed:
        return;
    case School::PlacedSince:
        return place(store, 1, 1, 1, 1, 1, 1, "2");
    }
}

const QString Fix = QStringLiteral("'Fix Balance Periods' Can Place It In The Periods Free For Both");
const QString NoneFree = QStringLiteral("No Period Is Free For Both The Class And The Teacher");
// The count that proves it, where the hand-placed periods leave too little.
QString proof(int open, int needs = 3)
{
    return QStringLiteral("Subject 1 Of Class I A Needs %1 Periods But Only %2 Of The Week %3 Open To It")
        .arg(needs)
        .arg(open == 1 ? QStringLiteral("1 Period") : QStringLiteral("%1 Periods").arg(open))
        .arg(open == 1 ? QStringLiteral("Is") : QStringLiteral("Are"));
}

}

class tst_PendingReasons : public QObject
{
    Q_OBJECT

private slots:
    void explainsWhyPeriodsStayedOpen_data()
    {
        QTest::addColumn<School>("school");
        QTest::addColumn<bool>("phaseTwo");
        QTest::addColumn<QStringList>("reason");
        QTest::newRow("class full") << School::ClassFull << true
            << QStringList{NoneFree, "The Class Has No Free Period Left In The Week", proof(0)};
        QTest::newRow("teacher full") << School::TeacherFull << true
            << QStringList{NoneFree, "The Teacher Has No Free Period Left In The Week", proof(0)};
        QTest::newRow("free at other times") << School::NeverTogether << true
            << QStringList{NoneFree, "The Class Has 16 Free Periods And The Teacher 12, Never At The Same Time", proof(0)};
        // Fix Balance Periods keeps to the class's days, so it is not offered.
        QTest::newRow("class works three days") << School::ClassDays << true
            << QStringList{"10 Periods Are Free For Both The Class And The Teacher", "On Days The Class Does Not Work : 10", proof(0)};
        QTest::newRow("free type 1") << School::FreeTypeDay << true
            << QStringList{"5 Periods Are Free For Both The Class And The Teacher",
                           "The Teacher Would Have No Free Period Left That Day : 5", Fix};
        QTest::newRow("free type 2") << School::FreeTypeSession << true
            << QStringList{"10 Periods Are Free For Both The Class And The Teacher",
                           "The Teacher Would Have No Free Period Left In That Session : 10", Fix};
        QTest::newRow("settings in phase I") << School::Settings << false
            << QStringList{"3 Periods Are Free For Both The Class And The Teacher",
                           "Marked 'No' For The Teacher In The Phase I Settings : 1",
                           "Marked 'No' For The Subject In The Phase I Settings : 1",
                           "Passing Every Rule, Missed By The Random Trials : 1",
                           "In Phase I It Moves With Its Combined Group: Every Member Must Be Free In The Same Period",
                           proof(1)};
        QTest::newRow("settings ignored in phase II") << School::Settings << true
            << QStringList{"3 Periods Are Free For Both The Class And The Teacher",
                           "Passing Every Rule, Missed By The Random Trials : 3", Fix, proof(1)};
        QTest::newRow("one a day") << School::OneADay << true
            << QStringList{"2 Periods Are Free For Both The Class And The Teacher",
                           "Its Periods For That Day Are Already Placed : 2", Fix, proof(1, 2)};
        QTest::newRow("second period in the same session") << School::Session << true
            << QStringList{"3 Periods Are Free For Both The Class And The Teacher",
                           "Its Other Period Of That Day Is In The Same Session : 2",
                           "Passing Every Rule, Missed By The Random Trials : 1", Fix, proof(2, 6)};
        QTest::newRow("allotment deleted") << School::Removed << true
            << QStringList{"This Allotment Is No Longer In The Work Allotment"};
        QTest::newRow("placed since") << School::PlacedSince << true << QStringList{"All Its Periods Are Placed Now"};
    }
    void explainsWhyPeriodsStayedOpen()
    {
        QFETCH(School, school);
        QFETCH(bool, phaseTwo);
        TestStore store;
        build(store, school);
        PendingRow row;
        row.classCode = 1;
        row.division = 1;
        row.teacher = 1;
        row.subject = 1;
        if (phaseTwo && school != School::Removed && school != School::PlacedSince) {
            // The pending list itself carries the allotment's codes.
            LcgRandom random;
            GenerationEngine engine(store.db(), random);
            engine.refreshPhaseTwoBalance();
            const PendingList list = engine.pending(PendingView::PhaseTwo);
            QCOMPARE(list.rows.size(), 1);
            row = list.rows.first();
            QCOMPARE((QList<int>{row.classCode, row.division, row.teacher, row.subject}), (QList<int>{1, 1, 1, 1}));
        }
        PendingReasons reasons(store.db());
        const PendingReason reason = reasons.explain(row, phaseTwo ? PendingView::PhaseTwo : PendingView::PhaseOne);
        QTEST(reason.lines(), "reason");
    }
};

QTEST_GUILESS_MAIN(tst_PendingReasons)
#include "tst_pendingreasons.moc"
