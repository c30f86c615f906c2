#include "transaction.h"
#include "storeerror.h"

#include <QHash>
#include <QSqlError>
#include <QSqlQuery>

namespace {
QHash<QString, int> &depths()
{
    static QHash<QString, int> open;
    return open;
}

void execOrThrow(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    if (!query.exec(statement))
        throw StoreError(query.lastError().text());
}

QString savepoint(int depth)
{
    return QStringLiteral("tt_save_%1").arg(depth);
}
}

Transaction::Transaction(const QSqlDatabase &db)
    : m_db(db)
{
    int &depth = depths()[m_db.connectionName()];
    if (depth == 0) {
        if (!m_db.transaction())
            throw StoreError(m_db.lastError().text());
    } else {
        execOrThrow(m_db, QStringLiteral("SAVEPOINT ") + savepoint(depth));
    }
    m_depth = ++depth;
}

Transaction::~Transaction()
{
    if (!m_done) {
        try {
            rollback();
        } catch (const StoreError &) {
            // Nothing more can be done while unwinding; the connection reports the next failure.
        }
    }
}

void Transaction::commit()
{
    if (m_done)
        return;
    m_done = true;
    depths()[m_db.connectionName()] = m_depth - 1;
    if (m_depth == 1) {
        if (!m_db.commit()) {
            const QString text = m_db.lastError().text();
            m_db.rollback();
            throw StoreError(text);
        }
    } else {
        execOrThrow(m_db, QStringLiteral("RELEASE ") + savepoint(m_depth - 1));
    }
}

void Transaction::rollback()
{
    if (m_done)
        return;
    m_done = true;
    depths()[m_db.connectionName()] = m_depth - 1;
    if (m_depth == 1) {
        m_db.rollback();
    } else {
        execOrThrow(m_db, QStringLiteral("ROLLBACK TO ") + savepoint(m_depth - 1));
        execOrThrow(m_db, QStringLiteral("RELEASE ") + savepoint(m_depth - 1));
    }
}

bool Transaction::isOpen(const QSqlDatabase &db)
{
    return depths().value(db.connectionName()) > 0;
}
