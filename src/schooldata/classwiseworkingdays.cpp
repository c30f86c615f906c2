#include "classwiseworkingdays.h"
#include "sql.h"
#include "transaction.h"

bool ClasswiseWorkingDays::rebuildIfClassesChanged(int schoolDays) const
{
    const Sql sql(m_db);
    const int stored =
        sql.scalar(QStringLiteral("SELECT COUNT(*) FROM ClasswiseNoOfWorkingDays WHERE ClassCode > 0")).toInt();
    const int classes =
        sql.scalar(QStringLiteral("SELECT COUNT(*) FROM ClassDivisionMaster WHERE ClassCode > 0")).toInt();
    if (stored == classes)
        return false;
    rebuild(schoolDays);
    return true;
}

void ClasswiseWorkingDays::rebuild(int schoolDays) const
{
    const Sql sql(m_db);
    Transaction transaction(m_db);
    sql.run(QStringLiteral("DELETE FROM ClasswiseNoOfWorkingDays"));
    sql.run(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays (ClassCode, NoOfWorkingDays) "
                           "SELECT ClassCode, ? FROM ClassDivisionMaster WHERE ClassCode > 0"),
            {schoolDays});
    transaction.commit();
}

QList<ClassWorkingDays> ClasswiseWorkingDays::rows(int schoolDays) const
{
    QList<ClassWorkingDays> list;
    QSqlQuery query = Sql(m_db).run(QStringLiteral(
        "SELECT m.ClassCode, m.ClassName, w.NoOfWorkingDays FROM ClassDivisionMaster m "
        "LEFT JOIN ClasswiseNoOfWorkingDays w ON w.ClassCode = m.ClassCode WHERE m.ClassCode > 0 "
        "ORDER BY m.ClassCode"));
    while (query.next()) {
        const int days = query.value(2).isNull() ? schoolDays : query.value(2).toInt();
        list.append({query.value(0).toInt(), query.value(1).toString(), days});
    }
    return list;
}

QString ClasswiseWorkingDays::aboveSchoolDaysText()
{
    // Two texts of the office's wording, shown as one.
    return QStringLiteral("Entered Working Days/Week Cannot Be Greater Than No. Of Working") + QStringLiteral(" Days Entered In School Setup Screen");
}

int ClasswiseWorkingDays::firstMissing(const QList<ClassWorkingDays> &rows)
{
    for (int i = 0; i < rows.size(); ++i) {
        if (!rows.at(i).className.trimmed().isEmpty() && rows.at(i).noOfWorkingDays <= 0)
            return i;
    }
    return -1;
}

void ClasswiseWorkingDays::save(const QList<ClassWorkingDays> &rows) const
{
    const Sql sql(m_db);
    Transaction transaction(m_db);
    sql.run(QStringLiteral("DELETE FROM ClasswiseNoOfWorkingDays"));
    for (const ClassWorkingDays &row : rows) {
        sql.run(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays (ClassCode, NoOfWorkingDays) VALUES (?, ?)"),
                {row.classCode, row.noOfWorkingDays});
    }
    transaction.commit();
}
