#pragma once
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

class QSqlError;

// Runs statements with bound values on one connection. Every failure throws StoreError with the
// driver's text, so a Save can stop at its first failed statement and let its Transaction roll back.
class Sql
{
public:
    explicit Sql(const QSqlDatabase &db) : m_db(db) {}

    // Prepares `statement` (positional `?` placeholders), binds `values` in order and runs it.
    QSqlQuery run(const QString &statement, const QVariantList &values = {}) const;
    // First column of the first row, or an invalid QVariant when there is no row.
    QVariant scalar(const QString &statement, const QVariantList &values = {}) const;
    // True when the statement gives at least one row.
    bool exists(const QString &statement, const QVariantList &values = {}) const;
    // Runs several statements separated by ';' (schema scripts with no values).
    void script(const QString &statements) const;

    QSqlDatabase db() const { return m_db; }

    // True when the store refused because another connection holds it (after the wait ran out).
    static bool isBusy(const QSqlError &error);
    // Throws the error as StoreError, or as StoreBusy with words for the user when another writer holds the store.
    [[noreturn]] static void throwError(const QSqlError &error);

    // Table and column names are never user text; this guards the few places that take one as a parameter.
    static QString identifier(const QString &name);

private:
    QSqlDatabase m_db;
};
