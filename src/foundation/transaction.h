#pragma once
#include <QSqlDatabase>
#include <QString>

// Scoped transaction on one connection: rolls back unless commit() ran. Guards opened while another is
// open on the same connection become savepoints, so a routine that saves can also run inside a larger Save.
class Transaction
{
public:
    explicit Transaction(const QSqlDatabase &db);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit();
    void rollback();

    // True while a guard is open on the connection (the heartbeat keeps out of a screen's Save).
    static bool isOpen(const QSqlDatabase &db);

private:
    QSqlDatabase m_db;
    int m_depth = 0;
    bool m_done = false;
};
