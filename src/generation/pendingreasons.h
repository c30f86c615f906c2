#pragma once
#include "completionmodel.h"
#include "generationengine.h"
#include "placer.h"
#include "random.h"
#include "schoolsnapshot.h"
#include "timetablestate.h"

#include <QMap>
#include <QSqlDatabase>
#include <QStringList>
#include <memory>

// The placement rules that can refuse a period where the class division and the teacher are both free, in
// the order a refused period is charged to them.
enum class PendingRule {
    ClassDays,       // the class does not work on that day
    TeacherFreeType, // the teacher's free-period type wants a free period kept
    TeacherSetting,  // a "No" cell of the teacher in the Phase I settings
    SubjectSetting,  // a "No" cell of the subject in the Phase I settings
    OneADay,         // the allotment already has as many periods that day as its count allows
    Session,         // the second period of a day would fall in the session of the first
};

// Why one allotment still has open periods, as the week stands now.
struct PendingReason
{
    bool allotted = true; // the allotment still stands in WorkAllotmentEntry
    bool phaseTwo = false; // explained for the Phase II list
    int open = 0;         // periods of the allotment not in TimeTable now
    int classFree = 0;    // free periods of the class division in the school's week
    int teacherFree = 0;  // free periods of the teacher in the school's week
    int commonFree = 0;   // periods free for both
    // The common free periods each rule refused; a period counts once, under the first rule that refuses it.
    QMap<PendingRule, int> refused;
    int passing = 0;      // common free periods that no rule refuses
    int fixable = 0;      // common free periods on the class's working days (Fix Balance Periods takes these)
    int freeType = 0;
    bool combined = false; // a combined group's member, placed with the whole group in Phase I
    QStringList proofs;    // counts that show no timetable can hold all its periods

    // The reason in the program's words, one statement a line.
    QStringList lines() const;
    QString text() const { return lines().join(QLatin1Char('\n')); }
};

// Explains pending allotments from the store as it stands: the school and its TimeTable are read once, and
// each explanation walks the week with the generator's own rules. Reads only; writes nothing.
class PendingReasons
{
public:
    explicit PendingReasons(const QSqlDatabase &db);
    PendingReasons(const PendingReasons &) = delete;
    PendingReasons &operator=(const PendingReasons &) = delete;

    // `view` chooses the rules: the Phase I list is held to the teacher and subject settings, the Phase II
    // list is not.
    PendingReason explain(const PendingRow &row, PendingView view);

private:
    void countSlot(const PendingRow &row, const Allotment &allotment, PendingView view, int day, int period,
                   bool daily, bool twice, PendingReason *reason) const;
    int countBeforePhase(quint64 key, PendingView view) const;
    const CompletionModel &model();

    SchoolSnapshot m_s;
    TimetableState m_tt;
    ListRandom m_random{{0.0}}; // the rules draw nothing; the placer needs a source
    RunControl m_control;
    Placer m_placer{m_s, m_tt, m_random, m_control};
    std::unique_ptr<CompletionModel> m_model; // made on the first explanation that needs it
};
