#include "storedrows.h"
#include "sql.h"
#include "storeerror.h"

#include <QSqlError>
#include <QSqlRecord>
#include <algorithm>

namespace {

// QtSql binds a null QString as NULL, though QVariant holds it as a value.
bool bindsNull(const QVariant &value)
{
    if (value.isNull())
        return true;
    return value.typeId() == QMetaType::QString && static_cast<const QString *>(value.constData())->isNull();
}

// A null and an empty QString compare equal, yet one binds NULL and the other ''.
bool sameBinding(const QVariant &a, const QVariant &b)
{
    if (a.metaType() != b.metaType() || bindsNull(a) != bindsNull(b))
        return false;
    return bindsNull(a) || a == b;
}

// True when `stored`, as QSQLITE reads it back, is what binding `wanted` stores: the same integer, the same
// text, or NULL. Any other pair counts as different, and the row is written again.
bool storedAs(const QVariant &stored, const QVariant &wanted)
{
    if (bindsNull(wanted))
        return stored.isNull();
    if (stored.isNull())
        return false;
    switch (wanted.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return stored.typeId() == QMetaType::LongLong && stored.toLongLong() == wanted.toLongLong();
    case QMetaType::QString:
        return stored.typeId() == QMetaType::QString && stored.toString() == wanted.toString();
    default:
        return false;
    }
}

QString placeholders(qsizetype count)
{
    QStringList marks;
    marks.fill(QStringLiteral("?"), count);
    return marks.join(QStringLiteral(", "));
}

}

RowStatement::RowStatement(const QSqlDatabase &db, const QString &statement) : m_query(db)
{
    if (!m_query.prepare(statement))
        throw StoreError(m_query.lastError().text());
}

void RowStatement::run(const QVariantList &values)
{
    const bool first = m_bound.size() != values.size();
    if (first)
        m_bound = values;
    for (int i = 0; i < values.size(); ++i) {
        if (first || !sameBinding(m_bound[i], values[i])) {
            m_query.bindValue(i, values[i]);
            m_bound[i] = values[i];
        }
    }
    if (!m_query.exec())
        throw StoreError(m_query.lastError().text());
}

void ReplaceTableRows(const QSqlDatabase &db, const QString &table, const QList<QVariantList> &rows)
{
    const Sql sql(db);
    const QString name = Sql::identifier(table);
    QStringList columns;
    QList<int> changed;
    qsizetype stored = 0;
    bool inPlace = true;
    {
        QSqlQuery current = sql.run(QStringLiteral("SELECT rowid, * FROM %1 ORDER BY rowid").arg(name));
        const QSqlRecord record = current.record();
        for (int c = 1; c < record.count(); ++c)
            columns << Sql::identifier(record.fieldName(c));
        // A row of another width goes to the plain rewrite, which fails as it always did.
        inPlace = std::all_of(rows.cbegin(), rows.cend(), [&](const QVariantList &row) { return row.size() == columns.size(); });
        while (inPlace && current.next()) {
            ++stored;
            // Rowids other than 1, 2, 3 ... are not what a rewrite leaves.
            if (current.value(0).toLongLong() != stored) {
                inPlace = false;
                break;
            }
            const qsizetype at = stored - 1;
            if (at >= rows.size())
                continue;
            const QVariantList &wanted = rows[at];
            bool same = true;
            for (int c = 0; same && c < wanted.size(); ++c)
                same = storedAs(current.value(c + 1), wanted[c]);
            if (!same)
                changed << int(at);
        }
    }
    if (!inPlace) {
        sql.run(QStringLiteral("DELETE FROM %1").arg(name));
        if (rows.isEmpty())
            return;
        RowStatement insert(db, QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(name, placeholders(rows.first().size())));
        for (const QVariantList &row : rows)
            insert.run(row);
        return;
    }
    if (!changed.isEmpty()) {
        QStringList sets;
        for (const QString &column : std::as_const(columns))
            sets << column + QStringLiteral(" = ?");
        RowStatement update(db, QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?").arg(name, sets.join(QStringLiteral(", "))));
        for (int at : std::as_const(changed))
            update.run(rows[at] + QVariantList{at + 1});
    }
    if (stored > rows.size())
        sql.run(QStringLiteral("DELETE FROM %1 WHERE rowid > ?").arg(name), {rows.size()});
    if (rows.size() > stored) {
        RowStatement insert(db, QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(name, placeholders(columns.size())));
        for (qsizetype at = stored; at < rows.size(); ++at)
            insert.run(rows[at]);
    }
}
