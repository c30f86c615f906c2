#pragma once
#include "smallschoolfixture.h"
#include "teststore.h"

#include <QSqlQuery>

// The TimeTable rows of a slot as "class/division:subject:teacher:manual:cc:ct", in table order.
inline QStringList slotRows(TestStore &store, int day, int period)
{
    QStringList rows;
    QSqlQuery query(store.db());
    query.prepare(QStringLiteral("SELECT ClassCode || '/' || DivisionCode || ':' || SubjectCode || ':' || TeacherCode "
                                 "|| ':' || Manual || ':' || IFNULL(CC, '') || ':' || IFNULL(CT, '') FROM TimeTable "
                                 "WHERE DayCode = ? AND PeriodCode = ? ORDER BY rowid"));
    query.addBindValue(day);
    query.addBindValue(period);
    query.exec();
    while (query.next())
        rows << query.value(0).toString();
    return rows;
}
