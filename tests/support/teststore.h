#pragma once
#include "session.h"

#include <QSqlDatabase>
#include <QTemporaryDir>
#include <QVariantList>

class ScriptedMessages;

// A fresh store in a temporary folder with a connection of its own, and a context for screens over it.
// The folder is kept when a test fails, for a look at the file.
class TestStore
{
public:
    TestStore();
    ~TestStore();

    QSqlDatabase db() const;
    QString folder() const { return m_dir.path(); }
    AppContext &context() { return m_ctx; }
    void setMessages(ScriptedMessages &messages);

    // Writes a school of `days` days, `periods` a day, `lastDay` on the last day and `morning` in the
    // morning, and loads the context's calendar from it.
    void setUpSchool(int days, int periods, int lastDay, int morning);
    // A teacher row with every other field at its empty default: code 0 for city, blood group and class.
    struct Teacher
    {
        int code = 0;
        QString name;
        QString shortName;
        int periods = 30; // NoOfPeriods, the teacher's week
        int salutation = 0;
        int seniority = 0;
    };
    void addTeacher(const Teacher &teacher) const;
    // Runs a statement with values; fails the test on error.
    void exec(const QString &statement, const QVariantList &values = {}) const;
    QVariant scalar(const QString &statement, const QVariantList &values = {}) const;
    int count(const QString &table) const;

private:
    QTemporaryDir m_dir;
    QString m_connection;
    AppContext m_ctx;
};
