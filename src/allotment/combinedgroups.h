#pragma once
#include "codename.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

// What the three combined-entry screens (subject, class, teacher groups) have in common: the allotment key,
// the answer of a check, the drop-down rows, the search rows and the texts all three screens show.
namespace Combined {

enum class Kind { Subject, Class, Teacher };

// The allotment a row of WorkAllotmentEntry stands for.
struct Key
{
    int teacher = 0;
    int classCode = 0;
    int division = 0;
    int subject = 0;
    friend bool operator==(const Key &, const Key &) = default;
};

// The answer of a check made before a pick, an add or a save. Anything but Go carries the text to show;
// Reset also discards the screen's work, ClearList empties the list of added rows.
struct Verdict
{
    enum class Then { Go, Stop, Reset, ClearList };
    Then then = Then::Go;
    QString text;
    QString focus; // objectName of the control that takes the focus after a Stop

    bool ok() const { return then == Then::Go; }
    static Verdict go() { return {}; }
    static Verdict stop(const QString &text, const QString &focus = {}) { return {Then::Stop, text, focus}; }
    static Verdict reset(const QString &text) { return {Then::Reset, text, {}}; }
    static Verdict clearList(const QString &text) { return {Then::ClearList, text, {}}; }
};

// The allotment a Combined Class or Combined Teacher group is built on.
struct MainRow
{
    Key key;
    QString teacherName;
    QString className;
    QString divisionName;
    QString subjectName;
    int periods = 0;
    int cpGroupNo = 0;
};

// What the class and teacher screens hold: the main row shown (teacher 0 when none) and the listed rows
// their Save generates.
template<typename ListedRow>
struct Draft
{
    MainRow main;
    QList<ListedRow> listed;
    bool editing = false;
    Key kept;        // the main row the group was loaded with
    int groupNo = 0; // the group being edited
};

// The main class, division and subject as chosen on screen (code 0 when empty): the first refusal, if any.
Verdict checkMainChosen(int mainClass, int mainDivision, int mainSubject);

// The optional filters of a search form; an empty filter asks before listing everything.
struct SearchFilter
{
    int classCode = 0;
    int subject = 0;
    int teacher = 0;
    std::optional<int> groupNo;
    bool empty() const { return classCode <= 0 && subject <= 0 && teacher <= 0 && !groupNo; }
};

struct SearchRow
{
    int groupNo = 0;
    QString teacherName;
    QString className;
    QString divisionName;
    QString subjectName;
    int periods = 0;
    Key key;
};

// ControlFileMaster ID and row mark of a kind: "CP", "CC", "CT".
QString mark(Kind kind);
QString caption(Kind kind);       // "Combined Subject Entry"
QString searchCaption(Kind kind); // "Combined Subject Entry Search"
QString formName(Kind kind);      // "frmCombinedSubjectEntry"
int helpScreenNo(Kind kind);

// Texts the three screens share.
QString masterDeletedText();
QString groupPlacedText();        // a placed member stops any change of the group
QString cannotEditText();
QString cannotDeleteText();
QString deleteQuestion(Kind kind);
QString viewAllQuestion(Kind kind);
QString groupIdHeader(Kind kind);
QString groupIdCaption(Kind kind);

}

// The store side the three group screens share: placed periods, allotment look-ups, the drop-down lists,
// the main row of a Combined Class or Combined Teacher group, group numbers, search and dissolving a group.
// Throws StoreError on a store failure.
class CombinedGroups
{
public:
    CombinedGroups(const QSqlDatabase &db, Combined::Kind kind);

    Combined::Kind kind() const { return m_kind; }
    QSqlDatabase db() const { return m_db; }

    // The allotment has TimeTable rows.
    bool placedPeriods(const Combined::Key &key) const;
    bool allotmentExists(const Combined::Key &key) const;
    // Any teacher's allotment of the class division and subject.
    bool allotmentExists(int classCode, int division, int subject) const;
    // Like the above, leaving out the rows of group `ownGroup` of this screen's kind (0 leaves out none).
    bool subjectTakenOutside(int classCode, int division, int subject, int ownGroup) const;

    // A fresh group number of this kind; never one that was handed out before.
    int takeGroupNo() const;

    // Blank first entry with code 0, then the rows above 0.
    QList<CodeName> classes() const; // by ClassOrder
    QList<CodeName> divisionsOf(int classCode) const;
    QList<CodeName> subjects() const;
    QList<CodeName> teachers() const;

    // The main-row drop-downs of the class and teacher screens: what stands in WorkAllotmentEntry.
    QList<CodeName> allottedClasses() const;
    QList<CodeName> allottedDivisions(int classCode) const;
    QList<CodeName> allottedSubjects(int classCode, int division) const;
    // The entered (not generated) row of the class division and subject; none when only a generated one is.
    std::optional<Combined::MainRow> mainRow(int classCode, int division, int subject) const;
    // The main row of one of this kind's groups (class and teacher groups; a subject group has none).
    std::optional<Combined::MainRow> mainRowOfGroup(int groupNo) const;
    // The group of this kind that `key` is the main row of, or 0.
    int groupOfMainRow(const Combined::Key &key) const;

    QList<Combined::SearchRow> search(const Combined::SearchFilter &filter) const;
    // The row the search showed still stands in that group.
    bool stillInGroup(const Combined::Key &key, int groupNo) const;

    // The refusal of Delete for a group built on `mainKey`, or an empty text. Subject groups may be
    // dissolved with placed periods: the placed rows simply stop being bound together.
    QString deleteRefusal(const Combined::Key &mainKey) const;
    // Unmarks the group's rows and removes its generated rows, in one transaction.
    void dissolve(int groupNo) const;

private:
    QString groupColumn() const;
    QString systemColumn() const; // empty for subject groups, which generate no rows

    QSqlDatabase m_db;
    Combined::Kind m_kind;
};
