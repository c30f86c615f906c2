#include "generationfixture.h"
#include "phaseonesettings.h"

#include <QTest>

using PhaseOneSettings::SettingRow;

// The limits on free periods and the stored shape of the settings, without the screen.
class tst_PhaseOneSettings : public QObject
{
    Q_OBJECT

private:
    static SchoolCalendar week(int days, int periods, int lastDay)
    {
        SchoolCalendar calendar;
        calendar.noOfWorkingDays = qint16(days);
        calendar.periodsPerDay = qint16(periods);
        calendar.periodsOnLastWorkingDay = qint16(lastDay);
        calendar.periodsInMorningSession = 3;
        calendar.periodsPerWeek = SchoolCalendar::periodsPerWeekOf(days, periods, lastDay);
        return calendar;
    }
    static SettingRow teacher(int periods)
    {
        SettingRow row;
        row.name = QStringLiteral("Anna");
        row.code = 1;
        row.noOfPeriods = periods;
        return row;
    }

private slots:
    void teacherLimitInAFullWeek()
    {
        // 5 x 6 = 30 periods: each free period of the day costs 5.
        const SchoolCalendar calendar = week(5, 6, 6);
        SettingRow row = teacher(20);
        QVERIFY(PhaseOneSettings::TeacherSettingRefusal(calendar, row, 1).isEmpty());
        PhaseOneSettings::SetFree(calendar, row, 1, true);
        QVERIFY(PhaseOneSettings::TeacherSettingRefusal(calendar, row, 2).isEmpty()); // 30 - 10 = 20
        PhaseOneSettings::SetFree(calendar, row, 2, true);
        QCOMPARE(row.count, 2);
        QCOMPARE(row.polwdc, 0); // kept only when the last day is short
        QCOMPARE(PhaseOneSettings::TeacherSettingRefusal(calendar, row, 3),
                 QStringLiteral("No. Of Periods Alloted For Anna Is 20\nBut This Selection Allows Only 15 Periods To Be "
                                "FilledHence You Cannot Select More 'Teachers Uniform Free Periods' For Anna\n"));
        PhaseOneSettings::SetFree(calendar, row, 2, false);
        QCOMPARE(row.count, 1);
        QVERIFY(PhaseOneSettings::TeacherSettingRefusal(calendar, row, 3).isEmpty());
    }

    void shortLastDayCostsOneLessBeyondItsPeriods()
    {
        // 4 x 6 + 4 = 28: a free period within the last day's 4 periods costs 5, a later one 4.
        const SchoolCalendar calendar = week(5, 6, 4);
        QCOMPARE(PhaseOneSettings::UniformDays(calendar), 4);
        SettingRow row = teacher(24);
        QVERIFY(PhaseOneSettings::TeacherSettingRefusal(calendar, row, 5).isEmpty());
        QVERIFY(PhaseOneSettings::TeacherSettingRefusal(calendar, row, 4).contains(QStringLiteral("Allows Only 23 Periods")));
        PhaseOneSettings::SetFree(calendar, row, 5, true);
        QCOMPARE(row.polwdc, 0);
        PhaseOneSettings::SetFree(calendar, row, 2, true);
        QCOMPARE(row.polwdc, 1);
        QCOMPARE(row.count, 2);
    }

    void subjectLimitNamesTheFirstTeacherOverIt()
    {
        const SchoolCalendar calendar = week(5, 6, 6);
        SettingRow subject;
        subject.name = QStringLiteral("Music");
        subject.code = 3;
        PhaseOneSettings::SetFree(calendar, subject, 1, true);
        PhaseOneSettings::SetFree(calendar, subject, 2, true);
        const QList<PhaseOneSettings::SubjectTeacherRow> checks = {{QStringLiteral("Art"), QStringLiteral("Bina"), 29},
                                                                   {QStringLiteral("Music"), QStringLiteral("Carl"), 15},
                                                                   {QStringLiteral("Music"), QStringLiteral("Dev"), 16},
                                                                   {QStringLiteral("Music"), QStringLiteral("Esha"), 20}};
        QCOMPARE(PhaseOneSettings::SubjectSettingRefusal(calendar, subject, 3, checks),
                 QStringLiteral("No. Of Periods Alloted For Dev Is 16\nBut This Selection Allows Only 15 Periods To Be "
                                "FilledHence You Cannot Select More 'Subject Uniform Free Periods' For Dev\n"));
    }

    void saveAndLoadKeepEveryCell()
    {
        TestStore store;
        buildGenerationSchool(store);
        const SchoolCalendar &calendar = store.context().session.calendar;
        PhaseOneSettings::Settings settings;
        settings.uniform = QStringLiteral("NO");
        SettingRow row = teacher(20);
        row.name = QStringLiteral("Teacher 1");
        PhaseOneSettings::SetFree(calendar, row, 2, true);
        PhaseOneSettings::SetFree(calendar, row, 6, true);
        settings.teachers = {row};
        SettingRow subject;
        subject.name = QStringLiteral("Subject 2");
        subject.code = 2;
        PhaseOneSettings::SetFree(calendar, subject, 1, true);
        settings.subjects = {subject};
        settings.subjectTeachers = {{QStringLiteral("Subject 2"), QStringLiteral("Teacher 2"), 7}};
        PhaseOneSettings::Save(store.db(), calendar, settings, false);

        QCOMPARE(store.scalar(QStringLiteral("SELECT P2 || '/' || P6 || '/' || TeacherCode || '/' || NoOfPeriods || '/' || "
                                             "Counts || '/' || POLWDC FROM AGP1TeacherDetails")).toString(),
                 QStringLiteral("No/No/1/20/2/1"));
        QCOMPARE(store.scalar(QStringLiteral("SELECT P1 || '/' || SubjectCode || '/' || Counts FROM AGP1SubjectDetails")).toString(),
                 QStringLiteral("No/2/1"));
        const PhaseOneSettings::Settings loaded = PhaseOneSettings::Load(store.db(), calendar);
        QVERIFY(loaded.saved);
        QCOMPARE(loaded.uniform, QStringLiteral("NO"));
        QCOMPARE(loaded.teachers.size(), 1);
        QCOMPARE(loaded.teachers[0].free, QList<bool>({false, true, false, false, false, true}));
        QCOMPARE(loaded.teachers[0].polwdc, 1);
        QCOMPARE(loaded.subjects[0].code, 2);
        QCOMPARE(loaded.subjectTeachers[0].total, 7);

        // The generator reads the same tables: the settings count as saved "No" periods there.
        SchoolSnapshot snapshot;
        snapshot.load(store.db());
        QCOMPARE(snapshot.teacherNoPeriods.value(1), QSet<int>({2, 6}));
        QCOMPARE(snapshot.subjectNoPeriods.value(2), QSet<int>({1}));

        // Saving again with empty grids leaves no detail table standing.
        settings.teachers.clear();
        settings.subjects.clear();
        settings.subjectTeachers.clear();
        PhaseOneSettings::Save(store.db(), calendar, settings, true);
        QCOMPARE(store.count(QStringLiteral("AGP1Master")), 1);
        QCOMPARE(store.count(QStringLiteral("AGP1SubjectTeacherDetails")), 0);
        QVERIFY(!PhaseOneSettings::Load(store.db(), calendar).teachers.size());
    }
};

QTEST_GUILESS_MAIN(tst_PhaseOneSettings)
#include "tst_phaseonesettings.moc"
