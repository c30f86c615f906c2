#pragma once
#include "schema.h"

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

// Opens the program's store files, creating a prepared file when one is missing, and answers the questions
// the program asks of the store's catalogue.
class Store
{
public:
    enum class Access { ReadWrite, ReadOnly };

    // Opens `file` in `folder` as connection `connectionName`, first creating it with every table and seed
    // row when it does not exist (never in ReadOnly). An existing file is recognised before it is used: it must
    // carry this program's mark, hold its key table and be of a version this program reads (an older one is
    // upgraded in one transaction after a copy is kept). Foreign keys are switched on. Throws StoreError;
    // UnusableStore names the file and the cause, and the file is left as it was.
    static QSqlDatabase open(StoreFile file, const QString &folder, const QString &connectionName,
                             Access access = Access::ReadWrite);
    // Why the file at `path` cannot be used as `file`, read from its header alone; empty when it looks like
    // ours (a missing file is not looked at here).
    static QString headerProblem(const QString &path, StoreFile file);
    // SQLite's quick check of an open store: empty when it passes, else what it found (first lines).
    static QString integrityProblem(const QSqlDatabase &db);
    // The words for a file that cannot be used: its path and the cause.
    static QString unusableText(const QString &path, const QString &cause);
    // Closes and forgets the connection; every query on it must be gone already.
    static void close(const QString &connectionName);
    // True when `path` is a store file of this program of the given kind (a restore checks this first).
    static bool isOurs(const QString &path, StoreFile file);

    // Does the table exist (tables made at run time are asked for by name).
    static bool tableExists(const QSqlDatabase &db, const QString &table);

    // One relationship: `childTable.childColumns` refer to `parentColumns` of the asked table.
    struct Reference {
        QString childTable;
        QStringList childColumns;
        QStringList parentColumns;
    };
    // Every relationship that refers to `table`, from the store's own catalogue.
    static QList<Reference> referencesTo(const QSqlDatabase &db, const QString &table);

    // The first table, other than `table` itself, with a row whose reference to `table.codeColumn` equals
    // `code`; empty when nothing uses the code.
    static QString firstUserOf(const QSqlDatabase &db, const QString &table, const QString &codeColumn,
                               const QVariant &code);
    // "Time Table" for "TimeTable": a table name as words, for messages.
    static QString displayName(const QString &table);
    // The message shown when a delete is refused because `userTable` still uses the record.
    static QString usedElsewhereText(const QString &userTable);
};
