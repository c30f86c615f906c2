#pragma once
#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

// A prepared statement run once per row of values. A value bound the same way for the row before is not
// bound again: QtSql names every placeholder it binds, which costs more than SQLite's insert of the row.
class RowStatement
{
public:
    RowStatement(const QSqlDatabase &db, const QString &statement);
    void run(const QVariantList &values);

private:
    QSqlQuery m_query;
    QVariantList m_bound;
};

// Makes `table` hold `rows` in rowid order from 1, each row giving every column in table order: the state
// that deleting every row and inserting `rows` leaves. Rows already stored alike are not written again, so a
// list that changed in a few rows costs one read and a few updates; a table whose rowids are not 1 to its
// row count is emptied and filled as before. The caller holds the transaction.
void ReplaceTableRows(const QSqlDatabase &db, const QString &table, const QList<QVariantList> &rows);
