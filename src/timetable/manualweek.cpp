#include "manualweek.h"
#include "sql.h"

#include <QSqlQuery>

using namespace Placement;

WeekLayout ManualWeek::layout() const
{
    WeekLayout layout;
    layout.days = WeekDays(m_calendar);
    layout.dayNames = m_calendar.dayNames(m_db);
    const QStringList names = SchoolCalendar::periodNames(m_db);
    for (int period = 1; period <= m_calendar.periodsPerDay; ++period)
        layout.periodNames << names.value(period - 1, QStringLiteral("P%1").arg(period));
    return layout;
}

WeekGrid ManualWeek::emptyWeek() const
{
    WeekGrid week;
    const int days = qMax(0, int(m_calendar.noOfWorkingDays));
    const int periods = qMax(0, int(m_calendar.periodsPerDay));
    week.cells = QList<QList<WeekCell>>(days, QList<WeekCell>(periods));
    return week;
}

// The rows come in the slot reading order for the whole week at once; within one slot that order still puts
// the main row last, so the cell ends with the main row's text.
WeekGrid ManualWeek::classWeek(const ManualSelection &selection) const
{
    WeekGrid week = emptyWeek();
    if (selection.classCode <= 0 || selection.division <= 0)
        return week;
    const QList<int> days = WeekDays(m_calendar);
    QSqlQuery rows = Sql(m_db).run(
        QStringLiteral("SELECT t.DayCode, t.PeriodCode, s.SubjectShortName, t.TeacherCode, t.SubjectCode "
                       "FROM TimeTable t JOIN SubjectMaster s ON s.SubjectCode = t.SubjectCode "
                       "WHERE t.ClassCode = ? AND t.DivisionCode = ? ")
            + slotReadingOrder(),
        {selection.classCode, selection.division});
    while (rows.next()) {
        const int row = days.indexOf(rows.value(0).toInt());
        const int period = rows.value(1).toInt();
        if (row < 0 || period < 1 || period > week.cells[row].size())
            continue;
        WeekCell &cell = week.cells[row][period - 1];
        cell.text = rows.value(2).toString().trimmed();
        cell.ofSelection = rows.value(3).toInt() == selection.teacher && rows.value(4).toInt() == selection.subject;
    }
    return week;
}

WeekGrid ManualWeek::teacherWeek(const ManualSelection &selection) const
{
    WeekGrid week = emptyWeek();
    if (selection.classCode <= 0 || selection.division <= 0 || selection.teacher <= 0)
        return week;
    const QList<int> days = WeekDays(m_calendar);
    QSqlQuery rows = Sql(m_db).run(
        QStringLiteral("SELECT t.DayCode, t.PeriodCode, c.ClassName, d.DivisionName, t.ClassCode, t.DivisionCode, "
                       "t.SubjectCode FROM TimeTable t JOIN ClassDivisionMaster c ON c.ClassCode = t.ClassCode "
                       "JOIN ClassDivisionDetails d ON d.ClassCode = t.ClassCode AND d.DivisionCode = t.DivisionCode "
                       "WHERE t.TeacherCode = ? ")
            + slotReadingOrder(),
        {selection.teacher});
    while (rows.next()) {
        const bool selected = rows.value(4).toInt() == selection.classCode
            && rows.value(5).toInt() == selection.division && rows.value(6).toInt() == selection.subject;
        if (selected)
            ++week.occupied;
        const int row = days.indexOf(rows.value(0).toInt());
        const int period = rows.value(1).toInt();
        if (row < 0 || period < 1 || period > week.cells[row].size())
            continue;
        WeekCell &cell = week.cells[row][period - 1];
        cell.text = rows.value(2).toString().trimmed() + QLatin1Char('/') + rows.value(3).toString().trimmed();
        cell.ofSelection = selected;
    }
    return week;
}

int ManualWeek::allottedPeriods(const ManualSelection &selection) const
{
    return Sql(m_db)
        .scalar(QStringLiteral("SELECT NoOfSectionPeriods FROM WorkAllotmentEntry WHERE TeacherCode = ? AND "
                               "SubjectCode = ? AND ClassCode = ? AND DivisionCode = ?"),
                {selection.teacher, selection.subject, selection.classCode, selection.division})
        .toInt();
}

QList<PeriodSlot> ManualWeek::busySlots(const QString &statement, int cpGroup) const
{
    QList<PeriodSlot> busy;
    QSqlQuery rows = Sql(m_db).run(statement, {cpGroup});
    while (rows.next())
        busy.append({rows.value(0).toInt(), rows.value(1).toInt()});
    return busy;
}

// The last day's shorter length is not applied: the list shows every period of an ordinary day.
QString ManualWeek::freeSlotLines(const QList<PeriodSlot> &busy) const
{
    const QList<int> days = WeekDays(m_calendar);
    const QStringList names = m_calendar.dayNames(m_db);
    QStringList lines;
    for (int row = 0; row < days.size(); ++row) {
        QString line = QStringLiteral("  ") + names.value(row).left(3).toUpper() + QStringLiteral("   ");
        for (int period = 1; period <= m_calendar.periodsPerDay; ++period) {
            if (!busy.contains(PeriodSlot{days[row], period}))
                line += QStringLiteral(" P") + QString::number(period) + QLatin1Char(',');
        }
        if (line.endsWith(QLatin1Char(',')))
            line.chop(1);
        lines << line;
    }
    return lines.join(QLatin1Char('\n'));
}

QString ManualWeek::teachersFree(int cpGroup) const
{
    if (cpGroup <= 0)
        return {};
    return freeSlotLines(busySlots(
        QStringLiteral("SELECT DISTINCT DayCode, PeriodCode FROM TimeTable WHERE TeacherCode IN "
                       "(SELECT TeacherCode FROM WorkAllotmentEntry WHERE CPGroupNo = ?)"),
        cpGroup));
}

// A slot is taken when a member's class division has any row there; that also covers a member's own
// allotment standing there already. A member's teacher busy elsewhere does not count.
QString ManualWeek::teachersClassesFree(int cpGroup) const
{
    if (cpGroup <= 0)
        return {};
    return freeSlotLines(busySlots(
        QStringLiteral("SELECT DISTINCT t.DayCode, t.PeriodCode FROM TimeTable t JOIN WorkAllotmentEntry w "
                       "ON w.ClassCode = t.ClassCode AND w.DivisionCode = t.DivisionCode WHERE w.CPGroupNo = ?"),
        cpGroup));
}

QList<SubjectBalance> ManualWeek::periodsToBeFilled(int classCode, int division) const
{
    QList<SubjectBalance> subjects;
    QSqlQuery allotted = Sql(m_db).run(
        QStringLiteral("SELECT w.SubjectCode, s.SubjectName, w.NoOfSectionPeriods FROM WorkAllotmentEntry w "
                       "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
                       "WHERE w.ClassCode = ? AND w.DivisionCode = ? ORDER BY s.SubjectName, w.TeacherCode"),
        {classCode, division});
    while (allotted.next()) {
        const int periods = allotted.value(2).toInt();
        subjects.append({allotted.value(0).toInt(), allotted.value(1).toString().trimmed(), periods, 0});
    }
    QSqlQuery filled = Sql(m_db).run(QStringLiteral("SELECT SubjectCode, COUNT(*) FROM TimeTable WHERE ClassCode = ? "
                                                    "AND DivisionCode = ? GROUP BY SubjectCode"),
                                     {classCode, division});
    while (filled.next()) {
        for (SubjectBalance &line : subjects) {
            if (line.subject == filled.value(0).toInt())
                line.filled = filled.value(1).toInt();
        }
    }
    subjects.removeIf([](const SubjectBalance &line) { return line.balance() == 0; });
    return subjects;
}
