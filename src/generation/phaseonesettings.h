#pragma once
#include "phaseonechecks.h"
#include "schoolcalendar.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

// The Phase I settings as the settings screen edits them: whether class teachers get a uniform period, and the
// periods of the day that chosen teachers and subjects are kept free of. The rules of each click are here,
// so that the screen only shows what they decide.
namespace PhaseOneSettings {

enum class Kind { Teacher, Subject };

// One row of a settings grid. `free[p - 1]` is the "No" of period p.
struct SettingRow
{
    QString name;
    int code = 0;
    int noOfPeriods = 0; // teachers only
    QList<bool> free;
    int count = 0;       // "No" cells of the row
    int polwdc = 0;      // of them, those in a period the short last day has (a week with a short last day only)
};

// A teacher of a chosen subject and the periods the teacher takes in it outside combined classes.
struct SubjectTeacherRow
{
    QString subjectName;
    QString teacherName;
    int total = 0;
};

struct Settings
{
    bool saved = false; // AGP1Master holds a row
    QString uniform;    // "NO" or "YES"
    QList<SettingRow> teachers;
    QList<SettingRow> subjects;
    QList<SubjectTeacherRow> subjectTeachers;
};

Settings Load(const QSqlDatabase &db, const SchoolCalendar &calendar);
// Save: one transaction. `edit` replaces the stored settings; a new Save drops detail tables left standing.
void Save(const QSqlDatabase &db, const SchoolCalendar &calendar, const Settings &settings, bool edit);
// Delete: the settings and the class-wise working days, in one transaction.
void Delete(const QSqlDatabase &db);

// How many days one free period of the day costs: the working days, less a short last day.
int UniformDays(const SchoolCalendar &calendar);
// A free period in `period` counts on the short last day too.
bool CountsOnLastDay(const SchoolCalendar &calendar, int period);

// The teacher's allotted periods, as the teacher grid keeps them.
int TeacherPeriods(const QSqlDatabase &db, int teacherCode);
// The check rows of a subject: each teacher's periods in it over allotments outside combined classes.
QList<SubjectTeacherRow> TeachersOfSubject(const QSqlDatabase &db, int subjectCode, const QString &subjectName);

// Why `period` cannot be made free for the row, or empty when it may: class teacher periods (with a "YES"
// answer), periods already placed by hand, and the limit on free periods. `validity` is the check grid of the
// "YES" answer, if one was built.
QString TeacherFreeRefusal(const QSqlDatabase &db, const SchoolCalendar &calendar, const SettingRow &row, int period,
                           bool uniformYes, const PhaseOneChecks::ValidityGrid *validity);
QString SubjectFreeRefusal(const QSqlDatabase &db, const SchoolCalendar &calendar, const SettingRow &row, int period,
                           bool uniformYes, const QList<SubjectTeacherRow> &checks);

// The limits alone: the refusal text, or empty when the new free period is allowed.
QString TeacherSettingRefusal(const SchoolCalendar &calendar, const SettingRow &row, int period);
QString SubjectSettingRefusal(const SchoolCalendar &calendar, const SettingRow &row, int period,
                              const QList<SubjectTeacherRow> &checks);

// Marks or clears the "No" of `period`, keeping the row's two counts.
void SetFree(const SchoolCalendar &calendar, SettingRow &row, int period, bool free);

}
