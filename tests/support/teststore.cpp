#include "teststore.h"
#include "scriptedmessages.h"
#include "sql.h"
#include "store.h"
#include "storeerror.h"

#include <QTest>

namespace {
int nextConnection = 0;
}

TestStore::TestStore()
    : m_connection(QStringLiteral("test_%1").arg(++nextConnection))
{
    m_dir.setAutoRemove(true);
    Store::open(StoreFile::Main, m_dir.path(), m_connection);
    m_ctx.connectionName = m_connection;
    m_ctx.dataFolder = m_dir.path();
    m_ctx.tempFolder = m_dir.filePath(QStringLiteral("Temp"));
}

TestStore::~TestStore()
{
    if (QTest::currentTestFailed())
        m_dir.setAutoRemove(false);
    Store::close(m_connection);
}

QSqlDatabase TestStore::db() const
{
    return QSqlDatabase::database(m_connection, false);
}

void TestStore::setMessages(ScriptedMessages &messages)
{
    m_ctx.messages = &messages;
}

void TestStore::setUpSchool(int days, int periods, int lastDay, int morning)
{
    exec(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala')"));
    exec(QStringLiteral("INSERT INTO CityMaster VALUES (1, 1, 'Kochi')"));
    exec(QStringLiteral("INSERT INTO SchoolSetup VALUES ('Model School', 'Main Road', 'Ward 4', 1, '682001', "
                        "?, ?, ?, ?, 1)"),
         {days, periods, lastDay, morning});
    for (int p = 1; p <= periods; ++p)
        exec(QStringLiteral("INSERT INTO PeriodDuration VALUES (?, ?, 45)"), {p, QStringLiteral("P%1").arg(p)});
    m_ctx.session.calendar.load(db());
}

void TestStore::addTeacher(const Teacher &teacher) const
{
    exec(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, ?, ?, ?, NULL, 'S', NULL, NULL, '', '', '', 0, '', '', 0, '', "
                        "?, ?, 0, 0, 0, 0)"),
         {teacher.code, teacher.salutation, teacher.name, teacher.shortName, teacher.periods, teacher.seniority});
}

void TestStore::exec(const QString &statement, const QVariantList &values) const
{
    try {
        Sql(db()).run(statement, values);
    } catch (const StoreError &error) {
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    }
}

QVariant TestStore::scalar(const QString &statement, const QVariantList &values) const
{
    return Sql(db()).scalar(statement, values);
}

int TestStore::count(const QString &table) const
{
    return scalar(QStringLiteral("SELECT COUNT(*) FROM ") + Sql::identifier(table)).toInt();
}
