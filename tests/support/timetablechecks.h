#pragma once
#include <QString>

// Rules of a stored week, each as one statement that counts what breaks it, read from the store's tables
// alone: the tests judge the generators and the completion with these, not with the program's own check.
namespace TimetableChecks {

// Teacher and slot where a teacher stands twice outside one Combined Class group.
inline QString teacherClashes()
{
    return QStringLiteral(
        "SELECT COUNT(*) FROM (SELECT t.TeacherCode FROM TimeTable t JOIN WorkAllotmentEntry w ON w.TeacherCode = "
        "t.TeacherCode AND w.ClassCode = t.ClassCode AND w.DivisionCode = t.DivisionCode AND w.SubjectCode = "
        "t.SubjectCode GROUP BY t.TeacherCode, t.DayCode, t.PeriodCode HAVING COUNT(*) > 1 AND "
        "(MIN(IFNULL(w.CCGroupNo, 0)) = 0 OR COUNT(DISTINCT w.CCGroupNo) > 1))");
}

// Class division and slot holding two rows outside one Combined Teacher group.
inline QString classClashes()
{
    return QStringLiteral(
        "SELECT COUNT(*) FROM (SELECT t.ClassCode FROM TimeTable t JOIN WorkAllotmentEntry w ON w.TeacherCode = "
        "t.TeacherCode AND w.ClassCode = t.ClassCode AND w.DivisionCode = t.DivisionCode AND w.SubjectCode = "
        "t.SubjectCode GROUP BY t.ClassCode, t.DivisionCode, t.DayCode, t.PeriodCode HAVING COUNT(*) > 1 AND "
        "(MIN(IFNULL(w.CTGroupNo, 0)) = 0 OR COUNT(DISTINCT w.CTGroupNo) > 1))");
}

// Rows of a combined group member in a slot where another member of its group has none.
inline QString splitGroups()
{
    return QStringLiteral(
        "SELECT COUNT(*) FROM WorkAllotmentEntry a JOIN WorkAllotmentEntry b ON ((a.CPGroupNo > 0 AND a.CPGroupNo = "
        "b.CPGroupNo) OR (a.CCGroupNo > 0 AND a.CCGroupNo = b.CCGroupNo) OR (a.CTGroupNo > 0 AND a.CTGroupNo = "
        "b.CTGroupNo)) JOIN TimeTable t ON t.TeacherCode = a.TeacherCode AND t.ClassCode = a.ClassCode AND "
        "t.DivisionCode = a.DivisionCode AND t.SubjectCode = a.SubjectCode WHERE NOT EXISTS (SELECT 1 FROM TimeTable "
        "u WHERE u.TeacherCode = b.TeacherCode AND u.ClassCode = b.ClassCode AND u.DivisionCode = b.DivisionCode "
        "AND u.SubjectCode = b.SubjectCode AND u.DayCode = t.DayCode AND u.PeriodCode = t.PeriodCode)");
}

// Rows outside the school's week, the short last day counted.
inline QString outsideWeek()
{
    return QStringLiteral(
        "SELECT COUNT(*) FROM TimeTable t, SchoolSetup s WHERE t.DayCode > s.NoOfWorkingDays OR t.DayCode < 1 OR "
        "t.PeriodCode < 1 OR t.PeriodCode > s.PeriodsPerDay OR (t.DayCode = s.NoOfWorkingDays AND t.PeriodCode > "
        "s.PeriodsOnLastWorkingDay)");
}

// Rows on a day their class does not work.
inline QString offClassDays()
{
    return QStringLiteral(
        "SELECT COUNT(*) FROM TimeTable t JOIN ClasswiseNoOfWorkingDays c ON c.ClassCode = t.ClassCode WHERE "
        "t.DayCode > c.NoOfWorkingDays");
}

}
