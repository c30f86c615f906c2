#include "combinedgroups.h"
#include "placement.h"
#include "routines.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"

#include <QSqlQuery>

namespace Combined {

QString mark(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("CP");
    case Kind::Class:
        return QStringLiteral("CC");
    case Kind::Teacher:
        return QStringLiteral("CT");
    }
    return {};
}

QString caption(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("Combined Subject Entry");
    case Kind::Class:
        return QStringLiteral("Combined Class Entry");
    case Kind::Teacher:
        return QStringLiteral("Combined Teacher Entry");
    }
    return {};
}

QString searchCaption(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("Combined Subject Entry Search");
    case Kind::Class:
        return QStringLiteral("Combined Class Entry Search");
    case Kind::Teacher:
        return QStringLiteral("Combined Teacher Entry Search");
    }
    return {};
}

QString formName(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("frmCombinedSubjectEntry");
    case Kind::Class:
        return QStringLiteral("frmCombinedClassEntry");
    case Kind::Teacher:
        return QStringLiteral("frmCombinedTeacherEntry");
    }
    return {};
}

int helpScreenNo(Kind kind)
{
    return kind == Kind::Subject ? 14 : kind == Kind::Class ? 15 : 16;
}

Verdict checkMainChosen(int mainClass, int mainDivision, int mainSubject)
{
    if (mainClass <= 0)
        return Verdict::stop(QStringLiteral("Select Class"), QStringLiteral("cboClass"));
    if (mainDivision <= 0)
        return Verdict::stop(QStringLiteral("Select Division"), QStringLiteral("cboDivision"));
    if (mainSubject <= 0)
        return Verdict::stop(QStringLiteral("Select Subject"), QStringLiteral("cboSubject"));
    return Verdict::go();
}

QString masterDeletedText()
{
    return QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
}

QString groupPlacedText()
{
    return QStringLiteral("Already Time Table Entry Exists For This Group\nSo Modification Is Not Allowed");
}

QString cannotEditText()
{
    return QStringLiteral("Already Time Table Entry Exists For This Group\nSo You Cannot Edit This Group\n(If You Want To Edit, You Have To Delete The Corresponding TimeTable Entries)");
}

QString cannotDeleteText()
{
    return QStringLiteral("Already Time Table Entry Exists For This Group\nSo You Cannot Delete This Group\n(If You Want To Delete, You Have To Delete The Corresponding TimeTable Entries)");
}

QString deleteQuestion(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("Do You Want To Delete This Combined Subject Entry ?");
    case Kind::Class:
        return QStringLiteral("Do You Want To Delete This Combined Class Entry ?");
    case Kind::Teacher:
        return QStringLiteral("Do You Want To Delete This Combined Teacher Entry ?");
    }
    return {};
}

QString viewAllQuestion(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("Do You Want To View All Combined Subject Entry Details ?");
    case Kind::Class:
        return QStringLiteral("Do You Want To View All Combined Class Entry Details ?");
    case Kind::Teacher:
        return QStringLiteral("Do You Want To View All Combined Teacher Entry Details ?");
    }
    return {};
}

QString groupIdHeader(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("Combined Subject ID");
    case Kind::Class:
        return QStringLiteral("Combined Class ID");
    case Kind::Teacher:
        return QStringLiteral("Combined Teacher ID");
    }
    return {};
}

QString groupIdCaption(Kind kind)
{
    switch (kind) {
    case Kind::Subject:
        return QStringLiteral("Combined Subject Id :");
    case Kind::Class:
        return QStringLiteral("Combined Class Id :");
    case Kind::Teacher:
        return QStringLiteral("Combined Teacher Id :");
    }
    return {};
}

}

using namespace Combined;

namespace {

const char *const NameJoins =
    " FROM WorkAllotmentEntry w "
    "JOIN TeacherMaster t ON t.TeacherCode = w.TeacherCode "
    "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
    "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode AND d.DivisionCode = w.DivisionCode "
    "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode ";

QList<CodeName> choices(const Sql &sql, const QString &statement, const QVariantList &values = {})
{
    QList<CodeName> list{{0, QString()}};
    QSqlQuery query = sql.run(statement, values);
    while (query.next())
        list.append({query.value(0).toInt(), query.value(1).toString()});
    return list;
}

// An entered row carries neither generated mark.
QString enteredRow(const QString &alias)
{
    return QStringLiteral("IFNULL(%1.CCSystem, '') = '' AND IFNULL(%1.CTSystem, '') = ''").arg(alias);
}

MainRow readMainRow(QSqlQuery &query)
{
    MainRow row;
    row.key = {query.value(0).toInt(), query.value(1).toInt(), query.value(2).toInt(), query.value(3).toInt()};
    row.periods = query.value(4).toInt();
    row.cpGroupNo = query.value(5).toInt();
    row.teacherName = query.value(6).toString();
    row.className = query.value(7).toString();
    row.divisionName = query.value(8).toString();
    row.subjectName = query.value(9).toString();
    return row;
}

const char *const MainRowColumns = "SELECT w.TeacherCode, w.ClassCode, w.DivisionCode, w.SubjectCode, "
                                   "w.NoOfSectionPeriods, w.CPGroupNo, t.TeacherName, c.ClassName, d.DivisionName, "
                                   "s.SubjectName";

}

CombinedGroups::CombinedGroups(const QSqlDatabase &db, Kind kind)
    : m_db(db), m_kind(kind)
{
}

QString CombinedGroups::groupColumn() const
{
    return mark(m_kind) + QStringLiteral("GroupNo");
}

QString CombinedGroups::systemColumn() const
{
    return m_kind == Kind::Subject ? QString() : mark(m_kind) + QStringLiteral("System");
}

bool CombinedGroups::placedPeriods(const Key &key) const
{
    return Placement::PlacedCount(m_db, key.teacher, key.classCode, key.division, key.subject) > 0;
}

bool CombinedGroups::allotmentExists(const Key &key) const
{
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE TeacherCode = ? AND ClassCode = ? "
                                           "AND DivisionCode = ? AND SubjectCode = ?"),
                            {key.teacher, key.classCode, key.division, key.subject});
}

bool CombinedGroups::allotmentExists(int classCode, int division, int subject) const
{
    return subjectTakenOutside(classCode, division, subject, 0);
}

bool CombinedGroups::subjectTakenOutside(int classCode, int division, int subject, int ownGroup) const
{
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE ClassCode = ? AND DivisionCode = ? "
                                           "AND SubjectCode = ? AND IFNULL(%1, 0) <> ?")
                                .arg(groupColumn()),
                            {classCode, division, subject, ownGroup > 0 ? ownGroup : -1});
}

int CombinedGroups::takeGroupNo() const
{
    const int groupNo = NextGroupNo(m_db, mark(m_kind));
    if (groupNo <= 0)
        throw StoreError(QStringLiteral("ControlFileMaster has no row for ") + mark(m_kind));
    return groupNo;
}

QList<CodeName> CombinedGroups::classes() const
{
    return choices(Sql(m_db), QStringLiteral("SELECT ClassCode, ClassName FROM ClassDivisionMaster WHERE ClassCode > 0 "
                                             "ORDER BY ClassOrder, ClassName"));
}

QList<CodeName> CombinedGroups::divisionsOf(int classCode) const
{
    return choices(Sql(m_db),
                   QStringLiteral("SELECT DivisionCode, DivisionName FROM ClassDivisionDetails WHERE ClassCode = ? "
                                  "AND DivisionCode > 0 ORDER BY DivisionName"),
                   {classCode});
}

QList<CodeName> CombinedGroups::subjects() const
{
    return choices(Sql(m_db), QStringLiteral("SELECT SubjectCode, SubjectName FROM SubjectMaster WHERE SubjectCode > 0 "
                                             "ORDER BY SubjectName"));
}

QList<CodeName> CombinedGroups::teachers() const
{
    return choices(Sql(m_db), QStringLiteral("SELECT TeacherCode, TeacherName FROM TeacherMaster WHERE TeacherCode > 0 "
                                             "ORDER BY TeacherName"));
}

QList<CodeName> CombinedGroups::allottedClasses() const
{
    return choices(Sql(m_db), QStringLiteral("SELECT DISTINCT c.ClassCode, c.ClassName, c.ClassOrder "
                                             "FROM WorkAllotmentEntry w JOIN ClassDivisionMaster c "
                                             "ON c.ClassCode = w.ClassCode WHERE c.ClassCode > 0 "
                                             "ORDER BY c.ClassOrder, c.ClassName"));
}

QList<CodeName> CombinedGroups::allottedDivisions(int classCode) const
{
    return choices(Sql(m_db),
                   QStringLiteral("SELECT DISTINCT d.DivisionCode, d.DivisionName FROM WorkAllotmentEntry w "
                                  "JOIN ClassDivisionDetails d ON d.ClassCode = w.ClassCode "
                                  "AND d.DivisionCode = w.DivisionCode WHERE w.ClassCode = ? ORDER BY d.DivisionName"),
                   {classCode});
}

QList<CodeName> CombinedGroups::allottedSubjects(int classCode, int division) const
{
    // A class division's generated Combined Teacher rows are other teachers' work, never a main row here.
    const QString generatedTeacherRows = m_kind == Kind::Teacher
        ? QStringLiteral(" AND IFNULL(w.CTSystem, '') = ''") : QString();
    return choices(Sql(m_db),
                   QStringLiteral("SELECT DISTINCT s.SubjectCode, s.SubjectName FROM WorkAllotmentEntry w "
                                  "JOIN SubjectMaster s ON s.SubjectCode = w.SubjectCode "
                                  "WHERE w.ClassCode = ? AND w.DivisionCode = ?%1 ORDER BY s.SubjectName")
                       .arg(generatedTeacherRows),
                   {classCode, division});
}

std::optional<MainRow> CombinedGroups::mainRow(int classCode, int division, int subject) const
{
    QSqlQuery query = Sql(m_db).run(QLatin1String(MainRowColumns) + QLatin1String(NameJoins)
                                        + QStringLiteral("WHERE w.ClassCode = ? AND w.DivisionCode = ? "
                                                         "AND w.SubjectCode = ? AND ")
                                        + enteredRow(QStringLiteral("w")),
                                    {classCode, division, subject});
    if (!query.next())
        return std::nullopt;
    return readMainRow(query);
}

std::optional<MainRow> CombinedGroups::mainRowOfGroup(int groupNo) const
{
    if (m_kind == Kind::Subject)
        return std::nullopt;
    QSqlQuery query = Sql(m_db).run(QLatin1String(MainRowColumns) + QLatin1String(NameJoins)
                                        + QStringLiteral("WHERE w.%1 = ? AND IFNULL(w.%2, '') = ''")
                                              .arg(groupColumn(), systemColumn()),
                                    {groupNo});
    if (!query.next())
        return std::nullopt;
    return readMainRow(query);
}

int CombinedGroups::groupOfMainRow(const Key &key) const
{
    if (m_kind == Kind::Subject)
        return 0;
    return Sql(m_db)
        .scalar(QStringLiteral("SELECT %1 FROM WorkAllotmentEntry WHERE TeacherCode = ? AND ClassCode = ? "
                               "AND DivisionCode = ? AND SubjectCode = ? AND %2 = ? AND IFNULL(%3, '') = '' "
                               "AND %1 > 0")
                    .arg(groupColumn(), mark(m_kind), systemColumn()),
                {key.teacher, key.classCode, key.division, key.subject, mark(m_kind)})
        .toInt();
}

QList<SearchRow> CombinedGroups::search(const SearchFilter &filter) const
{
    QString statement = QStringLiteral("SELECT w.%1, t.TeacherName, c.ClassName, d.DivisionName, s.SubjectName, "
                                       "w.NoOfSectionPeriods, w.TeacherCode, w.ClassCode, w.DivisionCode, "
                                       "w.SubjectCode")
                            .arg(groupColumn())
        + QLatin1String(NameJoins) + QStringLiteral("WHERE w.%1 > 0").arg(groupColumn());
    QVariantList values;
    // The class and teacher forms list each group once, by its main row.
    if (m_kind != Kind::Subject)
        statement += QStringLiteral(" AND IFNULL(w.%1, '') = ''").arg(systemColumn());
    if (filter.classCode > 0) {
        statement += QStringLiteral(" AND w.ClassCode = ?");
        values << filter.classCode;
    }
    if (filter.subject > 0) {
        statement += QStringLiteral(" AND w.SubjectCode = ?");
        values << filter.subject;
    }
    if (filter.teacher > 0) {
        statement += QStringLiteral(" AND w.TeacherCode = ?");
        values << filter.teacher;
    }
    if (filter.groupNo) {
        statement += QStringLiteral(" AND w.%1 = ?").arg(groupColumn());
        values << *filter.groupNo;
    }
    statement += QStringLiteral(" ORDER BY w.%1, c.ClassOrder, d.DivisionName, t.TeacherName").arg(groupColumn());

    QList<SearchRow> rows;
    QSqlQuery query = Sql(m_db).run(statement, values);
    while (query.next()) {
        rows.append({query.value(0).toInt(), query.value(1).toString(), query.value(2).toString(),
                     query.value(3).toString(), query.value(4).toString(), query.value(5).toInt(),
                     {query.value(6).toInt(), query.value(7).toInt(), query.value(8).toInt(), query.value(9).toInt()}});
    }
    return rows;
}

bool CombinedGroups::stillInGroup(const Key &key, int groupNo) const
{
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM WorkAllotmentEntry WHERE TeacherCode = ? AND ClassCode = ? "
                                           "AND DivisionCode = ? AND SubjectCode = ? AND %1 = ?")
                                .arg(groupColumn()),
                            {key.teacher, key.classCode, key.division, key.subject, groupNo});
}

QString CombinedGroups::deleteRefusal(const Key &mainKey) const
{
    if (m_kind == Kind::Subject || !placedPeriods(mainKey))
        return {};
    return cannotDeleteText();
}

void CombinedGroups::dissolve(int groupNo) const
{
    Transaction transaction(m_db);
    const Sql sql(m_db);
    if (m_kind != Kind::Subject) {
        sql.run(QStringLiteral("DELETE FROM WorkAllotmentEntry WHERE %1 = ? AND %2 = ? AND %3 = 'Y'")
                    .arg(mark(m_kind), groupColumn(), systemColumn()),
                {mark(m_kind), groupNo});
    }
    sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET %1 = '', %2 = 0 WHERE %2 = ?")
                .arg(mark(m_kind), groupColumn()),
            {groupNo});
    transaction.commit();
}
