#include "phaseonesettings.h"
#include "sql.h"
#include "store.h"
#include "transaction.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace PhaseOneSettings {

namespace {

const QString TeacherTable = QStringLiteral("AGP1TeacherDetails");
const QString SubjectTable = QStringLiteral("AGP1SubjectDetails");

int number(const QVariant &value)
{
    return value.toString().trimmed().toInt();
}

// Columns after the period columns: TeacherCode, NoOfPeriods, Counts, POLWDC; or SubjectCode, Counts, POLWDC.
QList<SettingRow> readRows(const Sql &sql, const QString &table, Kind kind, int periodsPerDay)
{
    QList<SettingRow> rows;
    if (!Store::tableExists(sql.db(), table))
        return rows;
    const int tail = kind == Kind::Teacher ? 4 : 3;
    QSqlQuery q = sql.run(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(table));
    const int columns = q.record().count();
    const int periods = columns - 1 - tail;
    while (q.next()) {
        SettingRow row;
        row.name = q.value(0).toString().trimmed();
        for (int p = 1; p <= periodsPerDay; ++p)
            row.free.append(p <= periods && q.value(p).toString().trimmed().compare(QLatin1String("No"), Qt::CaseInsensitive) == 0);
        int at = 1 + periods;
        row.code = number(q.value(at++));
        if (kind == Kind::Teacher)
            row.noOfPeriods = number(q.value(at++));
        row.count = number(q.value(at++));
        row.polwdc = number(q.value(at));
        if (!row.name.isEmpty())
            rows.append(row);
    }
    return rows;
}

void writeRows(const Sql &sql, const SchoolCalendar &calendar, const QString &table, Kind kind,
               const QList<SettingRow> &rows)
{
    const bool teacher = kind == Kind::Teacher;
    if (teacher)
        PhaseOneChecks::CreateTeacherDetails(sql.db(), calendar);
    else
        PhaseOneChecks::CreateSubjectDetails(sql.db(), calendar);
    const QStringList names = SchoolCalendar::periodNames(sql.db());

    const int periods = int(qMin<qsizetype>(calendar.periodsPerDay, names.size()));
    const int columns = 1 + periods + (teacher ? 4 : 3);
    QStringList marks;
    for (int c = 0; c < columns; ++c)
        marks << QStringLiteral("?");
    const QString insert = QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(table, marks.join(QLatin1Char(',')));
    // The count of free periods on the short last day means nothing in a week without one: it stays blank.
    const bool shortLastDay = calendar.periodsPerDay != calendar.periodsOnLastWorkingDay;
    for (const SettingRow &row : rows) {
        QVariantList values{row.name};
        for (int p = 0; p < periods; ++p)
            values << (p < row.free.size() && row.free[p] ? QStringLiteral("No") : QString(QLatin1String("")));
        if (teacher)
            values << QString::number(row.code) << QString::number(row.noOfPeriods);
        else
            values << row.code;
        values << QString::number(row.count) << (shortLastDay ? QString::number(row.polwdc) : QString(QLatin1String("")));
        sql.run(insert, values);
    }
}

int periodsAllowed(const SchoolCalendar &calendar, const SettingRow &row, int period)
{
    int taken = (row.count + 1) * UniformDays(calendar);
    if (calendar.periodsPerDay != calendar.periodsOnLastWorkingDay)
        taken += row.polwdc + (period <= calendar.periodsOnLastWorkingDay ? 1 : 0);
    return calendar.periodsPerWeek - taken;
}

// The two sentences stand without a break between them.
QString limitText(const QString &name, int periods, int allowed, Kind kind)
{
    return QStringLiteral("No. Of Periods Alloted For ") + name + QStringLiteral(" Is ") + QString::number(periods)
        + QLatin1Char('\n') + QStringLiteral("But This Selection Allows Only ") + QString::number(allowed)
        + QStringLiteral(" Periods To Be Filled")
        + (kind == Kind::Teacher ? QStringLiteral("Hence You Cannot Select More 'Teachers Uniform Free Periods' For ")
                                 : QStringLiteral("Hence You Cannot Select More 'Subject Uniform Free Periods' For "))
        + name + QLatin1Char('\n');
}

}

int UniformDays(const SchoolCalendar &calendar)
{
    return calendar.periodsOnLastWorkingDay == calendar.periodsPerDay ? calendar.noOfWorkingDays
                                                                       : calendar.noOfWorkingDays - 1;
}

bool CountsOnLastDay(const SchoolCalendar &calendar, int period)
{
    return calendar.periodsPerDay != calendar.periodsOnLastWorkingDay && period <= calendar.periodsOnLastWorkingDay;
}

Settings Load(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    const Sql sql(db);
    Settings settings;
    const QVariant answer = sql.scalar(QStringLiteral("SELECT UniformPeriodRequired FROM AGP1Master"));
    if (!answer.isValid())
        return settings;
    settings.saved = true;
    settings.uniform = answer.toString().trimmed();
    settings.teachers = readRows(sql, TeacherTable, Kind::Teacher, calendar.periodsPerDay);
    settings.subjects = readRows(sql, SubjectTable, Kind::Subject, calendar.periodsPerDay);
    QSqlQuery q = sql.run(QStringLiteral("SELECT SubjectName, TeacherName, TotalPeriods FROM AGP1SubjectTeacherDetails "
                                         "ORDER BY rowid"));
    while (q.next())
        settings.subjectTeachers.append({q.value(0).toString(), q.value(1).toString(), q.value(2).toInt()});
    return settings;
}

void Save(const QSqlDatabase &db, const SchoolCalendar &calendar, const Settings &settings, bool edit)
{
    Q_UNUSED(edit); // an Edit replaces what stands, a New clears what an earlier run may have left: the same work
    const Sql sql(db);
    Transaction transaction(db);
    sql.run(QStringLiteral("DELETE FROM AGP1Master"));
    sql.run(QStringLiteral("DROP TABLE IF EXISTS AGP1TeacherDetails"));
    sql.run(QStringLiteral("DROP TABLE IF EXISTS AGP1SubjectDetails"));
    sql.run(QStringLiteral("DELETE FROM AGP1SubjectTeacherDetails"));
    sql.run(QStringLiteral("INSERT INTO AGP1Master VALUES (?)"), {settings.uniform.trimmed()});
    if (!settings.teachers.isEmpty())
        writeRows(sql, calendar, TeacherTable, Kind::Teacher, settings.teachers);
    if (!settings.subjects.isEmpty())
        writeRows(sql, calendar, SubjectTable, Kind::Subject, settings.subjects);
    for (const SubjectTeacherRow &row : settings.subjectTeachers)
        sql.run(QStringLiteral("INSERT INTO AGP1SubjectTeacherDetails VALUES (?, ?, ?)"),
                {row.subjectName, row.teacherName, row.total});
    transaction.commit();
}

void Delete(const QSqlDatabase &db)
{
    const Sql sql(db);
    Transaction transaction(db);
    sql.run(QStringLiteral("DELETE FROM AGP1Master"));
    sql.run(QStringLiteral("DROP TABLE IF EXISTS AGP1TeacherDetails"));
    sql.run(QStringLiteral("DROP TABLE IF EXISTS AGP1SubjectDetails"));
    sql.run(QStringLiteral("DELETE FROM AGP1SubjectTeacherDetails"));
    sql.run(QStringLiteral("DELETE FROM ClasswiseNoOfWorkingDays"));
    transaction.commit();
}

int TeacherPeriods(const QSqlDatabase &db, int teacherCode)
{
    return Sql(db).scalar(QStringLiteral("SELECT NoOfPeriods FROM TeacherMaster WHERE TeacherCode = ?"), {teacherCode}).toInt();
}

QList<SubjectTeacherRow> TeachersOfSubject(const QSqlDatabase &db, int subjectCode, const QString &subjectName)
{
    QList<SubjectTeacherRow> rows;
    QSqlQuery q = Sql(db).run(QStringLiteral("SELECT SUM(a.NoOfSectionPeriods), b.TeacherName FROM WorkAllotmentEntry a, "
                                             "TeacherMaster b WHERE a.TeacherCode = b.TeacherCode AND a.SubjectCode = ? "
                                             "AND (a.CCSystem IS NULL OR a.CCSystem = '') GROUP BY b.TeacherName"),
                              {subjectCode});
    while (q.next())
        rows.append({subjectName, q.value(1).toString(), q.value(0).toInt()});
    return rows;
}

QString TeacherSettingRefusal(const SchoolCalendar &calendar, const SettingRow &row, int period)
{
    const int allowed = periodsAllowed(calendar, row, period);
    if (row.noOfPeriods > allowed)
        return limitText(row.name, row.noOfPeriods, allowed, Kind::Teacher);
    return {};
}

QString SubjectSettingRefusal(const SchoolCalendar &calendar, const SettingRow &row, int period,
                              const QList<SubjectTeacherRow> &checks)
{
    const int allowed = periodsAllowed(calendar, row, period);
    for (const SubjectTeacherRow &check : checks)
        if (check.subjectName.trimmed().compare(row.name.trimmed(), Qt::CaseInsensitive) == 0 && check.total > allowed)
            return limitText(check.teacherName, check.total, allowed, Kind::Subject);
    return {};
}

QString TeacherFreeRefusal(const QSqlDatabase &db, const SchoolCalendar &calendar, const SettingRow &row, int period,
                           bool uniformYes, const PhaseOneChecks::ValidityGrid *validity)
{
    const Sql sql(db);
    if (uniformYes) {
        const int classTeacherPeriod =
            sql.scalar(QStringLiteral("SELECT PeriodCode FROM TeacherMaster WHERE TeacherCode = ?"), {row.code}).toInt();
        if (classTeacherPeriod > 0 && classTeacherPeriod == period)
            return QStringLiteral("Teacher ") + row.name + QStringLiteral(" Is Alloted As Class Teacher In This Period.")
                + QLatin1Char('\n') + QStringLiteral("Hence He/She Cannot Be Free During This Period");
        if (validity) {
            for (const PhaseOneChecks::ValidityRow &line : validity->rows)
                if (line.teacher == row.code && period - 1 < line.cells.size() && line.cells[period - 1].value != 0)
                    return QStringLiteral("This Period Cannot Be Free Because ") + QLatin1Char('\n')
                        + QStringLiteral("It Is Combined With Some Teacher Who Is A Class Teacher During This Period");
        }
    }
    if (sql.exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE TeacherCode = ? AND PeriodCode = ?"), {row.code, period}))
        return QStringLiteral("Already A Period Is Alloted For Teacher ") + row.name
            + QStringLiteral(" In 'Manual Period Entry'. Hence He/She Cannot Be Free In This Period. If You Want To Make This Period ")
            + QStringLiteral("Free Make Modifications In 'Manual Period Entry' Screen For This Teacher And Make An Entry Here.");
    return TeacherSettingRefusal(calendar, row, period);
}

QString SubjectFreeRefusal(const QSqlDatabase &db, const SchoolCalendar &calendar, const SettingRow &row, int period,
                           bool uniformYes, const QList<SubjectTeacherRow> &checks)
{
    const Sql sql(db);
    if (uniformYes
        && sql.exists(QStringLiteral("SELECT 1 FROM TeacherMaster WHERE SubjectCode = ? AND PeriodCode = ?"), {row.code, period}))
        return QStringLiteral("Subject ") + row.name + QStringLiteral(" Is Alloted In 'Class Teacher Entry' For This Period.")
            + QStringLiteral("This Period Is Already Reserved For This Subject") + QLatin1Char('\n')
            + QStringLiteral("Hence This Period Cannot Be Free");
    if (sql.exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE SubjectCode = ? AND PeriodCode = ?"), {row.code, period}))
        return QStringLiteral("Already A Period Is Alloted For Subject ") + row.name + QStringLiteral(" In 'Manual Period Entry'.")
            + QLatin1Char('\n') + QStringLiteral("Hence ") + row.name + QStringLiteral(" Cannot Be Free In This Period.")
            + QLatin1Char('\n') + QStringLiteral("If You Want To Make This Period ")
            + QStringLiteral("Free Make Modifications In 'Manual Period Entry' Screen For this Subject And Make An Entry Here.");
    return SubjectSettingRefusal(calendar, row, period, checks);
}

void SetFree(const SchoolCalendar &calendar, SettingRow &row, int period, bool free)
{
    while (row.free.size() < period)
        row.free.append(false);
    if (row.free[period - 1] == free)
        return;
    row.free[period - 1] = free;
    const int step = free ? 1 : -1;
    row.count += step;
    if (CountsOnLastDay(calendar, period))
        row.polwdc += step;
}

}
