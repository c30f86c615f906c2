#include "schoolsnapshot.h"
#include "sql.h"
#include "store.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace {

QString text(const QVariant &value)
{
    return value.isNull() ? QString() : value.toString();
}

// The "No" cells of a settings table: each period column is named by the period's name.
void readSettings(const Sql &sql, const QString &table, const QString &codeColumn,
                  const QMap<int, QString> &periodNames, QList<int> *codes, QHash<int, QSet<int>> *noPeriods)
{
    QSqlQuery rows = sql.run(QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(codeColumn, table));
    while (rows.next()) {
        bool numeric = false;
        const int code = rows.value(0).toString().trimmed().toInt(&numeric);
        if (numeric)
            codes->append(code);
    }
    // A period is kept free where its column holds "No"; a period without a column holds nothing.
    const QSqlRecord record = sql.db().record(table);
    for (auto it = periodNames.cbegin(); it != periodNames.cend(); ++it) {
        const QString name = it.value().trimmed();
        if (name.isEmpty() || !record.contains(name))
            continue;
        QSqlQuery marked = sql.run(QStringLiteral("SELECT %1 FROM %2 WHERE ").arg(codeColumn, table)
                                   + Sql::identifier(name) + QStringLiteral("='No'") + QStringLiteral(" COLLATE NOCASE"));
        while (marked.next()) {
            bool numeric = false;
            const int code = marked.value(0).toString().trimmed().toInt(&numeric);
            if (numeric)
                (*noPeriods)[code].insert(it.key());
        }
    }
}

}

void SchoolSnapshot::load(const QSqlDatabase &db)
{
    const Sql sql(db);
    calendar.load(db);
    if (calendar.dayCode < 1)
        calendar.dayCode = 1;
    periodNames.clear();
    QSqlQuery q = sql.run(QStringLiteral("SELECT PeriodCode, PeriodName FROM PeriodDuration WHERE PeriodCode > 0 "
                                         "ORDER BY PeriodCode"));
    while (q.next())
        periodNames.insert(q.value(0).toInt(), text(q.value(1)));

    allotments.clear();
    q = sql.run(QStringLiteral("SELECT TeacherCode, ClassCode, DivisionCode, SubjectCode, NoOfSectionPeriods, CPGroupNo, "
                               "CCGroupNo, CTGroupNo, CCSystem, CTSystem FROM WorkAllotmentEntry ORDER BY rowid"));
    while (q.next())
        allotments.append({q.value(0).toInt(), q.value(1).toInt(), q.value(2).toInt(), q.value(3).toInt(),
                           q.value(4).toInt(), q.value(5).toInt(), q.value(6).toInt(), q.value(7).toInt(),
                           text(q.value(8)), text(q.value(9))});

    teachers.clear();
    classTeachers.clear();
    q = sql.run(QStringLiteral("SELECT TeacherCode, TeacherName, NoOfPeriods, ClassCode, DivisionCode, SubjectCode, "
                               "PeriodCode FROM TeacherMaster ORDER BY rowid"));
    while (q.next()) {
        teachers.append({q.value(0).toInt(), text(q.value(1)), !q.value(2).isNull(), q.value(2).toInt()});
        if (q.value(6).toInt() > 0)
            classTeachers.append({q.value(0).toInt(), q.value(3).toInt(), q.value(4).toInt(), q.value(5).toInt(),
                                  q.value(6).toInt()});
    }
    classNames.clear();
    q = sql.run(QStringLiteral("SELECT ClassCode, ClassName FROM ClassDivisionMaster"));
    while (q.next())
        classNames.insert(q.value(0).toInt(), text(q.value(1)));
    divisionNames.clear();
    q = sql.run(QStringLiteral("SELECT ClassCode, DivisionCode, DivisionName FROM ClassDivisionDetails"));
    while (q.next())
        divisionNames.insert(quint32(q.value(0).toInt()) << 16 | quint32(q.value(1).toInt()), text(q.value(2)));
    subjectNames.clear();
    q = sql.run(QStringLiteral("SELECT SubjectCode, SubjectName FROM SubjectMaster"));
    while (q.next())
        subjectNames.insert(q.value(0).toInt(), text(q.value(1)));

    timetable.clear();
    q = sql.run(QStringLiteral("SELECT ClassCode, DivisionCode, DayCode, PeriodCode, SubjectCode, TeacherCode, Manual, "
                               "CC, CT FROM TimeTable ORDER BY rowid"));
    while (q.next())
        timetable.append({q.value(0).toInt(), q.value(1).toInt(), q.value(2).toInt(), q.value(3).toInt(),
                          q.value(4).toInt(), q.value(5).toInt(), text(q.value(6)), text(q.value(7)), text(q.value(8))});
    q = QSqlQuery();
    loadRunState(db);
}

void SchoolSnapshot::loadRunState(const QSqlDatabase &db)
{
    const Sql sql(db);
    classDays.clear();
    QSqlQuery q = sql.run(QStringLiteral("SELECT ClassCode, NoOfWorkingDays FROM ClasswiseNoOfWorkingDays ORDER BY rowid"));
    while (q.next())
        if (!classDays.contains(q.value(0).toInt()))
            classDays.insert(q.value(0).toInt(), q.value(1).toInt());
    q = QSqlQuery();
    piStatus = text(sql.scalar(QStringLiteral("SELECT PIStatus FROM TTCode"))).trimmed().toUpper();
    loadSettings(db);
    loadFreeTypes(db);
}

void SchoolSnapshot::loadSettings(const QSqlDatabase &db)
{
    const Sql sql(db);
    const QVariant answer = sql.scalar(QStringLiteral("SELECT UniformPeriodRequired FROM AGP1Master"));
    settingsSaved = answer.isValid();
    uniformAnswer = text(answer).trimmed().toUpper();
    settingTeachers.clear();
    settingSubjects.clear();
    teacherNoPeriods.clear();
    subjectNoPeriods.clear();
    teacherDetailsExist = Store::tableExists(db, QStringLiteral("AGP1TeacherDetails"));
    subjectDetailsExist = Store::tableExists(db, QStringLiteral("AGP1SubjectDetails"));
    if (teacherDetailsExist)
        readSettings(sql, QStringLiteral("AGP1TeacherDetails"), QStringLiteral("TeacherCode"), periodNames,
                     &settingTeachers, &teacherNoPeriods);
    if (subjectDetailsExist)
        readSettings(sql, QStringLiteral("AGP1SubjectDetails"), QStringLiteral("SubjectCode"), periodNames,
                     &settingSubjects, &subjectNoPeriods);
}

void SchoolSnapshot::loadFreeTypes(const QSqlDatabase &db)
{
    freeTypes.clear();
    QSqlQuery q = Sql(db).run(QStringLiteral("SELECT TeacherCode, FreeType FROM FreePeriodDetails ORDER BY rowid"));
    while (q.next())
        if (!freeTypes.contains(q.value(0).toInt()))
            freeTypes.insert(q.value(0).toInt(), q.value(1).toInt());
}

int SchoolSnapshot::totalAllotted() const
{
    int total = 0;
    for (const Allotment &a : allotments)
        total += a.periods;
    return total;
}
