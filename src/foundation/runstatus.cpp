#include "runstatus.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"

namespace {
void setStatus(const QSqlDatabase &db, const QString &status)
{
    Transaction transaction(db);
    Sql(db).run(QStringLiteral("UPDATE ExamBoardMaster SET Status = ? WHERE BoardCode = 1"), {status});
    transaction.commit();
}
}

namespace RunStatus {

void reset(const QSqlDatabase &db)
{
    Transaction transaction(db);
    const Sql sql(db);
    sql.run(QStringLiteral("DELETE FROM ExamBoardMaster"));
    sql.run(QStringLiteral("INSERT INTO ExamBoardMaster VALUES (1, 1, 'A')"));
    transaction.commit();
}

bool heartbeat(const QSqlDatabase &db)
{
    if (Transaction::isOpen(db))
        return false;
    setStatus(db, QStringLiteral("A"));
    return true;
}

void markStopped(const QSqlDatabase &db)
{
    setStatus(db, QStringLiteral("I"));
}

void ensureClasswiseWorkingDays(const QSqlDatabase &db)
{
    try {
        Sql(db).run(QStringLiteral("CREATE TABLE classwisenoofworkingdays (ClassCode INTEGER PRIMARY KEY "
                                   "REFERENCES ClassDivisionMaster (ClassCode) DEFERRABLE INITIALLY DEFERRED, "
                                   "NoOfWorkingDays INTEGER)"));
    } catch (const StoreError &) {
        // The table is already there: that is the usual case.
    }
}

}
