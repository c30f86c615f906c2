#include "pendingreasons.h"
#include "feasibility.h"

namespace {

QString periodsFree(int n)
{
    return n == 1 ? QStringLiteral("1 Period Is Free") : QStringLiteral("%1 Periods Are Free").arg(n);
}

QString freePeriods(int n)
{
    return n == 1 ? QStringLiteral("1 Free Period") : QStringLiteral("%1 Free Periods").arg(n);
}

QString ruleText(PendingRule rule, int freeType)
{
    switch (rule) {
    case PendingRule::ClassDays:
        return QStringLiteral("On Days The Class Does Not Work");
    case PendingRule::TeacherFreeType:
        if (freeType == 1)
            return QStringLiteral("The Teacher Would Have No Free Period Left That Day");
        if (freeType == 2)
            return QStringLiteral("The Teacher Would Have No Free Period Left In That Session");
        if (freeType == 4)
            return QStringLiteral("The Teacher's Free Period Type Refuses Every Period (No Working Periods Entered)");
        return QStringLiteral("The Teacher's Free Period Type Refuses Every Period");
    case PendingRule::TeacherSetting:
        return QStringLiteral("Marked 'No' For The Teacher In The Phase I Settings");
    case PendingRule::SubjectSetting:
        return QStringLiteral("Marked 'No' For The Subject In The Phase I Settings");
    case PendingRule::OneADay:
        return QStringLiteral("Its Periods For That Day Are Already Placed");
    case PendingRule::Session:
        return QStringLiteral("Its Other Period Of That Day Is In The Same Session");
    }
    return {};
}

}

QStringList PendingReason::lines() const
{
    if (!allotted)
        return {QStringLiteral("This Allotment Is No Longer In The Work Allotment")};
    if (open == 0)
        return {QStringLiteral("All Its Periods Are Placed Now")};
    QStringList text;
    if (commonFree == 0) {
        text << QStringLiteral("No Period Is Free For Both The Class And The Teacher");
        if (classFree == 0)
            text << QStringLiteral("The Class Has No Free Period Left In The Week");
        else if (teacherFree == 0)
            text << QStringLiteral("The Teacher Has No Free Period Left In The Week");
        else
            text << QStringLiteral("The Class Has %1 And The Teacher %2, Never At The Same Time")
                        .arg(freePeriods(classFree), QString::number(teacherFree));
    } else {
        text << periodsFree(commonFree) + QStringLiteral(" For Both The Class And The Teacher");
        for (auto it = refused.cbegin(); it != refused.cend(); ++it)
            if (it.value() > 0)
                text << ruleText(it.key(), freeType) + QStringLiteral(" : ") + QString::number(it.value());
        if (passing > 0)
            text << QStringLiteral("Passing Every Rule, Missed By The Random Trials : ") + QString::number(passing);
    }
    // The last pass of Fix Balance Periods tests nothing but the two free slots and the class's days.
    if (phaseTwo && fixable > 0)
        text << QStringLiteral("'Fix Balance Periods' Can Place It In The Periods Free For Both");
    if (combined)
        text << QStringLiteral("In Phase I It Moves With Its Combined Group: Every Member Must Be Free In The Same Period");
    text << proofs;
    return text;
}

const CompletionModel &PendingReasons::model()
{
    if (!m_model)
        m_model = std::make_unique<CompletionModel>(m_s, m_s.timetable, QList<qint64>());
    return *m_model;
}

PendingReasons::PendingReasons(const QSqlDatabase &db)
{
    m_s.load(db);
    m_tt.reset(m_s);
}

// The count the phase set out to place: the allotment less what stood before the phase ran. It sets the
// spreading flags as the run set them.
int PendingReasons::countBeforePhase(quint64 key, PendingView view) const
{
    int periods = 0;
    for (const Allotment &a : m_s.allotments)
        if (a.key() == key)
            periods += a.periods;
    for (const TimetableRow &row : m_s.timetable) {
        if (allotmentKey(row.teacher, row.classCode, row.division, row.subject) != key)
            continue;
        const bool ownPhase = row.manual == QLatin1String("2")
            || (view == PendingView::PhaseOne && row.manual == QLatin1String("1"));
        if (!ownPhase)
            --periods;
    }
    return periods;
}

PendingReason PendingReasons::explain(const PendingRow &row, PendingView view)
{
    PendingReason reason;
    reason.phaseTwo = view == PendingView::PhaseTwo;
    const quint64 key = allotmentKey(row.teacher, row.classCode, row.division, row.subject);
    const Allotment *allotment = nullptr;
    int periods = 0;
    for (const Allotment &a : std::as_const(m_s.allotments)) {
        if (a.key() != key)
            continue;
        if (!allotment)
            allotment = &a;
        periods += a.periods;
    }
    if (!allotment) {
        reason.allotted = false;
        return reason;
    }
    reason.open = qMax(0, periods - m_tt.placedCount(key));
    if (reason.open == 0)
        return reason;
    reason.freeType = m_s.freeTypeOf(row.teacher);
    reason.proofs = Feasibility::ReasonsFor(model(), model().lessonOf(key), view == PendingView::PhaseOne);
    reason.combined = !reason.phaseTwo && (allotment->cp > 0 || allotment->cc > 0 || allotment->ct > 0);
    bool daily, twice;
    m_placer.flags(countBeforePhase(key, view), &daily, &twice);

    const SchoolCalendar &cal = m_s.calendar;
    if (cal.noOfWorkingDays < 1)
        return reason;
    // In a seven-day week only the last day sets P and the other days keep the P before them: the walk
    // starts from the P of the last day, as a run does once it has drawn that day.
    m_placer.periodsOfDay(weekDay(cal, cal.noOfWorkingDays - 1));
    for (int i = 0; i < cal.noOfWorkingDays; ++i) {
        const int day = weekDay(cal, i);
        m_placer.periodsOfDay(day);
        for (int period = 1; period <= m_placer.p(); ++period)
            countSlot(row, *allotment, view, day, period, daily, twice, &reason);
    }
    return reason;
}

void PendingReasons::countSlot(const PendingRow &row, const Allotment &allotment, PendingView view, int day,
                               int period, bool daily, bool twice, PendingReason *reason) const
{
    const bool classFree = m_tt.classFree(row.classCode, row.division, day, period);
    const bool teacherFree = m_tt.teacherFree(row.teacher, day, period);
    reason->classFree += classFree;
    reason->teacherFree += teacherFree;
    if (!classFree || !teacherFree)
        return;
    ++reason->commonFree;
    const auto refuse = [reason](PendingRule rule) { ++reason->refused[rule]; };
    if (!m_placer.dayWorks(row.classCode, day))
        return refuse(PendingRule::ClassDays);
    ++reason->fixable;
    if (!m_placer.keepsFreePeriod(row.teacher, day, period))
        return refuse(PendingRule::TeacherFreeType);
    // Phase II rows do not look at the "No" cells: the set teachers' and subjects' rows were Phase I's.
    if (view == PendingView::PhaseOne) {
        if (m_s.teacherNoPeriods.value(row.teacher).contains(period))
            return refuse(PendingRule::TeacherSetting);
        if (m_s.subjectNoPeriods.value(row.subject).contains(period))
            return refuse(PendingRule::SubjectSetting);
    }
    // The rules of the last, random pass: a second period on a day only for an allotment that fills every
    // day, and then in the other session; a third only when it fills every day twice.
    const int onDay = m_tt.placedOnDay(allotment.key(), day);
    if (onDay == 1 && (daily || twice)) {
        const bool heldInMorning = m_s.calendar.isMorning(m_tt.onlyPeriodOnDay(allotment.key(), day));
        if (heldInMorning == m_s.calendar.isMorning(period))
            return refuse(PendingRule::Session);
    } else if (onDay >= 1 && !(daily && twice)) {
        return refuse(PendingRule::OneADay);
    }
    ++reason->passing;
}
