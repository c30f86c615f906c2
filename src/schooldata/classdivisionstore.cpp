#include "classdivisionstore.h"
#include "sql.h"
#include "store.h"
#include "transaction.h"

#include <QSet>

namespace {

QList<ClassRow> namedRows(const QList<ClassRow> &rows)
{
    QList<ClassRow> named;
    for (const ClassRow &row : rows) {
        if (row.isNamed())
            named.append(row);
    }
    return named;
}

QSet<QPair<int, int>> divisionPairs(const QList<ClassRow> &rows)
{
    QSet<QPair<int, int>> pairs;
    for (const ClassRow &row : rows) {
        for (const CodeName &division : row.divisions)
            pairs.insert({row.code, division.code});
    }
    return pairs;
}

struct StoredDivision
{
    int classCode;
    int divisionCode;
    QString className;
    QString divisionName;
};

}

QList<ClassRow> ClassDivisionStore::load() const
{
    const Sql sql(m_db);
    QList<ClassRow> rows;
    QSqlQuery classes = sql.run(QStringLiteral("SELECT ClassCode, ClassName, NoOfDivisions, ClassOrder "
                                               "FROM ClassDivisionMaster WHERE ClassCode > 0 ORDER BY ClassOrder"));
    while (classes.next()) {
        rows.append({classes.value(0).toInt(), classes.value(1).toString(), classes.value(2).toString(),
                     classes.value(3).toString(), {}});
    }
    for (ClassRow &row : rows) {
        QSqlQuery divisions = sql.run(QStringLiteral("SELECT DivisionName, DivisionCode FROM ClassDivisionDetails "
                                                     "WHERE ClassCode = ? ORDER BY DivisionCode"),
                                      {row.code});
        while (divisions.next())
            row.divisions.append({divisions.value(1).toInt(), divisions.value(0).toString()});
    }
    return rows;
}

int ClassDivisionStore::highestClassCode() const
{
    return Sql(m_db).scalar(QStringLiteral("SELECT MAX(ClassCode) FROM ClassDivisionMaster")).toInt();
}

void ClassDivisionStore::saveNew(const QList<ClassRow> &rows) const
{
    Transaction transaction(m_db);
    for (const ClassRow &row : namedRows(rows)) {
        insertClass(row);
        for (const CodeName &division : row.divisions)
            insertDivision(row.code, division);
    }
    transaction.commit();
}

QString ClassDivisionStore::saveEdit(const QList<ClassRow> &rows) const
{
    const QList<ClassRow> named = namedRows(rows);
    {
        // Removing what the grid dropped and writing what it holds stand or fall together.
        Transaction transaction(m_db);
        if (QString refusal = removeUnusedDivisions(named); !refusal.isEmpty())
            return refusal;
        for (const ClassRow &row : named)
            writeClass(row);
        if (QString refusal = removeUnusedClasses(named); !refusal.isEmpty())
            return refusal;
        transaction.commit();
    }
    Transaction lastPass(m_db);
    insertMissing(named);
    lastPass.commit();
    return {};
}

bool ClassDivisionStore::rearrangeClassOrder() const
{
    const Sql sql(m_db);
    if (!sql.exists(QStringLiteral("SELECT ClassOrder FROM ClassDivisionMaster WHERE ClassCode > 0 "
                                   "GROUP BY ClassOrder HAVING COUNT(*) > 1")))
        return false;
    QList<int> codes;
    QSqlQuery classes = sql.run(QStringLiteral("SELECT ClassCode FROM ClassDivisionMaster WHERE ClassCode > 0 "
                                               "ORDER BY ClassCode"));
    while (classes.next())
        codes.append(classes.value(0).toInt());
    Transaction transaction(m_db);
    for (int i = 0; i < codes.size(); ++i)
        sql.run(QStringLiteral("UPDATE ClassDivisionMaster SET ClassOrder = ? WHERE ClassCode = ?"), {i + 1, codes[i]});
    transaction.commit();
    return true;
}

QString ClassDivisionStore::removeUnusedDivisions(const QList<ClassRow> &rows) const
{
    const Sql sql(m_db);
    QList<StoredDivision> stored;
    QSqlQuery query = sql.run(QStringLiteral(
        "SELECT d.ClassCode, d.DivisionCode, m.ClassName, d.DivisionName FROM ClassDivisionDetails d "
        "LEFT JOIN ClassDivisionMaster m ON m.ClassCode = d.ClassCode ORDER BY d.ClassCode, d.DivisionCode DESC"));
    while (query.next()) {
        stored.append({query.value(0).toInt(), query.value(1).toInt(), query.value(2).toString().trimmed(),
                       query.value(3).toString().trimmed()});
    }
    const QSet<QPair<int, int>> kept = divisionPairs(rows);
    static const QStringList users{QStringLiteral("TimeTable"), QStringLiteral("SubstituteAllotment"),
                                   QStringLiteral("WorkAllotmentEntry"), QStringLiteral("TeacherMaster")};
    for (const StoredDivision &division : std::as_const(stored)) {
        if (kept.contains({division.classCode, division.divisionCode}))
            continue;
        const QVariantList pair{division.classCode, division.divisionCode};
        if (uses(users, QStringLiteral("ClassCode = ? AND DivisionCode = ?"), pair) > 0) {
            return QStringLiteral("This Division '%1 - %2' Is Used In Other Entry Screen(s). So You Cannot Delete")
                .arg(division.className, division.divisionName);
        }
        sql.run(QStringLiteral("DELETE FROM ClassDivisionDetails WHERE ClassCode = ? AND DivisionCode = ?"), pair);
    }
    return {};
}

void ClassDivisionStore::writeClass(const ClassRow &row) const
{
    const Sql sql(m_db);
    if (!sql.exists(QStringLiteral("SELECT 1 FROM ClassDivisionMaster WHERE ClassCode = ?"), {row.code})) {
        insertClass(row);
        for (const CodeName &division : row.divisions)
            insertDivision(row.code, division);
        return;
    }
    sql.run(QStringLiteral("UPDATE ClassDivisionMaster SET ClassName = ?, NoOfDivisions = ?, ClassOrder = ? "
                           "WHERE ClassCode = ?"),
            {row.name.trimmed(), row.divisions.size(), row.order(), row.code});
    for (const CodeName &division : row.divisions) {
        const QVariantList pair{row.code, division.code};
        if (sql.exists(QStringLiteral("SELECT 1 FROM ClassDivisionDetails WHERE ClassCode = ? AND DivisionCode = ?"),
                       pair)) {
            sql.run(QStringLiteral("UPDATE ClassDivisionDetails SET DivisionName = ? "
                                   "WHERE ClassCode = ? AND DivisionCode = ?"),
                    {division.name.trimmed(), row.code, division.code});
        } else {
            insertDivision(row.code, division);
        }
    }
}

QString ClassDivisionStore::removeUnusedClasses(const QList<ClassRow> &rows) const
{
    const Sql sql(m_db);
    QList<QPair<int, QString>> stored;
    QSqlQuery query = sql.run(QStringLiteral("SELECT ClassCode, ClassName FROM ClassDivisionMaster "
                                             "WHERE ClassCode > 0 ORDER BY ClassOrder"));
    while (query.next())
        stored.append({query.value(0).toInt(), query.value(1).toString().trimmed()});
    QSet<int> kept;
    for (const ClassRow &row : rows)
        kept.insert(row.code);
    static const QStringList users{QStringLiteral("TeacherMaster"), QStringLiteral("WorkAllotmentEntry"),
                                   QStringLiteral("TimeTable"), QStringLiteral("ClasswiseNoOfWorkingDays"),
                                   QStringLiteral("SubstituteAllotment")};
    for (const auto &[code, name] : std::as_const(stored)) {
        if (kept.contains(code))
            continue;
        if (uses(users, QStringLiteral("ClassCode = ?"), {code}) > 0)
            return QStringLiteral("The Class '%1' Used In Other Entry Screen(s). So You Cannot Delete").arg(name);
        sql.run(QStringLiteral("DELETE FROM ClassDivisionMaster WHERE ClassCode = ?"), {code});
    }
    return {};
}

void ClassDivisionStore::insertMissing(const QList<ClassRow> &rows) const
{
    const Sql sql(m_db);
    for (const ClassRow &row : rows) {
        if (!sql.exists(QStringLiteral("SELECT 1 FROM ClassDivisionMaster WHERE ClassCode = ?"), {row.code}))
            insertClass(row);
        for (const CodeName &division : row.divisions) {
            if (!sql.exists(QStringLiteral("SELECT 1 FROM ClassDivisionDetails WHERE ClassCode = ? AND DivisionCode = ?"),
                            {row.code, division.code}))
                insertDivision(row.code, division);
        }
    }
}

void ClassDivisionStore::insertClass(const ClassRow &row) const
{
    Sql(m_db).run(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?)"),
                  {row.code, row.name.trimmed(), row.divisions.size(), row.order()});
}

void ClassDivisionStore::insertDivision(int classCode, const CodeName &division) const
{
    Sql(m_db).run(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"),
                  {classCode, division.name.trimmed(), division.code});
}

int ClassDivisionStore::uses(const QStringList &tables, const QString &where, const QVariantList &values) const
{
    const Sql sql(m_db);
    int count = 0;
    for (const QString &table : tables) {
        // The working-days table is made at run time and may not be there yet.
        if (!Store::tableExists(m_db, table))
            continue;
        count += sql.scalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(Sql::identifier(table), where),
                            values).toInt();
    }
    return count;
}
