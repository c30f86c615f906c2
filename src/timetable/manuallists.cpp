#include "manuallists.h"
#include "routines.h"
#include "sql.h"

#include <QSqlQuery>
#include <QSqlRecord>

QList<CodeName> ManualLists::items(const QString &statement, const QVariantList &values) const
{
    QList<CodeName> list;
    QSqlQuery query = Sql(m_db).run(statement, values);
    while (query.next())
        list.append({query.value(0).toInt(), query.value(1).toString().trimmed()});
    return list;
}

QList<CodeName> ManualLists::classes() const
{
    return items(QStringLiteral("SELECT ClassCode, ClassName FROM ClassDivisionMaster WHERE ClassCode > 0 "
                                "ORDER BY ClassOrder, ClassCode"),
                 {});
}

QList<CodeName> ManualLists::divisions(int classCode) const
{
    return items(QStringLiteral("SELECT DivisionCode, DivisionName FROM ClassDivisionDetails WHERE ClassCode = ? "
                                "AND DivisionCode > 0 ORDER BY DivisionCode"),
                 {classCode});
}

QList<CodeName> ManualLists::subjects(int classCode, int division) const
{
    return items(QStringLiteral("SELECT DISTINCT w.SubjectCode, s.SubjectName FROM WorkAllotmentEntry w "
                                "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
                                "WHERE w.ClassCode = ? AND w.DivisionCode = ? ORDER BY s.SubjectName"),
                 {classCode, division});
}

// One class division and subject has one teacher; should there be more, the first row read decides.
ManualLists::SubjectChoice ManualLists::subjectChoice(int classCode, int division, int subject) const
{
    SubjectChoice choice;
    const Sql sql(m_db);
    choice.shortName =
        sql.scalar(QStringLiteral("SELECT SubjectShortName FROM SubjectMaster WHERE SubjectCode = ?"), {subject})
            .toString()
            .trimmed();
    choice.groups = Placement::GroupNumbersOf(m_db, classCode, division, subject);
    QSqlQuery teacher = sql.run(QStringLiteral("SELECT t.TeacherCode, t.TeacherName FROM WorkAllotmentEntry w "
                                               "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
                                               "WHERE w.ClassCode = ? AND w.DivisionCode = ? AND w.SubjectCode = ? "
                                               "ORDER BY w.rowid"),
                                {classCode, division, subject});
    if (teacher.next()) {
        choice.teacher = teacher.value(0).toInt();
        choice.teacherName = teacher.value(1).toString().trimmed();
    }
    return choice;
}

QList<QStringList> ManualLists::rows(const QString &statement, int group) const
{
    QList<QStringList> list;
    if (group <= 0)
        return list; // group number 0 is no group, not a group of every plain row
    QSqlQuery query = Sql(m_db).run(statement, {group});
    while (query.next()) {
        QStringList row;
        for (int column = 0; column < query.record().count(); ++column)
            row << query.value(column).toString().trimmed();
        list << row;
    }
    return list;
}

QList<QStringList> ManualLists::combinedSubjectRows(int cpGroup) const
{
    return rows(QStringLiteral("SELECT t.TeacherName, c.ClassName, d.DivisionName, s.SubjectName, "
                               "w.NoOfSectionPeriods FROM WorkAllotmentEntry w "
                               "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
                               "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
                               "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode "
                               "AND d.DivisionCode = w.DivisionCode "
                               "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode WHERE w.CPGroupNo = ? "
                               "ORDER BY w.NoOfSectionPeriods, w.ClassCode, w.DivisionCode"),
                cpGroup);
}

QList<QStringList> ManualLists::combinedClassRows(int ccGroup) const
{
    return rows(QStringLiteral("SELECT c.ClassName, d.DivisionName FROM WorkAllotmentEntry w "
                               "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
                               "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode "
                               "AND d.DivisionCode = w.DivisionCode WHERE w.CCGroupNo = ? "
                               "ORDER BY w.ClassCode, w.DivisionCode"),
                ccGroup);
}

QList<QStringList> ManualLists::combinedTeacherRows(int ctGroup) const
{
    return rows(QStringLiteral("SELECT t.TeacherName, s.SubjectName FROM WorkAllotmentEntry w "
                               "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
                               "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode WHERE w.CTGroupNo = ? "
                               "ORDER BY t.TeacherName"),
                ctGroup);
}

QList<OverAllottedClass> OverAllottedClasses(const QSqlDatabase &db, const SchoolCalendar &calendar)
{
    QList<OverAllottedClass> classes;
    for (const AllottedTotal &total : AllottedTotals(db)) {
        const int difference = calendar.periodsPerWeek - total.periods;
        if (difference < 0)
            classes.append({total.className, total.divisionName, difference});
    }
    return classes;
}
