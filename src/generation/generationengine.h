#pragma once
#include "placer.h"
#include "random.h"
#include "schoolsnapshot.h"
#include "timetablestate.h"
#include "phaseonechecks.h"
#include "worklist.h"

#include <QSqlDatabase>
#include <QString>
#include <functional>
#include <optional>

class MessageService;

// Which balance the pending window lists.
enum class PendingView { PhaseOne, PhaseTwo };

// What a screen hands to a run: where progress goes, how Cancel is asked, and the cap on the one routine
// without an attempt limit (0 on the screens: only Cancel ends it).
struct GenerationSettings
{
    struct Progress
    {
        int value = 0;
        int maximum = 1;
        double percent = 0;       // value / maximum x 100
        double totalAchieved = 0; // TimeTable rows / allotted periods x 100
    };
    std::function<void(const Progress &)> progress;
    std::function<bool()> cancelRequested;
    qint64 uniformRemainderCap = 0;
};

// How a press of Process or Fix Balance Periods ended and what the screen should do next.
struct GenerationResult
{
    enum class Outcome {
        Completed, // the routines ran to their end
        Cancelled, // Cancel stopped them; what was placed stays
        Stopped,   // a check or an answer ended the press before any placement
    };
    Outcome outcome = Outcome::Stopped;
    int placedRows = 0;    // TimeTable rows written by this press
    int progressValue = 0; // the progress bar at the end of the placement
    int progressMaximum = 1;
    int openPeriods = 0;   // the balance after the press
    bool openPending = false;  // the screen opens the pending window with `pendingView`
    PendingView pendingView = PendingView::PhaseOne;
    bool openBlankPeriods = false; // the excess check asked for the over-allotted classes
    bool nothingToPlace = false;   // the press found no period to place: its button goes off
    QList<int> unitsGivenUp;       // work-list IDs abandoned at the uniform-remainder cap
};

// One pending line: an allotment with periods still open.
struct PendingRow
{
    QString className, divisionName, teacherName, subjectName;
    int open = 0;
    int classCode = 0, division = 0, teacher = 0, subject = 0; // its AllotmentKey
};
struct PendingList
{
    QList<PendingRow> rows;
    int total = 0;          // sum of the open column
    int totalPeriods = 0;   // allotted periods
    int filledPeriods = 0;  // TimeTable rows
};

// "Total Achieved" from the store: TimeTable rows over allotted periods x 100, one decimal; -1 when either is 0.
double StoredTotalAchieved(const QSqlDatabase &db);

// The automatic generation of both phases. It reads the store once per press (load), decides every placement
// in memory with the rules and draws of the generator, and writes TimeTable, the work lists and the status in
// one transaction per press. Questions go through the MessageService given; the random source is the run's one.
class GenerationEngine
{
public:
    GenerationEngine(const QSqlDatabase &db, RandomSource &random);

    void load();
    const SchoolSnapshot &snapshot() const { return m_s; }

    // The Phase I screen coming forward: FreePeriodDetails is rebuilt.
    void openPhaseOne();
    // New, the uniform answer and Save with both settings grids empty. A "YES" builds the check grid first;
    // false (nothing saved) when it shows a colour.
    bool saveDefaultSettings(const QString &answer, PhaseOneChecks::ValidityGrid *grid = nullptr);
    GenerationResult processPhaseOne(MessageService &messages, const GenerationSettings &settings);
    // Phase I pending periods: the work list rebuilt as a balance.
    void refreshPhaseOneBalance();

    // The Phase II screen opening: settings stored as "NO" when none exist, the Phase I balance rebuilt,
    // FreePeriodDetails rebuilt with its teacher marks.
    void openPhaseTwo();
    bool phaseTwoProcessAllowed() const; // no Phase II row yet
    GenerationResult processPhaseTwo(MessageService &messages, const GenerationSettings &settings);
    GenerationResult fixBalancePeriods(MessageService &messages, const GenerationSettings &settings);
    // Phase II balance periods: the Phase II list rebuilt from the store and written, for the pending window.
    void refreshPhaseTwoBalance();

    // A step then goes on from the school and the TimeTable that the step before left in memory, and reads
    // again only the small tables that the steps rewrite themselves; a row changed in between by anything but
    // the engine, through this connection or another, makes it read everything. Off unless asked (ttcli).
    void keepStateBetweenSteps(bool keep);

    PendingList pending(PendingView view);
    // TimeTable rows over allotted periods x 100; -1 when either is 0 (the label keeps its text).
    double totalAchieved() const;

private:
    RunControl controlFor(const GenerationSettings &settings, int maximum);
    bool tallyAndExcessAllow(MessageService &messages, const QString &tallyText, GenerationResult *result);
    void createSettingsTables();
    void writePhaseTwoStep(const QList<WorkRow> &list, bool writeTimetable);
    GenerationResult finish(GenerationResult result, const RunControl &control, int placedBefore);
    qint64 storeVersion() const;
    qint64 changeCount() const;
    bool stateStillCurrent() const;
    void ownWritesDone(bool stateWasCurrent);
    bool allotmentCheck(std::optional<bool> &answer, bool (*check)(const QSqlDatabase &, const SchoolCalendar &));

    QSqlDatabase m_db;
    RandomSource &m_random;
    SchoolSnapshot m_s;
    TimetableState m_tt;
    bool m_keepState = false;
    bool m_stateCurrent = false; // m_s and m_tt held what load() would read (see keepStateBetweenSteps)
    qint64 m_storeVersion = -1;  // PRAGMA data_version at the last full load
    qint64 m_changeCount = -1;   // total_changes() when memory last matched the store
    std::optional<bool> m_underAllotted, m_overAllotted; // the tally and excess checks since the last full load
};
