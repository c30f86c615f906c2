#include "completionstore.h"
#include "feasibility.h"
#include "phaseonechecks.h"
#include "rulecheck.h"
#include "sql.h"
#include "store.h"
#include "timetablestate.h"
#include "transaction.h"
#include "worklist.h"

#include <QSqlQuery>

namespace {

// Open occurrences of one group's lessons: occurrence j holds the lessons with more than j periods open.
void addOccurrences(CompletionModel &model, const QList<QPair<int, int>> &lessonsOpen, const QString &manual, int onlyPeriod)
{
    int most = 0;
    for (const auto &[lesson, open] : lessonsOpen)
        most = qMax(most, open);
    for (int j = 0; j < most; ++j) {
        QList<int> lessons;
        for (const auto &[lesson, open] : lessonsOpen)
            if (open > j)
                lessons.append(lesson);
        model.addOpenMeeting(lessons, manual, onlyPeriod);
    }
}

void writeBalances(const QSqlDatabase &db, SchoolSnapshot &snapshot, const QList<TimetableRow> &rows)
{
    snapshot.timetable = rows;
    if (!Store::tableExists(db, QStringLiteral("AGP1TeacherDetails")))
        PhaseOneChecks::CreateTeacherDetails(db, snapshot.calendar);
    if (!Store::tableExists(db, QStringLiteral("AGP1SubjectDetails")))
        PhaseOneChecks::CreateSubjectDetails(db, snapshot.calendar);
    const AllotmentIndex index(snapshot.allotments);
    WriteWorkList(db, BuildWorkList(snapshot, index, rows));
    if (Sql(db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE Manual = '2'"))) {
        TimetableState state;
        state.reset(snapshot);
        WritePhaseTwoList(db, BuildPhaseTwoList(snapshot, state));
    }
}

}

CompletionStage CurrentCompletionStage(const QSqlDatabase &db)
{
    return Sql(db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE Manual = '2'")) ? CompletionStage::PhaseTwo
                                                                                         : CompletionStage::PhaseOne;
}

void LoadTimetable(const QSqlDatabase &db, LoadedTimetable *loaded)
{
    loaded->snapshot.load(db);
    loaded->rowids.clear();
    QSqlQuery q = Sql(db).run(QStringLiteral("SELECT rowid FROM TimeTable ORDER BY rowid"));
    while (q.next())
        loaded->rowids.append(q.value(0).toLongLong());
}

void AddOpenMeetings(CompletionModel &model, CompletionStage stage)
{
    const SchoolSnapshot &s = model.snapshot();
    QHash<int, QList<QPair<int, int>>> byGroup; // group -> (lesson, open)
    QList<int> groups;                           // in order of first appearance
    auto collect = [&](int lesson, int open) {
        if (lesson < 0 || open <= 0)
            return;
        const int group = model.lessons()[lesson].group;
        if (!byGroup.contains(group))
            groups.append(group);
        byGroup[group].append({lesson, open});
    };
    if (stage == CompletionStage::PhaseOne) {
        const AllotmentIndex index(s.allotments);
        const WorkList list = BuildWorkList(s, index, s.timetable);
        const QString manual = QStringLiteral("1");
        for (const WorkRow &row : list.rows) {
            const int lesson = model.lessonOf(row.key());
            // The uniform days still open go to the class teacher's own period, the rest anywhere.
            if (row.group == 1 && row.p1Insert > 0 && lesson >= 0)
                addOccurrences(model, {{lesson, row.p1Insert}}, manual, row.periodCode);
            collect(lesson, row.p2Insert);
        }
        for (int group : std::as_const(groups))
            addOccurrences(model, byGroup.value(group), manual, 0);
        return;
    }
    TimetableState state;
    state.reset(s);
    for (const WorkRow &row : BuildPhaseTwoList(s, state))
        collect(model.lessonOf(row.key()), row.p2Insert);
    for (int group : std::as_const(groups))
        addOccurrences(model, byGroup.value(group), QStringLiteral("2"), 0);
}

CompletionReport CompleteTimetable(const QSqlDatabase &db, CompletionStage stage, const Completion::Settings &settings)
{
    CompletionReport report;
    report.stage = stage;
    LoadedTimetable loaded;
    LoadTimetable(db, &loaded);
    CompletionModel model(loaded.snapshot, loaded.snapshot.timetable, loaded.rowids);
    AddOpenMeetings(model, stage);
    Completion completion(model);
    report.outcome = completion.run(settings);
    report.breaksBefore = report.outcome.breaksBefore;
    report.breaksAfter = report.outcome.breaksAfter;

    const Sql sql(db);
    Transaction transaction(db);
    QList<TimetableRow> rows;
    for (const CompletionModel::Row &row : model.rows()) {
        if (row.day == 0)
            continue;
        TimetableRow data = row.data;
        data.day = row.day;
        data.period = row.period;
        if (row.rowid == 0)
            continue; // new rows go last, below
        if (row.day != row.data.day || row.period != row.data.period)
            sql.run(QStringLiteral("UPDATE TimeTable SET DayCode = ?, PeriodCode = ? WHERE rowid = ?"),
                    {row.day, row.period, row.rowid});
        rows.append(data);
    }
    for (const CompletionModel::Row &row : model.rows()) {
        if (row.day == 0 || row.rowid != 0)
            continue;
        TimetableRow data = row.data;
        data.day = row.day;
        data.period = row.period;
        sql.run(QStringLiteral("INSERT INTO TimeTable (ClassCode, DivisionCode, DayCode, PeriodCode, SubjectCode, "
                               "TeacherCode, Manual, Spare, CC, CT) VALUES (?, ?, ?, ?, ?, ?, ?, '', ?, ?)"),
                {data.classCode, data.division, data.day, data.period, data.subject, data.teacher, data.manual, data.cc,
                 data.ct});
        rows.append(data);
    }
    writeBalances(db, loaded.snapshot, rows);
    transaction.commit();
    if (report.outcome.openAfter > 0)
        report.reasons = Feasibility::OpenPeriodReasons(model, stage == CompletionStage::PhaseOne);
    return report;
}

QStringList CheckStoredTimetable(const QSqlDatabase &db)
{
    LoadedTimetable loaded;
    LoadTimetable(db, &loaded);
    const CompletionModel model(loaded.snapshot, loaded.snapshot.timetable, loaded.rowids);
    return CheckTimetableRules(model);
}
