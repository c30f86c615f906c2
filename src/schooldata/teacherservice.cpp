#include "teacherservice.h"
#include "routines.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"
#include "transaction.h"

#include <QSqlQuery>

namespace {

const QString PhaseOneTeachers = QStringLiteral("AGP1TeacherDetails");

QVariant dateValue(const QDate &date)
{
    return date.isValid() ? QVariant(date.toString(Qt::ISODate)) : QVariant();
}

QDate dateOf(const QVariant &value)
{
    return value.isNull() ? QDate() : QDate::fromString(value.toString(), Qt::ISODate);
}

// Names count as one when they differ only in case or spacing.
QString comparable(const QString &name)
{
    return name.simplified().toUpper();
}

QString twoLines(const QString &first, const QString &second)
{
    return first + QLatin1Char('\n') + second;
}

// The columns a Save writes, from SalutationCode to SeniorityNo, in the table's order.
QVariantList personalValues(const Teacher &t)
{
    const QDate wedding = t.maritalStatus == QLatin1String("S") ? QDate() : t.weddingDate;
    return {t.salutationCode,
            t.name.trimmed(),
            t.shortName.trimmed(),
            dateValue(t.dob),
            t.maritalStatus,
            dateValue(wedding),
            dateValue(t.joiningDate),
            t.fhName.trimmed(),
            t.address1.trimmed(),
            t.address2.trimmed(),
            t.cityCode,
            t.pincode.trimmed(),
            t.telephone.trimmed(),
            t.bloodGroupCode,
            t.qualification.trimmed(),
            t.noOfPeriods,
            t.seniorityNo};
}

}

QList<CodeName> TeacherService::list(const QString &statement, const QVariantList &values) const
{
    QList<CodeName> entries{{0, QString()}};
    QSqlQuery query = Sql(m_db).run(statement, values);
    while (query.next())
        entries.append({query.value(0).toInt(), query.value(1).toString()});
    return entries;
}

QList<CodeName> TeacherService::salutations() const
{
    return list(QStringLiteral("SELECT SalutationCode, SalutationName FROM SalutationMaster "
                               "WHERE SalutationCode > 0 ORDER BY SalutationName"));
}

QList<CodeName> TeacherService::states() const
{
    return list(QStringLiteral("SELECT StateCode, StateName FROM StateMaster WHERE StateCode > 0 ORDER BY StateName"));
}

QList<CodeName> TeacherService::cities(int stateCode) const
{
    if (stateCode <= 0)
        return {{0, QString()}};
    return list(QStringLiteral("SELECT CityCode, CityName FROM CityMaster WHERE CityCode > 0 AND StateCode = ? "
                               "ORDER BY CityName"),
                {stateCode});
}

QList<CodeName> TeacherService::bloodGroups() const
{
    return list(QStringLiteral("SELECT BloodGroupCode, BloodGroupName FROM BloodGroupMaster "
                               "WHERE BloodGroupCode > 0 ORDER BY BloodGroupName"));
}

std::optional<Teacher> TeacherService::load(int code) const
{
    QSqlQuery query = Sql(m_db).run(
        QStringLiteral("SELECT t.TeacherCode, t.SalutationCode, t.TeacherName, t.TeacherShortName, t.DOB, "
                       "t.MaritalStatus, t.WeddingDate, t.JoiningDate, t.FHName, t.Address1, t.Address2, "
                       "COALESCE(c.StateCode, 0), t.CityCode, t.Pincode, t.Telephone, t.BloodGroupCode, "
                       "t.Qualification, t.NoOfPeriods, t.SeniorityNo, t.ClassCode, t.DivisionCode, t.SubjectCode, "
                       "t.PeriodCode FROM TeacherMaster t LEFT JOIN CityMaster c ON c.CityCode = t.CityCode "
                       "WHERE t.TeacherCode = ? AND t.TeacherCode > 0"),
        {code});
    if (!query.next())
        return std::nullopt;
    const auto text = [&](int i) { return query.value(i).toString(); };
    const auto number = [&](int i) { return query.value(i).toInt(); };
    Teacher t;
    t.code = number(0);
    t.salutationCode = number(1);
    t.name = text(2);
    t.shortName = text(3);
    t.dob = dateOf(query.value(4));
    t.maritalStatus = text(5).trimmed().toUpper();
    t.weddingDate = dateOf(query.value(6));
    t.joiningDate = dateOf(query.value(7));
    t.fhName = text(8);
    t.address1 = text(9);
    t.address2 = text(10);
    t.stateCode = number(11);
    t.cityCode = number(12);
    t.pincode = text(13);
    t.telephone = text(14);
    t.bloodGroupCode = number(15);
    t.qualification = text(16);
    t.noOfPeriods = number(17);
    t.seniorityNo = number(18);
    t.classCode = number(19);
    t.divisionCode = number(20);
    t.subjectCode = number(21);
    t.periodCode = number(22);
    return t;
}

int TeacherService::allottedPeriods(int code) const
{
    const QVariant sum = Sql(m_db).scalar(
        QStringLiteral("SELECT COALESCE(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry WHERE TeacherCode = ?"),
        {code});
    return sum.toInt();
}

QString TeacherService::periodsAboveWeekText(int periodsPerWeek)
{
    return QStringLiteral("'No. Of Working Periods' Should Not Exceed 'Periods Per Week'(")
        + QString::number(periodsPerWeek) + QStringLiteral(")");
}

QString TeacherService::periodsBelowAllottedText(int allottedPeriods)
{
    const QString sum = QString::number(allottedPeriods);
    return twoLines(QStringLiteral("Already WorkAllotment Entry Exists For ") + sum + QStringLiteral("Periods"),
                    QStringLiteral("If You Want To Reduce Below ") + sum
                        + QStringLiteral(" Periods, You Have To Delete WorkAllotment Entries"));
}

std::optional<TeacherRefusal> TeacherService::validate(const Teacher &t, const TeacherSaveContext &context) const
{
    using Field = TeacherRefusal::Field;
    if (t.salutationCode <= 0)
        return TeacherRefusal{QStringLiteral("Select Salutation"), Field::Salutation};
    if (t.name.trimmed().isEmpty())
        return TeacherRefusal{QStringLiteral("Enter Teacher Name"), Field::TeacherName};
    if (t.shortName.trimmed().isEmpty())
        return TeacherRefusal{QStringLiteral("Enter Teacher Short Name"), Field::ShortName};
    if (t.stateCode > 0 && t.cityCode <= 0)
        return TeacherRefusal{QStringLiteral("State Name Is Selected. So You Should Select City Name"), Field::City};
    if (t.noOfPeriods <= 0)
        return TeacherRefusal{QStringLiteral("Enter No. Of Working Periods"), Field::NoOfPeriods};
    // The screen holds the periods to these limits while they are typed; a Save checks them again so that
    // no way round the field (a paste, a shrunken week) can store a teacher the week cannot hold.
    if (t.noOfPeriods > context.periodsPerWeek)
        return TeacherRefusal{periodsAboveWeekText(context.periodsPerWeek), Field::NoOfPeriods};
    if (context.editing && context.allottedPeriods > 0 && t.noOfPeriods < context.allottedPeriods)
        return TeacherRefusal{periodsBelowAllottedText(context.allottedPeriods), Field::NoOfPeriods};
    if (t.dob.isValid() && t.joiningDate.isValid() && t.dob >= t.joiningDate)
        return TeacherRefusal{QStringLiteral("'Joining Date' Should Be Greater Than 'Date Of Birth'"),
                              Field::JoiningDate};
    if (t.dob.isValid() && t.weddingDate.isValid() && t.dob >= t.weddingDate)
        return TeacherRefusal{QStringLiteral("'Wedding Date' Should Be Greater Than 'Date Of Birth'"),
                              Field::WeddingDate};
    if (t.dob.isValid() && t.dob >= context.today)
        return TeacherRefusal{QStringLiteral("'Date Of Birth' Should Be Lesser Than 'Current Date'"),
                              Field::DateOfBirth};
    return duplicateRefusal(t, context.editing);
}

std::optional<TeacherRefusal> TeacherService::duplicateRefusal(const Teacher &t, bool editing) const
{
    using Field = TeacherRefusal::Field;
    const int ownCode = editing ? t.code : 0;
    const QString name = comparable(t.name);
    QSqlQuery names = Sql(m_db).run(
        QStringLiteral("SELECT TeacherCode, TeacherName FROM TeacherMaster WHERE TeacherCode > 0"));
    while (names.next()) {
        if (names.value(0).toInt() != ownCode && comparable(names.value(1).toString()) == name)
            return TeacherRefusal{QStringLiteral("Teacher Name Already Exists"), Field::TeacherName};
    }
    // The short name is compared as the store compares the column (without case).
    const QVariant sameShortName =
        Sql(m_db).scalar(QStringLiteral("SELECT COUNT(*) FROM TeacherMaster WHERE TeacherShortName = ? "
                                        "AND TeacherCode <> ? AND TeacherCode > 0"),
                         {t.shortName.trimmed(), ownCode});
    if (sameShortName.toInt() > 0)
        return TeacherRefusal{QStringLiteral("Teacher Short Name Aready Exists"), Field::ShortName};
    return std::nullopt;
}

int TeacherService::save(const Teacher &t, bool editing) const
{
    const Sql sql(m_db);
    Transaction transaction(m_db);
    int code = t.code;
    if (editing) {
        const QString oldName =
            sql.scalar(QStringLiteral("SELECT TeacherName FROM TeacherMaster WHERE TeacherCode = ?"), {code})
                .toString();
        // The Phase I settings exist only between that screen's Save and its Delete; its TeacherCode is text.
        if (Store::tableExists(m_db, PhaseOneTeachers))
            sql.run(QStringLiteral("UPDATE AGP1TeacherDetails SET TeacherName = ? WHERE TRIM(TeacherCode) = ?"),
                    {t.name.trimmed(), QString::number(code)});
        sql.run(QStringLiteral("UPDATE AGP1SubjectTeacherDetails SET TeacherName = ? "
                               "WHERE UPPER(TRIM(TeacherName)) = UPPER(TRIM(?))"),
                {t.name.trimmed(), oldName});
        QVariantList values = personalValues(t);
        values << code;
        sql.run(QStringLiteral("UPDATE TeacherMaster SET SalutationCode = ?, TeacherName = ?, TeacherShortName = ?, "
                               "DOB = ?, MaritalStatus = ?, WeddingDate = ?, JoiningDate = ?, FHName = ?, "
                               "Address1 = ?, Address2 = ?, CityCode = ?, Pincode = ?, Telephone = ?, "
                               "BloodGroupCode = ?, Qualification = ?, NoOfPeriods = ?, SeniorityNo = ? "
                               "WHERE TeacherCode = ?"),
                values);
    } else {
        code = NextCode(m_db, QStringLiteral("TeacherMaster"), QStringLiteral("TeacherCode"));
        QVariantList values{code};
        values << personalValues(t) << 0 << 0 << 0 << 0;
        sql.run(QStringLiteral("INSERT INTO TeacherMaster VALUES "
                               "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                values);
    }
    transaction.commit();
    return code;
}

QString TeacherService::deleteRefusal(int code) const
{
    const Sql sql(m_db);
    const QString name =
        sql.scalar(QStringLiteral("SELECT TeacherName FROM TeacherMaster WHERE TeacherCode = ?"), {code}).toString();
    if (sql.exists(QStringLiteral("SELECT 1 FROM TimeTable WHERE TeacherCode = ?"), {code}))
        return twoLines(
            QStringLiteral("This Teacher Cannot Be Deleted Because TimeTable Entries Exist For This Teacher"),
            QStringLiteral("After Removing Timetable Entries Of This Teacher, You Can Delete This Teacher"));
    // The Phase I settings name their teachers, so they are searched by name.
    if (Store::tableExists(m_db, PhaseOneTeachers)
        && sql.exists(QStringLiteral("SELECT 1 FROM AGP1TeacherDetails WHERE UPPER(TRIM(TeacherName)) = UPPER(TRIM(?))"),
                      {name}))
        return twoLines(
            QStringLiteral("This Teacher Cannot Be Deleted Because A Teacher Setting Exists In Auto-Generation Phase I Screen For This Teacher"),
            QStringLiteral("After Removing That Teacher Setting, You Can Delete This Teacher"));
    if (sql.exists(QStringLiteral("SELECT 1 FROM AGP1SubjectTeacherDetails "
                                  "WHERE UPPER(TRIM(TeacherName)) = UPPER(TRIM(?))"),
                   {name}))
        return twoLines(
            QStringLiteral("This Teacher Cannot Be Deleted Because A Subject Setting Exists In Auto-Generation Phase I Screen For This Teacher"),
            QStringLiteral("After Removing That Subject Setting, You Can Delete This Teacher"));
    if (sql.exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE TeacherCode = ?"), {code}))
        return twoLines(
            QStringLiteral("This Teacher Cannot Be Deleted Because Work Allotment Entries Exist For This Teacher"),
            QStringLiteral("After Removing WorkAllotment Entries Of This Teacher, You Can Delete This Teacher"));
    return {};
}

void TeacherService::remove(int code) const
{
    Transaction transaction(m_db);
    // Substitute history and the like still name the teacher: say where, instead of the store's bare refusal.
    const QString user = Store::firstUserOf(m_db, QStringLiteral("TeacherMaster"), QStringLiteral("TeacherCode"), code);
    if (!user.isEmpty())
        throw StoreError(Store::usedElsewhereText(user));
    Sql(m_db).run(QStringLiteral("DELETE FROM TeacherMaster WHERE TeacherCode = ? AND TeacherCode > 0"), {code});
    transaction.commit();
}
