#include "teachertimetable.h"
#include "sql.h"

#include <QHash>

namespace TeacherTimeTable {

QList<CodeName> teachers(const QSqlDatabase &db)
{
    QList<CodeName> list{{0, QStringLiteral(" ")}};
    QSqlQuery query = Sql(db).run(QStringLiteral(
        "SELECT TeacherCode, TeacherName FROM TeacherMaster WHERE TeacherCode > 0 ORDER BY TeacherName"));
    while (query.next())
        list << CodeName{query.value(0).toInt(), query.value(1).toString()};
    return list;
}

ReportGrid frame(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    const int periods = qMax<int>(calendar.periodsPerDay, 0);
    const int days = qMax<int>(calendar.noOfWorkingDays, 0);
    ReportGrid grid(days + 1, periods + 2);
    const int codeColumn = dayCodeColumn(grid);
    grid.setText(0, 0, QStringLiteral("Day"));
    const QStringList periodNames = SchoolCalendar::periodNames(db);
    for (int p = 1; p <= periods; ++p)
        grid.setText(0, p, periodNames.value(p - 1));
    grid.setText(0, codeColumn, QStringLiteral("DayCode"));
    const QStringList dayNames = calendar.dayNames(db);
    for (int row = 1; row <= days; ++row) {
        grid.setText(row, 0, dayNames.value(row - 1));
        grid.setText(row, codeColumn, QString::number(calendar.dayCodeOfRow(row - 1)));
    }
    return grid;
}

int fill(const QSqlDatabase &db, int teacherCode, ReportGrid &grid)
{
    const int codeColumn = dayCodeColumn(grid);
    QHash<int, int> rowOfDay;
    for (int row = 1; row < grid.rowCount(); ++row)
        rowOfDay.insert(grid.text(row, codeColumn).toInt(), row);

    // Generated rows (CT or CC set) sort before the main row of their slot, so the main row is written last.
    QSqlQuery query = Sql(db).run(
        QStringLiteral("SELECT t.DayCode, t.PeriodCode, m.ClassName, d.DivisionName, s.SubjectShortName "
                       "FROM TimeTable t "
                       "JOIN ClassDivisionDetails d ON d.ClassCode = t.ClassCode AND d.DivisionCode = t.DivisionCode "
                       "JOIN ClassDivisionMaster m ON m.ClassCode = t.ClassCode "
                       "JOIN SubjectMaster s ON s.SubjectCode = t.SubjectCode "
                       "WHERE t.TeacherCode = ? "
                       "ORDER BY t.DayCode, t.PeriodCode, COALESCE(t.CT, '') DESC, COALESCE(t.CC, '') DESC"),
        {teacherCode});
    int placed = 0;
    while (query.next()) {
        const int row = rowOfDay.value(query.value(0).toInt(), -1);
        const int column = query.value(1).toInt();
        if (row < 0 || column < 1 || column >= codeColumn)
            continue;
        grid.setText(row, column,
                     cellText(query.value(2).toString(), query.value(3).toString(), query.value(4).toString()));
        ++placed;
    }
    return placed;
}

QString cellText(const QString &className, const QString &divisionName, const QString &subjectShortName)
{
    return ReportText::centred(className.trimmed() + divisionName.trimmed(), 8)
        + ReportText::centred(subjectShortName.trimmed(), 3);
}

}
