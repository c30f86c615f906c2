#pragma once
#include "codename.h"
#include "placement.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

// One row of a teacher's work allotment as the entry grid holds it. Codes are 0 until chosen.
struct AllotmentRow
{
    int classCode = 0;
    int division = 0;
    int subject = 0;
    QString className;
    QString divisionName;
    QString subjectName;
    int periods = 0; // 0 while the cell is empty
    GroupNumbers groups;
    QString ccSystem;
    QString ctSystem;
    bool classTeacher = false; // the teacher's class teacher entry names this row

    bool hasKey() const { return classCode > 0 && division > 0 && subject > 0; }
    bool sameKey(const AllotmentRow &other) const
    {
        return classCode == other.classCode && division == other.division && subject == other.subject;
    }
    // A generated Combined Class row costs its teacher nothing: the main row already counts the periods.
    bool countsForTeacher() const { return ccSystem.isEmpty(); }
};

// A stored row of the teacher, with what hangs on it elsewhere and how the grid now treats it.
struct StoredAllotment
{
    AllotmentRow row;
    int teacher = 0;
    int placed = 0;                // TimeTable rows of the allotment
    bool listed = false;           // a row with placed periods is still in the grid
    bool belowPlaced = false;      // the grid holds fewer periods than are placed
    bool classTeacherKept = false; // the class teacher row is still in the grid as one
};

// Why a Save stopped, and which grid row the user is sent to.
struct AllotmentRefusal
{
    enum class Kind {
        None,
        ExceedsWorkingPeriods,
        NoDetails,
        IncompleteRow,
        Duplicate,
        BelowPlaced,
        PlacedRowRemoved,
        ClassTeacherRowRemoved,
    };
    Kind kind = Kind::None;
    int row = -1;
    QString text;

    explicit operator bool() const { return kind != Kind::None; }
    // The last three discard the whole edit rather than point at one row.
    bool discardsEdit() const
    {
        return kind == Kind::BelowPlaced || kind == Kind::PlacedRowRemoved || kind == Kind::ClassTeacherRowRemoved;
    }
};

// The messages of the allotment entry screen that its rules produce.
namespace AllotmentTexts {
QString duplicate();
QString exceedsWorkingPeriods();
QString cannotReducePeriods();
QString timetableBlocksEdit();
QString deleteWholeListQuestion();
}

// One teacher's work allotment: the lists the screen chooses from, the teacher's rows, the checks that keep
// rows the timetable, the class teacher entry or a combined group depend on, and the Save and Delete, each
// in one transaction. Store failures throw StoreError.
class WorkAllotment
{
public:
    // What the screen shows of the teacher beside the rows.
    struct TeacherLoad
    {
        QString shortName;
        int workingPeriods = 0; // TeacherMaster.NoOfPeriods, the ceiling of the allotted periods
    };

    explicit WorkAllotment(const QSqlDatabase &db) : m_db(db) {}

    // Each list starts with a blank entry of code 0.
    QList<CodeName> teachers() const;
    QList<CodeName> classes() const;
    QList<CodeName> divisions(int classCode) const;
    QList<CodeName> subjects() const;

    TeacherLoad teacher(int teacher) const;
    // The teacher's stored rows by class and division, with their group numbers and class teacher mark.
    QList<AllotmentRow> rowsOf(int teacher) const;
    static int allottedPeriods(const QList<AllotmentRow> &rows);

    // The group numbers of the teacher's stored row and the words for the refusal, the last kind that
    // applies winning: "Combined Class Entry", then "Combined Teacher Entry", then "Combined Subject entry".
    GroupNumbers combinedGroups(int teacher, const AllotmentRow &row, QString *kind = nullptr) const;
    bool isClassTeacherEntry(int teacher, const AllotmentRow &row) const;
    int placedCount(int teacher, const AllotmentRow &row) const;
    // The row's class division and subject stand in another grid row, or in another teacher's stored row.
    bool isDuplicate(int teacher, const QList<AllotmentRow> &rows, int index) const;

    // The teacher's rows as stored, for the comparison a Save makes before it writes.
    QList<StoredAllotment> snapshot(int teacher) const;
    static void compare(QList<StoredAllotment> &snapshot, const QList<AllotmentRow> &rows);

    // The Save's checks in order; `snapshot` receives the compared snapshot when the checks reach it.
    AllotmentRefusal checkSave(int teacher, const QList<AllotmentRow> &rows, int currentRow,
                          QList<StoredAllotment> *snapshot = nullptr) const;
    // Replaces the teacher's plain rows by the grid's (Edit), or adds the grid's rows (New). Rows in a
    // combined group or named by the class teacher entry keep what is stored.
    void save(int teacher, const QList<AllotmentRow> &rows, bool editing) const;

    // Why the teacher's whole list may not be deleted; empty when it may.
    QString deleteRefusal(int teacher) const;
    void deleteAll(int teacher) const;

private:
    QList<CodeName> list(const QString &statement, const QVariantList &values = {}) const;

    QSqlDatabase m_db;
};
