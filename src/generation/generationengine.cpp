#include "generationengine.h"
#include "messageservice.h"
#include "phaseonechecks.h"
#include "routines.h"
#include "sql.h"
#include "store.h"
#include "transaction.h"

#include <QSqlQuery>
#include <algorithm>
#include <cmath>

namespace {

const QString ExcessText = QStringLiteral("'Periods Alloted' Is Greater Than 'Periods Per Week' For Some Classes.") + QLatin1Char('\n')
    + QStringLiteral("Do You Want To View The Details ?");

QString lines(std::initializer_list<QString> parts)
{
    return QStringList(parts).join(QLatin1Char('\n'));
}

// Rows with something open, largest first; ties keep list order.
QList<WorkRow> openRowsLargestFirst(const QList<WorkRow> &list, bool byClass)
{
    QList<WorkRow> rows;
    for (const WorkRow &row : list)
        if (row.p2Insert > 0)
            rows.append(row);
    std::stable_sort(rows.begin(), rows.end(), [byClass](const WorkRow &a, const WorkRow &b) {
        if (byClass && (a.classCode != b.classCode || a.division != b.division))
            return std::pair(a.classCode, a.division) < std::pair(b.classCode, b.division);
        return a.p2Insert > b.p2Insert;
    });
    return rows;
}

int sumOpen(const QList<WorkRow> &rows)
{
    int sum = 0;
    for (const WorkRow &r : rows)
        sum += r.p2Insert;
    return sum;
}

}

double StoredTotalAchieved(const QSqlDatabase &db)
{
    const Sql sql(db);
    const int total = sql.scalar(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry")).toInt();
    const int filled = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable")).toInt();
    if (total == 0 || filled == 0)
        return -1;
    return std::round(double(filled) / total * 1000.0) / 10.0;
}

GenerationEngine::GenerationEngine(const QSqlDatabase &db, RandomSource &random) : m_db(db), m_random(random) {}

void GenerationEngine::load()
{
    if (stateStillCurrent()) {
        m_s.loadRunState(m_db);
        return;
    }
    if (m_keepState) {
        // Taken before the reads, so that a change made while they run shows at the next step.
        m_storeVersion = storeVersion();
        m_changeCount = changeCount();
    }
    m_s.load(m_db);
    m_tt.reset(m_s);
    m_underAllotted.reset();
    m_overAllotted.reset();
    m_stateCurrent = m_keepState;
}

void GenerationEngine::keepStateBetweenSteps(bool keep)
{
    m_keepState = keep;
    m_stateCurrent = false;
}

// Commits of other connections since this one last read; its own commits leave it as it is.
qint64 GenerationEngine::storeVersion() const
{
    return Sql(m_db).scalar(QStringLiteral("PRAGMA data_version")).toLongLong();
}

// Rows inserted, updated or deleted through this connection since it opened, by whatever code.
qint64 GenerationEngine::changeCount() const
{
    return Sql(m_db).scalar(QStringLiteral("SELECT total_changes()")).toLongLong();
}

// Memory still holds the store: nothing but the engine's own writes has changed a row since it last knew.
// Asked at the start of a step, and inside a step's transaction before its writes.
bool GenerationEngine::stateStillCurrent() const
{
    return m_keepState && m_stateCurrent && storeVersion() == m_storeVersion && changeCount() == m_changeCount;
}

// After the commit of the engine's own writes: they are in memory too, so memory holds the store again when it
// did before them.
void GenerationEngine::ownWritesDone(bool stateWasCurrent)
{
    m_stateCurrent = stateWasCurrent;
    if (stateWasCurrent)
        m_changeCount = changeCount();
}

double GenerationEngine::totalAchieved() const
{
    const int total = m_s.totalAllotted();
    const int filled = m_tt.rowCount();
    if (total == 0 || filled == 0)
        return -1;
    return std::round(double(filled) / total * 1000.0) / 10.0;
}

RunControl GenerationEngine::controlFor(const GenerationSettings &settings, int maximum)
{
    RunControl control;
    control.maximum = maximum > 0 ? maximum : 1;
    control.cancelRequested = settings.cancelRequested;
    control.uniformRemainderCap = settings.uniformRemainderCap;
    if (settings.progress) {
        control.placed = [this, &settings](int value, int max) {
            GenerationSettings::Progress p;
            p.value = value;
            p.maximum = max;
            p.percent = std::round(double(value) / max * 1000.0) / 10.0;
            p.totalAchieved = totalAchieved();
            settings.progress(p);
        };
    }
    return control;
}

void GenerationEngine::openPhaseOne()
{
    SchoolCalendar calendar;
    calendar.load(m_db);
    const bool current = stateStillCurrent();
    PhaseOneChecks::BuildFreePeriodDetails(m_db, calendar);
    ownWritesDone(current);
    load();
}

bool GenerationEngine::saveDefaultSettings(const QString &answer, PhaseOneChecks::ValidityGrid *grid)
{
    // One transaction for the Save: the class-wise days it puts right stay even when the grid stops it.
    Transaction transaction(m_db);
    const bool current = stateStillCurrent();
    PhaseOneChecks::SyncClasswiseWorkingDays(m_db, m_s.calendar);
    load();
    if (answer.trimmed().toUpper() == QLatin1String("YES")) {
        const AllotmentIndex index(m_s.allotments);
        const PhaseOneChecks::ValidityGrid built = PhaseOneChecks::BuildValidityGrid(m_db, m_s, index);
        if (grid)
            *grid = built;
        if (built.cannotProceed) {
            transaction.commit();
            ownWritesDone(current);
            return false;
        }
    }
    PhaseOneChecks::SaveWithoutDetails(m_db, answer);
    transaction.commit();
    ownWritesDone(current);
    m_s.loadSettings(m_db);
    return true;
}

// The work list reads both settings tables whether or not anything was set in them: they stand, empty, from
// the first build on. The caller holds the transaction.
void GenerationEngine::createSettingsTables()
{
    if (!Store::tableExists(m_db, QStringLiteral("AGP1TeacherDetails")))
        PhaseOneChecks::CreateTeacherDetails(m_db, m_s.calendar);
    if (!Store::tableExists(m_db, QStringLiteral("AGP1SubjectDetails")))
        PhaseOneChecks::CreateSubjectDetails(m_db, m_s.calendar);
}

void GenerationEngine::refreshPhaseOneBalance()
{
    Transaction transaction(m_db);
    const bool current = stateStillCurrent();
    createSettingsTables();
    m_s.loadSettings(m_db);
    const AllotmentIndex index(m_s.allotments);
    WriteWorkList(m_db, BuildWorkList(m_s, index, m_tt.rows()));
    transaction.commit();
    ownWritesDone(current);
}

// The tally and excess checks read the allotments and the masters only, which no step writes: they are asked
// of the store once after each full load.
bool GenerationEngine::allotmentCheck(std::optional<bool> &answer, bool (*check)(const QSqlDatabase &, const SchoolCalendar &))
{
    if (!answer)
        answer = check(m_db, m_s.calendar);
    return *answer;
}

bool GenerationEngine::tallyAndExcessAllow(MessageService &messages, const QString &tallyText, GenerationResult *result)
{
    if (allotmentCheck(m_underAllotted, ClassesUnderAllotted) && !messages.question(tallyText))
        return false;
    if (allotmentCheck(m_overAllotted, ClassesOverAllotted)) {
        result->openBlankPeriods = messages.question(ExcessText);
        return false;
    }
    return true;
}

GenerationResult GenerationEngine::finish(GenerationResult result, const RunControl &control, int placedBefore)
{
    result.outcome = control.cancelled ? GenerationResult::Outcome::Cancelled : GenerationResult::Outcome::Completed;
    result.placedRows = m_tt.addedCount() - placedBefore;
    result.progressValue = control.value;
    result.progressMaximum = control.maximum;
    result.unitsGivenUp = control.unitsGivenUp;
    return result;
}

GenerationResult GenerationEngine::processPhaseOne(MessageService &messages, const GenerationSettings &settings)
{
    load();
    GenerationResult result;
    if (!m_s.settingsSaved || m_s.piStatus == QLatin1String("Y"))
        return result;
    const QString tally = lines({QStringLiteral("Working Periods In Few Classes Are Not Properly Filled"),
                                 QStringLiteral("You Can See These Details In ' Work Allotment Details Report' Or ' Work Allotment Non Tallied Classes Report'"),
                                 QStringLiteral("Without Filling These Periods You Can Proceed With 'Auto Generation Phase I'"),
                                 QStringLiteral("Do You Want To Proceed ?")});
    if (!tallyAndExcessAllow(messages, tally, &result))
        return result;
    if (m_s.allotments.isEmpty()) {
        messages.information(QStringLiteral("No Periods Exists For Auto Generation Phase I"));
        result.nothingToPlace = true;
        return result;
    }
    const QStringList failures = PhaseOneChecks::UniformConditionFailures(m_s);
    if (!failures.isEmpty()) {
        messages.information(PhaseOneChecks::UniformConditionMessage(failures));
        return result;
    }
    // The list that the run works from is the balance before it; it reaches AutoGenPhase1 only as the balance
    // after the run, written in the one transaction of the press.
    const AllotmentIndex index(m_s.allotments);
    const WorkList list = BuildWorkList(m_s, index, m_tt.rows());
    RunControl control = controlFor(settings, list.balance());
    const int before = m_tt.addedCount();
    // The uniform periods first: they are the most constrained request; then the groups by priority.
    Placer placer(m_s, m_tt, m_random, control);
    placer.insertUniformPeriods(list);
    placer.insertUniformRemainder(list);
    for (int group = 2; group <= 4; ++group)
        placer.insertGroupPeriods(list, group);

    const WorkList balance = BuildWorkList(m_s, index, m_tt.rows());
    Transaction transaction(m_db);
    const bool current = stateStillCurrent();
    m_stateCurrent = false; // until the commit: a failed write leaves m_tt ahead of the store
    createSettingsTables();
    m_tt.write(m_db);
    Sql(m_db).run(QStringLiteral("UPDATE TTCode SET PIStatus = 'Y'"));
    WriteWorkList(m_db, balance);
    transaction.commit();
    m_s.piStatus = QStringLiteral("Y");
    m_s.timetable = m_tt.rows();
    ownWritesDone(current);

    result = finish(result, control, before);
    result.openPeriods = balance.balance();
    if (!control.cancelled)
        messages.information(QStringLiteral("Auto Generation Phase I Completed"));
    const int pct = int(double(control.value) / control.maximum * 100);
    if (pct < 100 && pct > 0) {
        messages.information(QStringLiteral("Few Periods Are Not Filled. It Can Be Done Manually In 'Manual Periods Entry' Or ") + QLatin1Char('\n')
                             + QStringLiteral("Delete 'Auto Generation Phase I' Generated Records In Utility And Do The Process Again"));
        result.openPending = true;
        result.pendingView = PendingView::PhaseOne;
    }
    return result;
}

void GenerationEngine::openPhaseTwo()
{
    Transaction transaction(m_db); // what the opening writes goes in at one commit
    load();
    const bool current = stateStillCurrent();
    if (!m_s.settingsSaved) {
        PhaseOneChecks::SyncClasswiseWorkingDays(m_db, m_s.calendar, false);
        PhaseOneChecks::SaveWithoutDetails(m_db, QStringLiteral("NO"));
        load();
    }
    refreshPhaseOneBalance();
    PhaseOneChecks::BuildTeacherFreePeriods(m_db, m_s.calendar);
    transaction.commit();
    ownWritesDone(current);
    m_s.loadFreeTypes(m_db);
}

bool GenerationEngine::phaseTwoProcessAllowed() const
{
    return !Sql(m_db).exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE Manual = '2'"));
}

void GenerationEngine::writePhaseTwoStep(const QList<WorkRow> &list, bool writeTimetable)
{
    Transaction transaction(m_db);
    const bool current = stateStillCurrent();
    m_stateCurrent = false; // until the commit: a failed write leaves m_tt ahead of the store
    if (writeTimetable)
        m_tt.write(m_db);
    WritePhaseTwoList(m_db, list);
    transaction.commit();
    if (writeTimetable)
        m_s.timetable = m_tt.rows();
    ownWritesDone(current);
}

namespace {
// Phase II and Fix Balance Periods ask the same question about classes whose allotments do not fill the week.
QString phaseTwoTallyQuestion()
{
    return lines({QStringLiteral("Working Periods In Few Classes Are Not Properly Filled"),
                  QStringLiteral("You Can See These Details In 'WorkAllotment Details Report'"),
                  QStringLiteral("Without Filling These Periods You Can Proceed With 'Auto Generation Phase II'"),
                  QStringLiteral("Do You Want To Proceed ?")});
}
}

GenerationResult GenerationEngine::processPhaseTwo(MessageService &messages, const GenerationSettings &settings)
{
    load();
    GenerationResult result;
    if (m_s.piStatus != QLatin1String("Y")) {
        messages.information(QStringLiteral("Without Completing AutoGeneration Phase I Process, You Cannot Proceed With AutoGeneration Phase II"));
        return result;
    }
    if (!messages.question(QStringLiteral("Do You Want To Start AutoGeneration Phase-II ?")))
        return result;
    if (!pending(PendingView::PhaseOne).rows.isEmpty()) {
        messages.information(QStringLiteral("Without Completing 100% In AutoGeneration Phase I, You Cannot Proceed With AutoGeneration Phase II"));
        result.openPending = messages.question(QStringLiteral("Do You Want To View AutoGeneration Phase I Balance Periods ?"));
        result.pendingView = PendingView::PhaseOne;
        return result;
    }
    if (!tallyAndExcessAllow(messages, phaseTwoTallyQuestion(), &result))
        return result;
    const QList<WorkRow> list = BuildPhaseTwoList(m_s, m_tt);
    if (PhaseTwoBalance(list) <= 0) {
        writePhaseTwoStep(list, false);
        messages.information(QStringLiteral("No Periods Exists For AutoGeneration Phase II"));
        result.nothingToPlace = true;
        return result;
    }
    RunControl control = controlFor(settings, sumOpen(list));
    const int before = m_tt.addedCount();
    // Class by class, the largest allotment first, so that the hard rows meet an emptier week.
    Placer placer(m_s, m_tt, m_random, control);
    for (const WorkRow &row : openRowsLargestFirst(list, true))
        placer.placePhaseTwoRow(row);
    const QList<WorkRow> balance = BuildPhaseTwoList(m_s, m_tt);
    writePhaseTwoStep(balance, true);
    result = finish(result, control, before);
    result.openPeriods = PhaseTwoBalance(balance);
    if (!control.cancelled)
        messages.information(QStringLiteral("Auto Generation Phase II Completed"));
    if (result.openPeriods > 0) {
        messages.information(lines({QStringLiteral("Few Periods Are Not Filled. It Can Be Done Manually In 'Manual Periods Entry' Or "),
                                    QStringLiteral("Delete Auto Generation Phase II Records In Utility And Do The Process Again Or"),
                                    QStringLiteral("Without Deleting Do The Process Using 'Fix Balance Periods'")}));
        result.openPending = true;
        result.pendingView = PendingView::PhaseTwo;
    }
    return result;
}

GenerationResult GenerationEngine::fixBalancePeriods(MessageService &messages, const GenerationSettings &settings)
{
    load();
    GenerationResult result;
    if (phaseTwoProcessAllowed()) {
        messages.information(QStringLiteral("Without Performing Auto Generation Phase II Balance Periods Cannot Be Fixed"));
        return result;
    }
    if (!tallyAndExcessAllow(messages, phaseTwoTallyQuestion(), &result))
        return result;
    QList<WorkRow> list = BuildPhaseTwoList(m_s, m_tt);
    if (PhaseTwoBalance(list) < 1) {
        writePhaseTwoStep(list, false);
        messages.information(QStringLiteral("No Period Exists For Fixing"));
        result.nothingToPlace = true;
        return result;
    }
    if (!messages.question(lines({QStringLiteral("These Periods Can Be Fixed In 'Manual TimeTable Entry' Easily And Quickly"),
                                  QStringLiteral("Do You Want 'Zarlo-TimeTable' To Fix These Periods ?")}))) {
        writePhaseTwoStep(list, false);
        return result;
    }
    QList<QPair<int, int>> classes;
    for (const WorkRow &row : std::as_const(list))
        if (row.p2Insert > 0)
            classes.append({row.classCode, row.division});
    std::sort(classes.begin(), classes.end());
    classes.erase(std::unique(classes.begin(), classes.end()), classes.end());

    RunControl control = controlFor(settings, 1);
    const int before = m_tt.addedCount();
    Placer placer(m_s, m_tt, m_random, control);
    placer.resetP(); // one P across all the classes
    for (const auto &[classCode, division] : std::as_const(classes)) {
        if (control.stop())
            break;
        // The class's Phase II rows are thrown away and its rows compete again, largest first.
        m_tt.removePhaseTwoRows(classCode, division);
        const QList<WorkRow> rows = openRowsLargestFirst(BuildPhaseTwoRowsOf(m_s, m_tt, classCode, division), false);
        control.value = 0;
        control.maximum = qMax(1, sumOpen(rows));
        for (const WorkRow &row : std::as_const(rows))
            placer.placePhaseTwoRow(row);
    }
    list = BuildPhaseTwoList(m_s, m_tt);
    control.value = 0;
    control.maximum = qMax(1, PhaseTwoBalance(list));
    placer.fillFirstFreeSlots(list);
    list = BuildPhaseTwoList(m_s, m_tt);
    writePhaseTwoStep(list, true);
    result = finish(result, control, before);
    result.openPeriods = PhaseTwoBalance(list);
    if (!control.cancelled)
        messages.information(QStringLiteral("Fixing Of Balance Period Process Done"));
    if (result.openPeriods > 0) {
        messages.information(lines({QStringLiteral("Few Periods Are Not Filled. It Can Be Done Manually In 'Manual Periods Entry' Or "),
                                    QStringLiteral("Again Press 'Fix Balance Periods' Button")}));
        result.openPending = true;
        result.pendingView = PendingView::PhaseTwo;
    }
    return result;
}

void GenerationEngine::refreshPhaseTwoBalance()
{
    load();
    writePhaseTwoStep(BuildPhaseTwoList(m_s, m_tt), false);
}

PendingList GenerationEngine::pending(PendingView view)
{
    // Nulls count as 0 in the open column; a row whose sum is null or 0 is not pending. Ties keep table order.
    const bool one = view == PendingView::PhaseOne;
    const Sql sql(m_db);
    const QString statement = QStringLiteral("Select %1,ClassName,DivisionName,TeacherName,SubjectName,a.ClassCode,"
                                             "a.DivisionCode,a.TeacherCode,a.SubjectCode from %2 a")
        + QStringLiteral(",ClassDivisionMaster b,ClassDivisionDetails c,TeacherMaster d,SubjectMaster e")
        + QStringLiteral(" where a.ClassCode=b.ClassCode and a.DivisionCode=c.DivisionCode and ")
        + (one ? QStringLiteral("a.TeacherCode=d.TeacherCode and a.SubjectCode=e.SubjectCode and a.P1Insert+a.P2Insert>0 ")
               : QStringLiteral("a.TeacherCode=d.TeacherCode and a.SubjectCode=e.SubjectCode and a.P2Insert>0 "))
        + QStringLiteral(" and a.ClassCode=c.ClassCode order by b.ClassCode, a.rowid");
    QSqlQuery q = sql.run(statement.arg(one ? QStringLiteral("IFNULL(a.P1Insert, 0) + IFNULL(a.P2Insert, 0)")
                                            : QStringLiteral("IFNULL(a.P2Insert, 0)"),
                                        one ? QStringLiteral("AutoGenPhase1") : QStringLiteral("AutoGenPhase2")));
    PendingList list;
    while (q.next()) {
        list.rows.append({q.value(1).toString(), q.value(2).toString(), q.value(3).toString(), q.value(4).toString(),
                          q.value(0).toInt(), q.value(5).toInt(), q.value(6).toInt(), q.value(7).toInt(), q.value(8).toInt()});
        list.total += q.value(0).toInt();
    }
    q = QSqlQuery();
    list.totalPeriods = sql.scalar(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry")).toInt();
    list.filledPeriods = sql.scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable")).toInt();
    return list;
}
