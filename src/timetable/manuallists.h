#pragma once
#include "codename.h"
#include "placement.h"

#include <QStringList>

// The lists the manual screen chooses from and the members of its selection's combined groups.
class ManualLists
{
public:
    // What choosing a subject of a class division brings along: its teacher and its groups.
    struct SubjectChoice
    {
        QString shortName;
        GroupNumbers groups;
        int teacher = 0;
        QString teacherName;
    };

    explicit ManualLists(const QSqlDatabase &db) : m_db(db) {}

    // Classes above code 0 in the school's class order.
    QList<CodeName> classes() const;
    QList<CodeName> divisions(int classCode) const;
    // Every subject allotted to the class division, generated rows of combined groups included.
    QList<CodeName> subjects(int classCode, int division) const;
    SubjectChoice subjectChoice(int classCode, int division, int subject) const;

    // Rows of the combined subject group: teacher, class, division, subject, periods.
    QList<QStringList> combinedSubjectRows(int cpGroup) const;
    // Class divisions of the combined class group: class, division.
    QList<QStringList> combinedClassRows(int ccGroup) const;
    // Teachers of the combined teacher group: teacher, subject.
    QList<QStringList> combinedTeacherRows(int ctGroup) const;

private:
    QList<CodeName> items(const QString &statement, const QVariantList &values) const;
    QList<QStringList> rows(const QString &statement, int group) const;

    QSqlDatabase m_db;
};

// A class division whose allotted periods exceed the week.
struct OverAllottedClass
{
    QString className;
    QString divisionName;
    int difference = 0; // periods of the week less periods allotted: below 0
};

// Every over-allotted class division, in class and division order. Rows added for combined teacher groups
// are not the class division's own periods and do not count.
QList<OverAllottedClass> OverAllottedClasses(const QSqlDatabase &db, const SchoolCalendar &calendar);
