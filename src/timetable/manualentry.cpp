#include "manualentry.h"
#include "messageservice.h"
#include "sql.h"

#include <QSqlQuery>

using namespace Placement;

namespace {
// One line for each kind of group found, in the order subject, class, teacher.
QString kindLines(const GroupKinds &kinds, const QString &subject, const QString &classes, const QString &teachers)
{
    QString text;
    if (kinds.combinedSubject)
        text += subject + QLatin1Char('\n');
    if (kinds.combinedClass)
        text += classes + QLatin1Char('\n');
    if (kinds.combinedTeacher)
        text += teachers + QLatin1Char('\n');
    return text;
}
}

bool ManualEntry::beyondLastDay(const PeriodSlot &slot)
{
    if (m_calendar.periodsPerDay == m_calendar.periodsOnLastWorkingDay)
        return false;
    if (slot.day != WeekDays(m_calendar).value(m_calendar.noOfWorkingDays - 1) ||
        slot.period <= m_calendar.periodsOnLastWorkingDay)
        return false;
    m_messages.information(m_calendar.lastDayRefusal());
    return true;
}

// The class division has a period in the slot: ask before it goes, naming the groups it would take along.
bool ManualEntry::confirmModify(int classCode, int division, const PeriodSlot &slot)
{
    const int current = MainSubjectAt(m_db, classCode, division, slot);
    const QList<GroupMember> members = GroupMembersOf(m_db, classCode, division, current,
                                                      GroupNumbersOf(m_db, classCode, division, current));
    const GroupKinds kinds = OccupiedGroupKinds(m_db, members, slot);

    QSqlQuery names = Sql(m_db).run(
        QStringLiteral("SELECT c.ClassName, d.DivisionName, (SELECT SubjectShortName FROM SubjectMaster "
                       "WHERE SubjectCode = ?) FROM ClassDivisionMaster c JOIN ClassDivisionDetails d "
                       "ON d.ClassCode = c.ClassCode WHERE c.ClassCode = ? AND d.DivisionCode = ?"),
        {current, classCode, division});
    names.next();
    QString text = QStringLiteral("Already Class ") + names.value(0).toString().trimmed() + QLatin1Char('/')
        + names.value(1).toString().trimmed() + QStringLiteral(" Is Allotted With ")
        + names.value(2).toString().trimmed() + QLatin1Char('\n');
    text += kindLines(kinds, QStringLiteral("It Also Has A Combined Subject Entry"),
                      QStringLiteral("It Also Has A Combined Class Entry"),
                      QStringLiteral("It Also Has A Combined Teacher Entry"));
    if (kinds.any())
        text += QStringLiteral("Modifing This Will Remove All The Corresponding Entries\n");
    text += QStringLiteral("Do You Want To Modify It ? ");
    if (!m_messages.question(text))
        return false;
    RemoveMembers(m_db, members, slot);
    return true;
}

ManualEntry::Result ManualEntry::place(const ManualSelection &selection, const PeriodSlot &slot)
{
    if (!selection.complete())
        return Result::Nothing;
    if (beyondLastDay(slot))
        return Result::Refused;
    const int allotted = Sql(m_db)
                             .scalar(QStringLiteral("SELECT NoOfSectionPeriods FROM WorkAllotmentEntry "
                                                    "WHERE TeacherCode = ? AND ClassCode = ? AND DivisionCode = ? "
                                                    "AND SubjectCode = ?"),
                                     {selection.teacher, selection.classCode, selection.division, selection.subject})
                             .toInt();
    if (allotted == 0)
        return Result::Nothing;
    if (PlacedCount(m_db, selection.teacher, selection.classCode, selection.division, selection.subject) + 1
        > allotted) {
        m_messages.information(QStringLiteral("'Occupied Periods' Should Not Exceed 'Allotted Periods'"));
        return Result::Refused;
    }
    // The old entry goes at once on Yes: a later refusal does not bring it back.
    if (!ClassDivisionIsFree(m_db, selection.classCode, selection.division, slot)
        && !confirmModify(selection.classCode, selection.division, slot))
        return Result::Refused;

    const QList<GroupMember> members =
        GroupMembersOf(m_db, selection.classCode, selection.division, selection.subject,
                       GroupNumbersOf(m_db, selection.classCode, selection.division, selection.subject));
    const GroupKinds kinds = OccupiedGroupKinds(m_db, members, slot);
    for (const GroupMember &member : members) {
        if (!TeacherIsFree(m_db, member.teacher, slot)) {
            m_messages.information(QStringLiteral("One Of The Teachers In This Group Is Not Free"));
            return Result::Refused;
        }
    }
    if (kinds.any()) {
        m_messages.information(kindLines(kinds, QStringLiteral("One Of The Combined Subjects Period Is Not Free"),
                                         QStringLiteral("One Of The Combined Class Periods Is Not Free"),
                                         QStringLiteral("One Of The Combined Teachers Is Not Free"))
                               + QStringLiteral("So You Cannot Allot This Period\n"));
        return Result::Refused;
    }
    PlaceMembers(m_db, members, slot, Origin::Manual);
    return Result::Placed;
}

ManualEntry::Result ManualEntry::removeTeacherEntry(int teacher, const PeriodSlot &slot)
{
    if (beyondLastDay(slot))
        return Result::Refused;
    QSqlQuery entry = Sql(m_db).run(QStringLiteral("SELECT ClassCode, DivisionCode, SubjectCode FROM TimeTable "
                                                   "WHERE DayCode = ? AND PeriodCode = ? AND TeacherCode = ? "
                                                   "ORDER BY rowid LIMIT 1"),
                                    {slot.day, slot.period, teacher});
    if (!entry.next())
        return Result::Nothing;
    return removeEntry(entry.value(0).toInt(), entry.value(1).toInt(), entry.value(2).toInt(), slot);
}

ManualEntry::Result ManualEntry::removeClassEntry(int classCode, int division, const PeriodSlot &slot)
{
    if (beyondLastDay(slot))
        return Result::Refused;
    const QVariant subject = Sql(m_db).scalar(QStringLiteral("SELECT SubjectCode FROM TimeTable WHERE DayCode = ? "
                                                             "AND PeriodCode = ? AND ClassCode = ? AND "
                                                             "DivisionCode = ? ORDER BY rowid LIMIT 1"),
                                              {slot.day, slot.period, classCode, division});
    if (!subject.isValid())
        return Result::Nothing;
    return removeEntry(classCode, division, subject.toInt(), slot);
}

ManualEntry::Result ManualEntry::removeEntry(int classCode, int division, int subject, const PeriodSlot &slot)
{
    const QList<GroupMember> members =
        GroupMembersOf(m_db, classCode, division, subject, GroupNumbersOf(m_db, classCode, division, subject));
    const GroupKinds kinds = OccupiedGroupKinds(m_db, members, slot);
    QString text = kindLines(kinds, QStringLiteral("It Has A Combined Subject Entry"),
                             QStringLiteral("It Has A Combined Class Entry"),
                             QStringLiteral("It Has A Combined Teacher Entry"));
    if (kinds.any())
        text += QStringLiteral("Deleting This Will Delete All The Corresponding Entries\n");
    text += QStringLiteral("Do You Want To Delete It ? ");
    if (!m_messages.question(text))
        return Result::Refused;
    RemoveMembers(m_db, members, slot);
    return Result::Removed;
}
