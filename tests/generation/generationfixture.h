#pragma once
#include "completion.h"
#include "generationengine.h"
#include "messageservice.h"
#include "phaseonechecks.h"
#include "teststore.h"

#include <QSqlQuery>
#include <QStringList>
#include <limits>

// Answers Yes to every question and keeps every text, for the runs whose messages are not the point.
class YesMessages final : public MessageService
{
public:
    QStringList texts;
    void information(const QString &text, const QString &) override { texts << text; }
    void critical(const QString &text, const QString &) override { texts << QStringLiteral("critical: ") + text; }
    bool question(const QString &text, const QString &) override { texts << text; return true; }
    bool okCancel(const QString &text, const QString &) override { texts << text; return true; }
};

// 5 days of 6 periods, 4 on the last day, 3 in the morning; classes I (A, B) and II (A); subjects and
// teachers 1 to 4. Teachers have 30 periods, so none needs a free period left (type 3).
inline void buildGenerationSchool(TestStore &store)
{
    store.setUpSchool(5, 6, 4, 3);
    store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 2, 1), (2, 'II', 1, 2)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (2, 'A', 1)"));
    for (int i = 1; i <= 4; ++i) {
        store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?)"),
                   {i, QStringLiteral("Subject %1").arg(i), QStringLiteral("S%1").arg(i)});
        store.addTeacher({i, QStringLiteral("Teacher %1").arg(i), QStringLiteral("T%1").arg(i)});
    }
    store.exec(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays VALUES (1, 5), (2, 5)"));
}

inline void allot(TestStore &store, int teacher, int classCode, int division, int subject, int periods, int cp = 0)
{
    store.exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, ?, '', '', ?, 0, 0, '', '')"),
               {teacher, classCode, division, subject, periods, cp ? "CP" : "", cp});
}

inline void place(TestStore &store, int classCode, int division, int day, int period, int subject, int teacher,
                  const char *manual)
{
    store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, ?, '', '', '')"),
               {classCode, division, day, period, subject, teacher, QString::fromLatin1(manual)});
}

// The slots of an allotment's rows as "day:period", in table order.
inline QStringList slotsOf(TestStore &store, int teacher, int classCode, int division, int subject)
{
    QSqlQuery q(store.db());
    q.prepare(QStringLiteral("SELECT DayCode || ':' || PeriodCode FROM TimeTable WHERE TeacherCode = ? AND ClassCode = ? "
                             "AND DivisionCode = ? AND SubjectCode = ? ORDER BY rowid"));
    for (int v : {teacher, classCode, division, subject})
        q.addBindValue(v);
    q.exec();
    QStringList found;
    while (q.next())
        found << q.value(0).toString();
    return found;
}

// The school of the completion tests: `days` days of `periods` periods, `morning` of them in the morning;
// classes I (A, B) and II (A); teachers and subjects 1 to `teachers`, each teacher busy for the whole week so
// that no free period is asked for (type 3). Phase I has run, with no uniform period.
inline void buildCompletionSchool(TestStore &store, int days, int periods, int morning, int teachers)
{
    store.setUpSchool(days, periods, periods, morning);
    store.exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 2, 1), (2, 'II', 1, 2)"));
    store.exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (2, 'A', 1)"));
    for (int i = 1; i <= teachers; ++i) {
        store.exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?)"),
                   {i, QStringLiteral("Subject %1").arg(i), QStringLiteral("S%1").arg(i)});
        store.addTeacher({i, QStringLiteral("Teacher %1").arg(i), QStringLiteral("T%1").arg(i), days * periods});
    }
    store.exec(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays VALUES (1, ?), (2, ?)"), {days, days});
    PhaseOneChecks::BuildFreePeriodDetails(store.db(), store.context().session.calendar);
    store.exec(QStringLiteral("INSERT INTO AGP1Master VALUES ('NO')"));
    store.exec(QStringLiteral("UPDATE TTCode SET PIStatus = 'Y'"));
}

// A completion bounded by its steps, not by the clock: the result must not depend on how busy the machine is.
inline Completion::Settings stepBounded(qint64 steps = 200000)
{
    Completion::Settings settings;
    settings.timeLimitSeconds = std::numeric_limits<double>::infinity();
    settings.iterationLimit = steps;
    return settings;
}
