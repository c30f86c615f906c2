#include "classteacherallotment.h"
#include "messageservice.h"
#include "sql.h"
#include "transaction.h"

namespace {

// A row the user entered, as opposed to one the Combined Class or Combined Teacher screen generated. The
// work allotment screen leaves both columns null while other writers store '', so both mean "entered".
const char *const EnteredRow = "COALESCE(w.CCSystem, '') = '' AND COALESCE(w.CTSystem, '') = ''";

QString withEnteredRows(const char *statement)
{
    return QString::fromLatin1(statement).arg(QLatin1String(EnteredRow));
}

}

QList<CodeName> ClassTeacherAllotment::items(const QString &statement,
                                                                const QVariantList &values) const
{
    QList<CodeName> list;
    QSqlQuery query = Sql(m_db).run(statement, values);
    while (query.next())
        list.append({query.value(0).toInt(), query.value(1).toString()});
    return list;
}

QList<CodeName> ClassTeacherAllotment::classes() const
{
    return items(QStringLiteral("SELECT ClassCode, ClassName FROM ClassDivisionMaster WHERE ClassCode > 0 "
                                "ORDER BY ClassOrder, ClassName"));
}

QList<CodeName> ClassTeacherAllotment::divisions(int classCode) const
{
    return items(QStringLiteral("SELECT DivisionCode, DivisionName FROM ClassDivisionDetails "
                                "WHERE ClassCode = ? AND DivisionCode > 0 ORDER BY DivisionName"),
                 {classCode});
}

QList<CodeName> ClassTeacherAllotment::teachers(int classCode, int division) const
{
    return items(withEnteredRows("SELECT DISTINCT t.TeacherCode, t.TeacherName FROM WorkAllotmentEntry w "
                                 "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
                                 "WHERE w.ClassCode = ? AND w.DivisionCode = ? AND t.TeacherCode > 0 AND %1 "
                                 "ORDER BY t.TeacherName"),
                 {classCode, division});
}

QList<CodeName> ClassTeacherAllotment::subjects(int classCode, int division, int teacher) const
{
    return items(withEnteredRows("SELECT DISTINCT s.SubjectCode, s.SubjectName FROM WorkAllotmentEntry w "
                                 "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
                                 "WHERE w.ClassCode = ? AND w.DivisionCode = ? AND s.SubjectCode > 0 "
                                 "AND (? = 0 OR w.TeacherCode = ?) AND %1 ORDER BY s.SubjectName"),
                 {classCode, division, teacher, teacher});
}

QList<CodeName> ClassTeacherAllotment::periods() const
{
    return items(QStringLiteral("SELECT PeriodCode, PeriodName FROM PeriodDuration WHERE PeriodCode > 0 "
                                "ORDER BY PeriodCode"));
}

std::optional<ClassTeacherAllotment::Entry> ClassTeacherAllotment::readEntry(const QString &where,
                                                                             const QVariantList &values) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT t.TeacherCode, t.TeacherName, t.ClassCode, c.ClassName, t.DivisionCode, "
                       "d.DivisionName, t.SubjectCode, s.SubjectName, t.PeriodCode, p.PeriodName "
                       "FROM TeacherMaster t JOIN SubjectMaster s ON s.SubjectCode = t.SubjectCode "
                       "LEFT JOIN ClassDivisionMaster c ON c.ClassCode = t.ClassCode "
                       "LEFT JOIN ClassDivisionDetails d ON d.ClassCode = t.ClassCode "
                       "AND d.DivisionCode = t.DivisionCode "
                       "LEFT JOIN PeriodDuration p ON p.PeriodCode = t.PeriodCode AND t.PeriodCode > 0 "
                       "WHERE t.TeacherCode > 0 AND ")
            + where + QStringLiteral(" ORDER BY t.TeacherCode LIMIT 1"),
        values);
    if (!query.next())
        return std::nullopt;
    Entry entry;
    entry.teacher = query.value(0).toInt();
    entry.teacherName = query.value(1).toString();
    entry.classCode = query.value(2).toInt();
    entry.className = query.value(3).toString();
    entry.division = query.value(4).toInt();
    entry.divisionName = query.value(5).toString();
    entry.subject = query.value(6).toInt();
    entry.subjectName = query.value(7).toString();
    entry.period = query.value(8).toInt();
    entry.periodName = query.value(9).toString();
    return entry;
}

std::optional<ClassTeacherAllotment::Entry> ClassTeacherAllotment::entryOfClassDivision(int classCode,
                                                                                        int division) const
{
    return readEntry(QStringLiteral("t.ClassCode = ? AND t.DivisionCode = ?"), {classCode, division});
}

std::optional<ClassTeacherAllotment::Entry> ClassTeacherAllotment::entryOfTeacher(int teacher) const
{
    return readEntry(QStringLiteral("t.TeacherCode = ? AND t.ClassCode > 0 AND t.DivisionCode > 0 "
                                    "AND t.SubjectCode > 0"),
                     {teacher});
}

bool ClassTeacherAllotment::allotmentExists(const Choice &choice) const
{
    return Sql(m_db).exists(withEnteredRows("SELECT 1 FROM WorkAllotmentEntry w WHERE w.ClassCode = ? "
                                            "AND w.DivisionCode = ? AND w.TeacherCode = ? AND w.SubjectCode = ? "
                                            "AND %1"),
                            {choice.classCode, choice.division, choice.teacher, choice.subject});
}

ClassTeacherAllotment::TeacherCheck ClassTeacherAllotment::checkTeacher(int teacher, int loadedTeacher,
                                                                        MessageService &messages,
                                                                        Entry *other) const
{
    if (teacher <= 0 || teacher == loadedTeacher)
        return TeacherCheck::Free;
    const std::optional<Entry> entry = entryOfTeacher(teacher);
    if (!entry)
        return TeacherCheck::Free;
    if (!messages.question(alreadyClassTeacherQuestion()))
        return TeacherCheck::ClearTeacher;
    if (other)
        *other = *entry;
    return TeacherCheck::ShowOtherEntry;
}

ClassTeacherAllotment::SaveResult ClassTeacherAllotment::save(const Choice &choice, int loadedTeacher,
                                                              bool editing, MessageService &messages)
{
    using Outcome = SaveResult::Outcome;
    const struct
    {
        bool blank;
        const char *text;
        Field field;
    } required[] = {
        {choice.classCode <= 0, "Select Class Name", Field::Class},
        {choice.division <= 0, "Select Division Name", Field::Division},
        {choice.teacher <= 0, "Select Teacher Name", Field::Teacher},
        {choice.subject <= 0, "Select Subject Name", Field::Subject},
        {choice.uniformPeriod && choice.period <= 0, "Select Uniform Period Name", Field::UniformPeriodName},
    };
    for (const auto &check : required) {
        if (check.blank) {
            messages.information(QString::fromLatin1(check.text));
            return {Outcome::Refused, check.field, {}};
        }
    }
    const int period = choice.uniformPeriod ? choice.period : 0;

    Entry other;
    switch (checkTeacher(choice.teacher, loadedTeacher, messages, &other)) {
    case TeacherCheck::ShowOtherEntry:
        return {Outcome::ShowOtherEntry, Field::None, other};
    case TeacherCheck::ClearTeacher:
        return {Outcome::ClearTeacher, Field::Teacher, {}};
    case TeacherCheck::Free:
        break;
    }
    if (!allotmentExists(choice)) {
        messages.information(masterDataDeletedText());
        return {Outcome::AllotmentGone, Field::Teacher, {}};
    }

    Sql sql(m_db);
    Transaction transaction(m_db);
    if (editing)
        sql.run(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 0, DivisionCode = 0, SubjectCode = 0, "
                               "PeriodCode = 0 WHERE ClassCode = ? AND DivisionCode = ?"),
                {choice.classCode, choice.division});
    sql.run(QStringLiteral("UPDATE TeacherMaster SET ClassCode = ?, DivisionCode = ?, SubjectCode = ?, "
                           "PeriodCode = ? WHERE TeacherCode = ?"),
            {choice.classCode, choice.division, choice.subject, period, choice.teacher});
    transaction.commit();
    return {editing ? Outcome::Updated : Outcome::Saved, Field::None, {}};
}

void ClassTeacherAllotment::remove(int teacher)
{
    Transaction transaction(m_db);
    Sql(m_db).run(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 0, DivisionCode = 0, SubjectCode = 0, "
                                 "PeriodCode = 0 WHERE TeacherCode = ?"),
                  {teacher});
    transaction.commit();
}

QString ClassTeacherAllotment::alreadyClassTeacherQuestion()
{
    return QStringLiteral("This Teacher Has Already Been Assigned As A Class Teacher\nDo You Want To View The Details ?");
}

QString ClassTeacherAllotment::masterDataDeletedText()
{
    return QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
}

QString ClassTeacherAllotment::deleteQuestion()
{
    return QStringLiteral("Do You Want To Delete This Class Teacher Entry ?");
}
