#pragma once
#include <QList>
#include <QSqlDatabase>
#include <QString>

// One class and the days of the week it works.
struct ClassWorkingDays
{
    int classCode = 0;
    QString className;
    int noOfWorkingDays = 0; // 0 while the office has not entered a number
};

// The number of working days of each class (ClasswiseNoOfWorkingDays), which the generators honour for a
// class that works fewer days than the school. The table holds one row per class or it is rebuilt.
class ClasswiseWorkingDays
{
public:
    explicit ClasswiseWorkingDays(const QSqlDatabase &db) : m_db(db) {}

    // Puts every class back to the school's number when a class was added or removed since the table was
    // filled; earlier numbers are lost then. True when it rebuilt. Throws StoreError.
    bool rebuildIfClassesChanged(int schoolDays) const;
    // Empties the table and gives every class the school's number, in one transaction.
    void rebuild(int schoolDays) const;
    // Every class in code order with its number; a class without a row shows the school's number.
    QList<ClassWorkingDays> rows(int schoolDays) const;

    // The refusal of a number above the school's working days.
    static QString aboveSchoolDaysText();
    // The index of the first class without a number above 0, or -1 when every class has one.
    static int firstMissing(const QList<ClassWorkingDays> &rows);
    static QString missingText() { return QStringLiteral("Enter Working Days/Week"); }
    // Replaces the table's rows with `rows` in one transaction. Throws StoreError.
    void save(const QList<ClassWorkingDays> &rows) const;

private:
    QSqlDatabase m_db;
};
