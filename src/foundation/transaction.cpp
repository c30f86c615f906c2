#include "transaction.h"
#include "sql.h"
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
        Sql::throwError(query.lastError());
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
        // The write lock is taken now, before the step reads what it depends on: a second writer waits here
        // (up to the connection's busy timeout) instead of failing later on a stale read.
        execOrThrow(m_db, QStringLiteral("BEGIN IMMEDIATE"));
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
        QSqlQuery query(m_db);
        if (!query.exec(QStringLiteral("COMMIT"))) {
            const QSqlError error = query.lastError();
            QSqlQuery(m_db).exec(QStringLiteral("ROLLBACK"));
            Sql::throwError(error);
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
        QSqlQuery(m_db).exec(QStringLiteral("ROLLBACK"));
    } else {
        execOrThrow(m_db, QStringLiteral("ROLLBACK TO ") + savepoint(m_depth - 1));
        execOrThrow(m_db, QStringLiteral("RELEASE ") + savepoint(m_depth - 1));
    }
}

bool Transaction::isOpen(const QSqlDatabase &db)
{
    return depths().value(db.connectionName()) > 0;
}
