#include "sql.h"
#include "storeerror.h"

#include <QRegularExpression>
#include <QSqlError>

namespace {
QString errorText(const QSqlError &error)
{
    if (Sql::isBusy(error))
        return StoreBusy::busyText();
    const QString driver = error.driverText().trimmed();
    const QString database = error.databaseText().trimmed();
    if (database.isEmpty())
        return driver.isEmpty() ? error.text() : driver;
    return database;
}
}

bool Sql::isBusy(const QSqlError &error)
{
    bool number = false;
    const int code = error.nativeErrorCode().toInt(&number) & 0xff;
    return number && (code == 5 || code == 6); // SQLITE_BUSY, SQLITE_LOCKED
}

void Sql::throwError(const QSqlError &error)
{
    if ((error.nativeErrorCode().toInt() & 0xff) == 8) // SQLITE_READONLY
        throw StoreError(QStringLiteral("This School Is Open Read-Only: Nothing Can Be Changed Or Saved"));
    if (isBusy(error))
        throw StoreBusy(StoreBusy::busyText());
    throw StoreError(errorText(error));
}

QSqlQuery Sql::run(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        throwError(query.lastError());
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        throwError(query.lastError());
    return query;
}

QVariant Sql::scalar(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query = run(statement, values);
    return query.next() ? query.value(0) : QVariant();
}

bool Sql::exists(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query = run(statement, values);
    return query.next();
}

void Sql::script(const QString &statements) const
{
    const QStringList parts = statements.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        if (part.trimmed().isEmpty())
            continue;
        QSqlQuery query(m_db);
        if (!query.exec(part))
            throw StoreError(errorText(query.lastError()) + QStringLiteral(" (") + part.trimmed().left(80)
                             + QStringLiteral(")"));
    }
}

QString Sql::identifier(const QString &name)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (!plain.match(name).hasMatch())
        throw StoreError(QStringLiteral("Invalid table or column name: ") + name);
    return name;
}
