#pragma once
#include "codename.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

#include <optional>

class MessageService;

// The class teacher of a class division: one of its teachers, the subject that teacher takes there, and
// the uniform period kept free for it every day. The choice lives in the last four columns of the
// teacher's TeacherMaster row. Every store failure throws StoreError.
class ClassTeacherAllotment
{
public:
    // A class teacher entry as stored, with the names the screen shows.
    struct Entry
    {
        int teacher = 0;
        QString teacherName;
        int classCode = 0;
        QString className;
        int division = 0;
        QString divisionName;
        int subject = 0;
        QString subjectName;
        int period = 0; // 0: no uniform period
        QString periodName;
    };

    // What the screen holds when Save is pressed; 0 stands for a field left blank.
    struct Choice
    {
        int classCode = 0;
        int division = 0;
        int teacher = 0;
        int subject = 0;
        bool uniformPeriod = false; // allocation "YES"
        int period = 0;
    };

    // The field a refusal sends the user back to.
    enum class Field { None, Class, Division, Teacher, Subject, UniformPeriodName };

    // How the user answered when the chosen teacher is already class teacher elsewhere.
    enum class TeacherCheck {
        Free,           // no other entry: go on
        ShowOtherEntry, // Yes: show the teacher's present entry instead
        ClearTeacher,   // No: blank the teacher and choose again
    };

    struct SaveResult
    {
        enum class Outcome { Saved, Updated, Refused, ShowOtherEntry, ClearTeacher, AllotmentGone };
        Outcome outcome = Outcome::Refused;
        Field focus = Field::None;
        Entry other; // the entry to show for ShowOtherEntry
    };

    explicit ClassTeacherAllotment(const QSqlDatabase &db) : m_db(db) {}

    QList<CodeName> classes() const;
    QList<CodeName> divisions(int classCode) const;
    // Teachers with work of their own in the class division; rows the combined screens generated do not
    // count, so a teacher who only shares a combined group there is not offered.
    QList<CodeName> teachers(int classCode, int division) const;
    // The teacher's subjects in the class division under the same rule, or all its subjects for teacher 0.
    QList<CodeName> subjects(int classCode, int division, int teacher) const;
    QList<CodeName> periods() const;

    std::optional<Entry> entryOfClassDivision(int classCode, int division) const;
    std::optional<Entry> entryOfTeacher(int teacher) const;
    // The entry's allotment still stands as a row the user entered.
    bool allotmentExists(const Choice &choice) const;

    // Asks what to do when `teacher` (not the one loaded for the class division) is already a class teacher;
    // for ShowOtherEntry, *other receives that entry.
    TeacherCheck checkTeacher(int teacher, int loadedTeacher, MessageService &messages, Entry *other) const;
    // Validates in the office's order, then writes in one transaction. In Edit the class division's present
    // class teacher is released first, so changing the teacher never leaves two of them.
    SaveResult save(const Choice &choice, int loadedTeacher, bool editing, MessageService &messages);
    // Releases the teacher's class teacher entry.
    void remove(int teacher);

    static QString alreadyClassTeacherQuestion();
    static QString masterDataDeletedText();
    static QString deleteQuestion();

private:
    std::optional<Entry> readEntry(const QString &where, const QVariantList &values) const;
    QList<CodeName> items(const QString &statement, const QVariantList &values = {}) const;

    QSqlDatabase m_db;
};
