#include "phaseonechecks.h"
#include "sql.h"
#include "storedrows.h"
#include "store.h"
#include "transaction.h"

#include <QSqlQuery>
#include <algorithm>
#include <cmath>

namespace PhaseOneChecks {

int FreeTypeFor(const SchoolCalendar &calendar, const QVariant &noOfPeriods)
{
    if (noOfPeriods.isNull() || calendar.noOfWorkingDays == 0)
        return 4;
    const double x = double(calendar.periodsPerWeek - noOfPeriods.toInt()) / calendar.noOfWorkingDays;
    if (std::isnan(x))
        return 4;
    if (x >= 2)
        return 2;
    if (x >= 1)
        return 1;
    return 3;
}

void BuildFreePeriodDetails(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    const Sql sql(db);
    Transaction transaction(db);
    QList<QVariantList> rows;
    QSqlQuery teachers = sql.run(QStringLiteral("SELECT TeacherCode, NoOfPeriods FROM TeacherMaster ORDER BY rowid"));
    while (teachers.next()) {
        const int weekFree = calendar.periodsPerWeek - teachers.value(1).toInt();
        const int perDay = calendar.noOfWorkingDays > 0
            ? int(std::floor(double(weekFree) / calendar.noOfWorkingDays)) : 0;
        const int half = int(std::floor(perDay / 2.0));
        rows.append({teachers.value(0), FreeTypeFor(calendar, teachers.value(1)), weekFree, half, half, perDay,
                     QStringLiteral("")});
    }
    teachers = QSqlQuery();
    ReplaceTableRows(db, QStringLiteral("FreePeriodDetails"), rows);
    transaction.commit();
}

void BuildTeacherFreePeriods(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    Transaction transaction(db);
    BuildFreePeriodDetails(db, calendar);
    if (Store::tableExists(db, QStringLiteral("AGP1TeacherDetails")))
        Sql(db).run(QStringLiteral("UPDATE FreePeriodDetails SET TeacherSetting = 'Y' WHERE TeacherCode IN ")
                    + QStringLiteral("(Select a.TeacherCode from  TeacherMaster a,AGP1TeacherDetails b where ")
                    + QStringLiteral("a.TeacherName=b.TeacherName)"));
    transaction.commit();
}

void SyncClasswiseWorkingDays(const QSqlDatabase &db, const SchoolCalendar &calendar, bool alsoAboveWeek)
{
    const Sql sql(db);
    auto rebuild = [&] {
        sql.run(QStringLiteral("DELETE FROM ClasswiseNoOfWorkingDays"));
        sql.run(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays (ClassCode, NoOfWorkingDays) SELECT ClassCode, ? "
                               "FROM ClassDivisionMaster WHERE ClassCode > 0 ORDER BY ClassCode"),
                {calendar.noOfWorkingDays});
    };
    Transaction transaction(db);
    const int stored = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM ClasswiseNoOfWorkingDays")).toInt();
    const int classes = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM ClassDivisionMaster WHERE ClassCode > 0")).toInt();
    if (stored != classes)
        rebuild();
    if (alsoAboveWeek && sql.exists(QStringLiteral("SELECT 1 FROM ClasswiseNoOfWorkingDays WHERE NoOfWorkingDays > ?"),
                                    {calendar.noOfWorkingDays}))
        rebuild();
    transaction.commit();
}

namespace {
void createDetails(const QSqlDatabase &db, const SchoolCalendar &calendar, const QString &head, const QString &tail)
{
    QString statement = head;
    const QStringList names = SchoolCalendar::periodNames(db);
    for (int p = 0; p < calendar.periodsPerDay && p < names.size(); ++p)
        statement += Sql::identifier(names[p].trimmed()) + QStringLiteral(" Text(2),");
    Sql(db).run(statement + tail);
}
}

void CreateTeacherDetails(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    createDetails(db, calendar, QStringLiteral("CREATE TABLE AGP1TeacherDetails (TeacherName Text(100) COLLATE NOCASE,"),
                  QStringLiteral("TeacherCode text(3),NoOfPeriods text(3),Counts text(2),POLWDC text(2))"));
}

void CreateSubjectDetails(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    createDetails(db, calendar, QStringLiteral("CREATE TABLE AGP1SubjectDetails (SubjectName Text(25) COLLATE NOCASE,"),
                  QStringLiteral("SubjectCode number,Counts Text(2),POLWDC Text(2))"));
}

void SaveWithoutDetails(const QSqlDatabase &db, const QString &answer)
{
    const Sql sql(db);
    Transaction transaction(db);
    sql.run(QStringLiteral("DELETE FROM AGP1Master"));
    sql.run(QStringLiteral("DROP TABLE IF EXISTS AGP1TeacherDetails"));
    sql.run(QStringLiteral("DROP TABLE IF EXISTS AGP1SubjectDetails"));
    sql.run(QStringLiteral("DELETE FROM AGP1SubjectTeacherDetails"));
    sql.run(QStringLiteral("INSERT INTO AGP1Master VALUES (?)"), {answer.trimmed()});
    transaction.commit();
}

namespace {
int countRows(const QList<TimetableRow> &rows, const std::function<bool(const TimetableRow &)> &match)
{
    return int(std::count_if(rows.cbegin(), rows.cend(), match));
}
}

ValidityGrid BuildValidityGrid(const QSqlDatabase &db, const SchoolSnapshot &s, const AllotmentIndex &index)
{
    Q_UNUSED(db);
    const SchoolCalendar &cal = s.calendar;
    const int l1 = cal.noOfWorkingDays;
    const int l2 = cal.periodsPerDay != cal.periodsOnLastWorkingDay ? l1 - 1 : l1;
    auto limitOf = [&](int period) { return period <= cal.periodsOnLastWorkingDay ? l1 : l2; };
    ValidityGrid grid;
    QList<TeacherRow> teachers;
    for (const TeacherRow &t : s.teachers)
        if (t.code > 0)
            teachers.append(t);
    std::stable_sort(teachers.begin(), teachers.end(),
                     [](const TeacherRow &a, const TeacherRow &b) { return a.name.compare(b.name, Qt::CaseInsensitive) < 0; });
    QHash<int, int> rowOf;
    for (const TeacherRow &t : std::as_const(teachers)) {
        rowOf.insert(t.code, int(grid.rows.size()));
        grid.rows.append({t.code, t.name, QList<ValidityCell>(cal.periodsPerDay)});
    }
    auto cell = [&](int teacher, int period) -> ValidityCell * {
        const int row = rowOf.value(teacher, -1);
        if (row < 0 || period < 1 || period > cal.periodsPerDay)
            return nullptr;
        return &grid.rows[row].cells[period - 1];
    };
    for (const ClassTeacher &t : s.classTeachers) {
        const quint64 key = allotmentKey(t.teacher, t.classCode, t.division, t.subject);
        const int own = index.first(key);
        if (own < 0)
            continue;
        const int d = limitOf(t.periodCode);
        const int u = s.allotments[own].periods > d ? d : s.allotments[own].periods;
        for (int i : index.expand(key, false))
            if (ValidityCell *c = cell(s.allotments[i].teacher, t.periodCode))
                c->value += u;
    }
    for (ValidityRow &row : grid.rows)
        for (int p = 1; p <= row.cells.size(); ++p)
            if (row.cells[p - 1].value > limitOf(p)) {
                row.cells[p - 1].colour = ValidityCell::Colour::Clash;
                grid.cannotProceed = true;
            }
    const QList<TimetableRow> &tt = s.timetable;
    for (const ClassTeacher &t : s.classTeachers) {
        ValidityCell *c = cell(t.teacher, t.periodCode);
        if (!c)
            continue;
        auto sameClass = [&](const TimetableRow &r) { return r.classCode == t.classCode && r.division == t.division; };
        const int a = countRows(tt, [&](const TimetableRow &r) {
            return r.teacher == t.teacher && sameClass(r) && r.period == t.periodCode && r.subject == t.subject; });
        const int b = countRows(tt, [&](const TimetableRow &r) {
            return r.teacher == t.teacher && sameClass(r) && r.period == t.periodCode && r.subject != t.subject; });
        const int cOther = countRows(tt, [&](const TimetableRow &r) {
            return r.teacher == t.teacher && !sameClass(r) && r.period == t.periodCode; });
        const int e = countRows(tt, [&](const TimetableRow &r) {
            return r.teacher != t.teacher && sameClass(r) && r.period == t.periodCode; });
        const int taken = b + cOther + e;
        const bool noRoom = t.periodCode <= cal.periodsOnLastWorkingDay ? c->value - a > l1 - taken - a
                                                                         : c->value - a > l2 - taken - a && e > 0;
        if (noRoom) {
            c->colour = ValidityCell::Colour::NoRoom;
            grid.cannotProceed = true;
        }
    }
    return grid;
}

QStringList UniformConditionFailures(const SchoolSnapshot &s)
{
    const SchoolCalendar &cal = s.calendar;
    QStringList failures;
    QHash<quint64, int> firstPeriods;
    for (const Allotment &a : s.allotments)
        if (!firstPeriods.contains(a.key()))
            firstPeriods.insert(a.key(), a.periods);
    for (const ClassTeacher &t : s.classTeachers) {
        const quint32 divisionId = quint32(t.classCode) << 16 | quint32(t.division);
        if (!s.classNames.contains(t.classCode) || !s.divisionNames.contains(divisionId))
            continue;
        const bool hasDays = s.classDays.contains(t.classCode);
        const int w = s.classDays.value(t.classCode, 0);
        const int wl = !hasDays ? 0 : cal.periodsPerDay != cal.periodsOnLastWorkingDay ? w - 1 : w;
        const int n = firstPeriods.value(allotmentKey(t.teacher, t.classCode, t.division, t.subject), 0);
        const int d = t.periodCode <= cal.periodsOnLastWorkingDay ? w : wl;
        const int p = n > d ? d : n;
        int q = 0;
        int taken = 0;
        for (const TimetableRow &r : s.timetable) {
            if (r.classCode != t.classCode || r.division != t.division || r.period != t.periodCode)
                continue;
            ++taken;
            q += r.subject == t.subject;
        }
        // The days on which the class does not work at all are no loss to its uniform period.
        const int r = taken - (cal.noOfWorkingDays - w);
        if (d - r < p - q)
            failures << QStringLiteral("Class Name : ") + s.classNames.value(t.classCode) + QStringLiteral("    ")
                    + QStringLiteral("Division Name : ") + s.divisionNames.value(divisionId) + QLatin1Char('\n');
    }
    return failures;
}

QString UniformConditionMessage(const QStringList &failures)
{
    return QStringLiteral("Uniform Period Condition Is Not Satisfied For The Following Classes") + QLatin1Char('\n')
        + failures.join(QString());
}

}
