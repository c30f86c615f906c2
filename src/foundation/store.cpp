#include "store.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"
#include "helptexts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

namespace {

QSqlDatabase connect(const QString &path, const QString &connectionName)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    db.setDatabaseName(path);
    if (!db.open()) {
        const QString text = db.lastError().text();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
        throw StoreError(text);
    }
    return db;
}

void fillHelp(const Sql &sql)
{
    for (const HelpText &help : helpTexts())
        sql.run(QStringLiteral("INSERT INTO HelpDetails VALUES (?, ?, ?)"),
                {help.scrno, help.screenName, help.details});
}

// Builds the file under a temporary name and renames it at the end, so that a failure never leaves a
// half-made store behind for the next start to open.
void create(StoreFile file, const QString &path)
{
    const QString building = path + QStringLiteral(".new");
    QFile::remove(building);
    const QString connectionName = QStringLiteral("tt_create_") + Schema::fileName(file);
    {
        QSqlDatabase db = connect(building, connectionName);
        try {
            Sql sql(db);
            sql.run(QStringLiteral("PRAGMA application_id = %1").arg(Schema::applicationId(file)));
            sql.run(QStringLiteral("PRAGMA user_version = %1").arg(Schema::Version));
            Transaction transaction(db);
            sql.script(Schema::creationScript(file));
            if (file == StoreFile::Help)
                fillHelp(sql);
            transaction.commit();
        } catch (const StoreError &) {
            db.close();
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(connectionName);
            QFile::remove(building);
            throw;
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(connectionName);
    if (!QFile::rename(building, path)) {
        QFile::remove(building);
        throw StoreError(QStringLiteral("Cannot create ") + QDir::toNativeSeparators(path));
    }
}

QStringList splitCamel(const QString &name)
{
    QStringList words;
    QString word;
    for (int i = 0; i < name.size(); ++i) {
        const QChar c = name.at(i);
        const bool startsWord = c.isUpper() && !word.isEmpty()
            && (!word.back().isUpper() || (i + 1 < name.size() && name.at(i + 1).isLower()));
        if (startsWord) {
            words << word;
            word.clear();
        }
        word += c;
    }
    if (!word.isEmpty())
        words << word;
    return words;
}

}

QSqlDatabase Store::open(StoreFile file, const QString &folder, const QString &connectionName)
{
    const QString path = QDir(folder).filePath(Schema::fileName(file));
    if (!QFileInfo::exists(path))
        create(file, path);
    QSqlDatabase db = connect(path, connectionName);
    QSqlQuery pragma(db);
    if (!pragma.exec(QStringLiteral("PRAGMA foreign_keys = ON"))) {
        const QString text = pragma.lastError().text();
        pragma = QSqlQuery();
        close(connectionName);
        throw StoreError(text);
    }
    return db;
}

void Store::close(const QString &connectionName)
{
    {
        QSqlDatabase db = QSqlDatabase::database(connectionName, false);
        if (db.isValid())
            db.close();
    }
    QSqlDatabase::removeDatabase(connectionName);
}

bool Store::isOurs(const QString &path, StoreFile file)
{
    QFile handle(path);
    if (!handle.open(QIODevice::ReadOnly))
        return false;
    // The SQLite header: the magic text, then the application id as a big-endian integer at offset 68.
    const QByteArray header = handle.read(100);
    if (header.size() < 100 || !header.startsWith("SQLite format 3"))
        return false;
    const auto byte = [&](int i) { return quint32(quint8(header.at(i))); };
    const quint32 id = (byte(68) << 24) | (byte(69) << 16) | (byte(70) << 8) | byte(71);
    return id == quint32(Schema::applicationId(file));
}

bool Store::tableExists(const QSqlDatabase &db, const QString &table)
{
    return Sql(db).exists(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? "
                                         "COLLATE NOCASE"),
                          {table.trimmed()});
}

QList<Store::Reference> Store::referencesTo(const QSqlDatabase &db, const QString &table)
{
    QList<Reference> references;
    QSqlQuery tables = Sql(db).run(QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name"));
    while (tables.next()) {
        const QString child = tables.value(0).toString();
        QSqlQuery keys = Sql(db).run(QStringLiteral("SELECT id, \"table\", \"from\", \"to\" "
                                                    "FROM pragma_foreign_key_list(?) ORDER BY id, seq"),
                                     {child});
        int currentId = -1;
        while (keys.next()) {
            if (keys.value(1).toString().compare(table, Qt::CaseInsensitive) != 0)
                continue;
            if (keys.value(0).toInt() != currentId) {
                currentId = keys.value(0).toInt();
                references.append({child, {}, {}});
            }
            references.last().childColumns << keys.value(2).toString();
            references.last().parentColumns << keys.value(3).toString();
        }
    }
    return references;
}

QString Store::firstUserOf(const QSqlDatabase &db, const QString &table, const QString &codeColumn,
                           const QVariant &code)
{
    for (const Reference &reference : referencesTo(db, table)) {
        if (reference.childTable.compare(table, Qt::CaseInsensitive) == 0)
            continue; // a table does not count as its own user
        qsizetype column = -1;
        for (qsizetype i = 0; i < reference.parentColumns.size() && column < 0; ++i)
            if (reference.parentColumns.at(i).compare(codeColumn, Qt::CaseInsensitive) == 0)
                column = i;
        if (column < 0)
            continue;
        const QString statement = QStringLiteral("SELECT 1 FROM %1 WHERE %2 = ? LIMIT 1")
                                      .arg(Sql::identifier(reference.childTable),
                                           Sql::identifier(reference.childColumns.at(column)));
        if (Sql(db).exists(statement, {code}))
            return reference.childTable;
    }
    return {};
}

QString Store::displayName(const QString &table)
{
    return splitCamel(table).join(QLatin1Char(' '));
}

QString Store::usedElsewhereText(const QString &userTable)
{
    return QStringLiteral("This Record Is Used In '%1'. So You Cannot Delete It").arg(displayName(userTable));
}
