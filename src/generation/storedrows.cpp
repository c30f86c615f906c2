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

// The statement with its `?` placeholders named :p0, :p1 ... in order; quoted text is left as it is.
QString namedPlaceholders(const QString &statement, QStringList *names)
{
    QString named;
    QChar quote;
    for (const QChar c : statement) {
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'\'' || c == u'"') {
            quote = c;
        } else if (c == u'?') {
            names->append(QStringLiteral(":p%1").arg(names->size()));
            named += names->last();
            continue;
        }
        named += c;
    }
    return named;
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
    if (!m_query.prepare(namedPlaceholders(statement, &m_names)))
        throw StoreError(m_query.lastError().text());
}

void RowStatement::run(const QVariantList &values)
{
    if (values.size() != m_names.size())
        throw StoreError(QStringLiteral("%1 values for %2 placeholders").arg(values.size()).arg(m_names.size()));
    const bool first = m_bound.isEmpty();
    for (int i = 0; i < values.size(); ++i)
        if (first || !sameBinding(m_bound.at(i), values.at(i)))
            m_query.bindValue(m_names.at(i), values.at(i));
    m_bound = values;
    if (!m_query.exec())
        throw StoreError(m_query.lastError().text());
}

RowInserter::RowInserter(const QSqlDatabase &db, const QString &head, const QString &row)
    : m_db(db), m_head(head), m_row(row)
{
}

void RowInserter::insert(const QVariantList &values)
{
    m_held += values;
    if (++m_heldRows < Batch)
        return;
    if (!m_batch) {
        QStringList rows;
        rows.fill(m_row, Batch);
        m_batch.emplace(m_db, m_head + QLatin1Char(' ') + rows.join(QStringLiteral(", ")));
    }
    m_batch->run(m_held);
    m_held.clear();
    m_heldRows = 0;
}

void RowInserter::finish()
{
    if (m_heldRows == 0)
        return;
    if (!m_single)
        m_single.emplace(m_db, m_head + QLatin1Char(' ') + m_row);
    const qsizetype width = m_held.size() / m_heldRows;
    for (int i = 0; i < m_heldRows; ++i)
        m_single->run(m_held.mid(i * width, width));
    m_held.clear();
    m_heldRows = 0;
}

void ReplaceTableRows(const QSqlDatabase &db, const QString &table, const QList<QVariantList> &rows)
{
    const Sql sql(db);
    const QString name = Sql::identifier(table);
    QStringList columns;
    QList<int> changed;
    qsizetype stored = 0;
    bool inPlace = false;
    {
        QSqlQuery current = sql.run(QStringLiteral("SELECT rowid, * FROM %1 ORDER BY rowid").arg(name));
        const QSqlRecord record = current.record();
        for (int c = 1; c < record.count(); ++c)
            columns << Sql::identifier(record.fieldName(c));
        // A row of another width goes to the plain rewrite, which fails as it always did.
        inPlace = std::all_of(rows.cbegin(), rows.cend(),
                              [&](const QVariantList &row) { return row.size() == columns.size(); });
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
        RowInserter insert(db, QStringLiteral("INSERT INTO %1 VALUES").arg(name),
                           QStringLiteral("(%1)").arg(placeholders(rows.first().size())));
        for (const QVariantList &row : rows)
            insert.insert(row);
        insert.finish();
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
        RowInserter insert(db, QStringLiteral("INSERT INTO %1 VALUES").arg(name),
                           QStringLiteral("(%1)").arg(placeholders(columns.size())));
        for (qsizetype at = stored; at < rows.size(); ++at)
            insert.insert(rows[at]);
        insert.finish();
    }
}
