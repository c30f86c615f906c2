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

QSqlDatabase connect(const QString &path, const QString &connectionName, bool readOnly = false)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    db.setDatabaseName(path);
    if (readOnly)
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
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

int userVersion(const QSqlDatabase &db)
{
    return Sql(db).scalar(QStringLiteral("PRAGMA user_version")).toInt();
}

// Brings an older store up to this program's version: a copy of the file is kept first, and every step runs
// in one transaction, so a failure leaves the store as it was.
void upgrade(const QSqlDatabase &db, StoreFile file, const QString &path, int version)
{
    QStringList steps;
    for (int from = version; from < Schema::Version; ++from) {
        const QString step = Schema::upgradeScript(file, from);
        if (step.isEmpty())
            throw UnusableStore(Store::unusableText(
                path, QStringLiteral("Its Version %1 Is Older Than This Program Can Read").arg(version)));
        steps << step;
    }
    const QString copy = path + QStringLiteral(".version%1").arg(version);
    QFile::remove(copy);
    if (!QFile::copy(path, copy))
        throw StoreError(QStringLiteral("Cannot keep a copy of %1 before it is upgraded")
                             .arg(QDir::toNativeSeparators(path)));
    const Sql sql(db);
    Transaction transaction(db);
    for (const QString &step : steps)
        sql.script(step);
    sql.run(QStringLiteral("PRAGMA user_version = %1").arg(Schema::Version));
    transaction.commit();
}

// The checks an existing file passes before anything reads or writes it.
void recognise(const QSqlDatabase &db, StoreFile file, const QString &path, Store::Access access)
{
    int version = 0;
    try {
        version = userVersion(db);
        if (!Store::tableExists(db, Schema::keyTable(file)))
            throw UnusableStore(Store::unusableText(
                path, QStringLiteral("It Has No Table %1").arg(Schema::keyTable(file))));
    } catch (const UnusableStore &) {
        throw;
    } catch (const StoreError &error) {
        throw UnusableStore(Store::unusableText(path, error.text()));
    }
    if (version > Schema::Version)
        throw UnusableStore(Store::unusableText(
            path, QStringLiteral("It Was Made By A Newer Version Of Zarlo-TimeTable (%1; This One Reads %2)")
                      .arg(version)
                      .arg(Schema::Version)));
    if (version < Schema::Version) {
        if (access == Store::Access::ReadOnly)
            throw UnusableStore(Store::unusableText(path, QStringLiteral("It Must Be Upgraded, And It Is Read-Only")));
        upgrade(db, file, path, version);
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

QSqlDatabase Store::open(StoreFile file, const QString &folder, const QString &connectionName, Access access)
{
    const QString path = QDir(folder).filePath(Schema::fileName(file));
    if (!QFileInfo::exists(path)) {
        if (access == Access::ReadOnly)
            throw UnusableStore(unusableText(path, QStringLiteral("It Does Not Exist")));
        create(file, path);
    } else if (const QString problem = headerProblem(path, file); !problem.isEmpty()) {
        throw UnusableStore(unusableText(path, problem));
    }
    QSqlDatabase db = connect(path, connectionName, access == Access::ReadOnly);
    try {
        recognise(db, file, path, access);
        Sql(db).run(QStringLiteral("PRAGMA foreign_keys = ON"));
    } catch (const StoreError &) {
        db = QSqlDatabase();
        close(connectionName);
        throw;
    }
    return db;
}

QString Store::headerProblem(const QString &path, StoreFile file)
{
    QFile handle(path);
    if (!handle.open(QIODevice::ReadOnly))
        return QStringLiteral("It Cannot Be Read (%1)").arg(handle.errorString());
    const qint64 size = handle.size();
    if (size == 0)
        return QStringLiteral("It Is Empty");
    const QByteArray header = handle.read(100);
    if (header.size() < 100 || !header.startsWith(QByteArray("SQLite format 3\0", 16)))
        return QStringLiteral("It Is Not A Database");
    const auto byte = [&](int i) { return quint32(quint8(header.at(i))); };
    const auto word = [&](int i) { return (byte(i) << 24) | (byte(i + 1) << 16) | (byte(i + 2) << 8) | byte(i + 3); };
    const quint32 id = word(68);
    if (id != quint32(Schema::applicationId(file))) {
        for (StoreFile other : {StoreFile::Main, StoreFile::BackupHistory, StoreFile::Help})
            if (id == quint32(Schema::applicationId(other)))
                return QStringLiteral("It Is The File '%1', Not '%2'")
                    .arg(Schema::fileName(other), Schema::fileName(file));
        return QStringLiteral("It Is A Database Of Another Program");
    }
    // The page count in the header is valid while its "valid for" counter equals the change counter.
    const quint32 pageSize = (byte(16) << 8 | byte(17)) == 1 ? 65536 : (byte(16) << 8 | byte(17));
    const quint32 pages = word(28);
    if (word(24) == word(92) && qint64(pageSize) * pages > size)
        return QStringLiteral("It Is Cut Short: %1 Of Its %2 Bytes Are There")
            .arg(size).arg(qint64(pageSize) * pages);
    return {};
}

QString Store::integrityProblem(const QSqlDatabase &db)
{
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("PRAGMA quick_check(5)")))
        return query.lastError().text();
    QStringList found;
    while (query.next())
        found << query.value(0).toString();
    if (found == QStringList{QStringLiteral("ok")})
        return {};
    return found.join(QLatin1String("; "));
}

QString Store::unusableText(const QString &path, const QString &cause)
{
    return QStringLiteral("The File '%1' Cannot Be Used: %2. It Has Been Left As It Is.")
        .arg(QDir::toNativeSeparators(path), cause);
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
    return QFileInfo::exists(path) && headerProblem(path, file).isEmpty();
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
