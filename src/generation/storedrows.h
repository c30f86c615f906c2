#pragma once
#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <optional>

// A prepared statement with `?` placeholders, run once per row of values. Binding costs QtSql more than
// SQLite's insert of the row, so the placeholders are bound by name (QtSql would build a name for each
// positional value) and a value bound the same way for the row before is not bound again.
class RowStatement
{
public:
    RowStatement(const QSqlDatabase &db, const QString &statement);
    void run(const QVariantList &values);

private:
    QSqlQuery m_query;
    QStringList m_names;
    QVariantList m_bound;
};

// Inserts rows in the order given, several to a statement: running a statement costs SQLite and QtSql about
// as much again as the row it inserts. finish() inserts the rows still held back.
class RowInserter
{
public:
    // `head` is "INSERT INTO Table (columns) VALUES", `row` the values of one row: "(?, ?, '', ?)".
    RowInserter(const QSqlDatabase &db, const QString &head, const QString &row);
    void insert(const QVariantList &values);
    void finish();

private:
    static constexpr int Batch = 16;
    QSqlDatabase m_db;
    QString m_head, m_row;
    std::optional<RowStatement> m_batch, m_single;
    QVariantList m_held;
    int m_heldRows = 0;
};

// Makes `table` hold `rows` in rowid order from 1, each row giving every column in table order: the state
// that deleting every row and inserting `rows` leaves. Rows already stored alike are not written again, so a
// list that changed in a few rows costs one read and a few updates; a table whose rowids are not 1 to its
// row count is emptied and filled as before. The caller holds the transaction.
void ReplaceTableRows(const QSqlDatabase &db, const QString &table, const QList<QVariantList> &rows);
