#include "sql.h"
#include "storeerror.h"

#include <QRegularExpression>
#include <QSqlError>

namespace {
QString errorText(const QSqlError &error)
{
    const QString driver = error.driverText().trimmed();
    const QString database = error.databaseText().trimmed();
    if (database.isEmpty())
        return driver.isEmpty() ? error.text() : driver;
    return database;
}
}

QSqlQuery Sql::run(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        throw StoreError(errorText(query.lastError()));
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        throw StoreError(errorText(query.lastError()));
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
