#pragma once
#include "placementrules.h"
#include "schoolsnapshot.h"

#include <QList>
#include <QString>
#include <vector>

// A timetable as the completion and the rule check see it: every allotment (a lesson) with its combined
// group, every row with the meeting it belongs to, and who occupies each slot. A meeting is the rows of one
// combined group (or one lone allotment) in one slot; it moves whole or not at all.
class CompletionModel
{
public:
    struct Lesson
    {
        int allotment = 0; // index into the snapshot's allotments
        int teacher = 0;   // index into teachers()
        int klass = 0;     // index into classes()
        int periods = 0;   // NoOfSectionPeriods
        int days = 0;      // the class's working days
        bool shortLastDay = false;
        PlacementRules::Spread spread;
        quint32 noMask = 0; // periods (bit p) kept free by the teacher's or the subject's "No" setting
        int group = 0;      // combined group: lessons that stand together share it
        int freeType = 0;
        int uniformPeriod = 0; // the class teacher's own allotment: the uniform period, else 0
    };
    struct Row
    {
        TimetableRow data;
        qint64 rowid = 0; // 0 for a row not yet stored
        int lesson = NoLesson;
        int day = 0;
        int period = 0;
        int meeting = NoMeeting;
        bool alive = true;
    };
    struct Meeting
    {
        QList<int> rows;
        int day = 0; // 0 while open
        int period = 0;
        bool fixed = false;    // placed by hand, a uniform period, or a row of no allotment
        int onlyPeriod = 0;    // an open uniform period goes to this period only
        int originalDay = 0;   // where the meeting stood before the completion (0: it was open)
        int originalPeriod = 0;
    };

    CompletionModel(const SchoolSnapshot &snapshot, const QList<TimetableRow> &rows, const QList<qint64> &rowids);

    const SchoolSnapshot &snapshot() const { return m_s; }
    const SchoolCalendar &calendar() const { return m_s.calendar; }
    int slotsPerDay() const { return m_periods; }
    int slotOf(int day, int period) const { return (day - 1) * m_periods + (period - 1); }
    int periodsOn(int day) const { return m_s.calendar.periodsOn(day); }

    const QList<Lesson> &lessons() const { return m_lessons; }
    int lessonOf(quint64 key) const { return m_lessonOfKey.value(key, NoLesson); }
    QList<Row> &rows() { return m_rows; }
    const QList<Row> &rows() const { return m_rows; }
    QList<Meeting> &meetings() { return m_meetings; }
    const QList<Meeting> &meetings() const { return m_meetings; }
    int teacherCount() const { return int(m_teacherCodes.size()); }
    int classCount() const { return int(m_classCodes.size()); }
    int teacherCode(int index) const { return m_teacherCodes.at(index); }
    QPair<int, int> classCode(int index) const { return m_classCodes.at(index); }
    // "VI A", and the teacher's name, as the texts about them show them.
    QString className(int klass) const;
    QString teacherName(int teacher) const;

    // Generator rows are the ones the rules bind: Manual "1" or "2", not a uniform period.
    bool isUniform(const Row &row) const;
    bool isGeneratorRow(const Row &row) const;

    // A new open meeting of the lessons given, each getting a row with `manual`.
    int addOpenMeeting(const QList<int> &lessons, const QString &manual, int onlyPeriod);

    // What an occupancy cell holds besides a meeting: nobody, or more than one meeting (a clash left by hand),
    // which nothing may move into.
    static constexpr int Free = -1;
    static constexpr int Clash = -2;
    // A row that matches no allotment, and a row not in a meeting.
    static constexpr int NoLesson = -1;
    static constexpr int NoMeeting = -1;

    // Occupancy: the meeting holding a class or teacher at a slot, Free or Clash.
    int classAt(int klass, int slot) const { return m_classOcc[size_t(klass) * m_slots + slot]; }
    int teacherAt(int teacher, int slot) const { return m_teacherOcc[size_t(teacher) * m_slots + slot]; }
    // Every meeting holding the class or teacher at the slot: none, one, or the meetings of a clash.
    QList<int> classHolders(int klass, int slot) const { return holders(m_classOcc, size_t(klass) * m_slots + slot, false); }
    QList<int> teacherHolders(int teacher, int slot) const
    {
        return holders(m_teacherOcc, size_t(teacher) * m_slots + slot, true);
    }
    void place(int meeting, int day, int period);
    void unplace(int meeting);
    // The lesson's placed rows.
    const QList<int> &lessonRows(int lesson) const { return m_lessonRows[lesson]; }

    // The placement rules over this week, stated once: the completion's search, the rule check and the
    // proofs that a week cannot be completed all ask these.
    //
    // What keeps a row of `lesson` out of (day, period) whatever else the week holds.
    enum SlotBar : unsigned {
        DayNotWorked = 1, // the class does not work that day
        OutsideWeek = 2,  // the day has no such period
        SetFree = 4,      // a "No" setting of the teacher or the subject; binds Phase I rows only
        NeverFree = 8,    // no placement there keeps the teacher's free-period type
    };
    unsigned slotBars(int lesson, int day, int period, bool phaseOneRow) const;
    bool slotOpen(int lesson, int day, int period, bool phaseOneRow) const { return slotBars(lesson, day, period, phaseOneRow) == 0; }
    // Does the teacher of `lesson` keep the free period of the type with a row at (day, period), the
    // `leaving` meetings gone? The period itself counts as free before the placement.
    bool keepsFreePeriod(int lesson, int day, int period, const QList<int> &leaving) const;
    // May `lesson` hold its rows of `day`, without those of the `leaving` meetings and with one more at
    // `adding` (0: none)?
    bool spreadKept(int lesson, int day, const QList<int> &leaving, int adding) const;
    // May the meeting (open, or among `leaving`) stand at (day, period) once the `leaving` meetings have
    // left their slots? Every rule above for each of its rows, and no day that a leaving meeting leaves is
    // left with an allotment crowded on it that was not crowded before: taking one of three periods away
    // can leave two in one session.
    bool mayStand(int meeting, int day, int period, const QList<int> &leaving) const;

private:
    int ensureTeacher(int code);
    int ensureClass(int classCode, int division);
    void occupy(int meeting, bool on);
    void occupyCell(std::vector<int> &cells, size_t cell, bool teacher, int meeting, bool on);
    QList<int> holders(const std::vector<int> &cells, size_t cell, bool teacher) const;

    const SchoolSnapshot &m_s;
    int m_periods = 1;
    int m_slots = 1;
    QList<Lesson> m_lessons;
    QHash<quint64, int> m_lessonOfKey;
    QList<Row> m_rows;
    QList<Meeting> m_meetings;
    QList<int> m_teacherCodes;
    QList<QPair<int, int>> m_classCodes;
    QHash<int, int> m_teacherIndex;
    QHash<quint32, int> m_classIndex;
    QHash<int, QString> m_teacherNames; // TeacherCode -> TeacherName
    std::vector<int> m_classOcc;
    std::vector<int> m_teacherOcc;
    QHash<quint64, QList<int>> m_clashes; // the meetings of a Clash cell: cell index, bit 63 for a teacher's
    std::vector<QList<int>> m_lessonRows; // live placed rows of each lesson
};
