#include "teachersearch.h"
#include "sql.h"

#include <QSqlQuery>

QList<TeacherSearch::Row> TeacherSearch::find(const Criteria &criteria) const
{
    // Code 0 of a master is its "none" row: the grid shows it as a blank.
    QString statement = QStringLiteral(
        "SELECT t.TeacherCode, t.TeacherName, t.TeacherShortName, t.Telephone, t.NoOfPeriods, t.SeniorityNo, "
        "CASE WHEN COALESCE(s.StateCode, 0) = 0 THEN '' ELSE s.StateName END, "
        "CASE WHEN COALESCE(c.CityCode, 0) = 0 THEN '' ELSE c.CityName END, "
        "CASE WHEN COALESCE(b.BloodGroupCode, 0) = 0 THEN '' ELSE b.BloodGroupName END "
        "FROM TeacherMaster t "
        "LEFT JOIN CityMaster c ON c.CityCode = t.CityCode "
        "LEFT JOIN StateMaster s ON s.StateCode = c.StateCode "
        "LEFT JOIN BloodGroupMaster b ON b.BloodGroupCode = t.BloodGroupCode "
        "WHERE t.TeacherCode > 0");
    QVariantList values;
    // instr() rather than LIKE: a quote, '%', '_' or '[' in the typed text is matched as itself.
    if (!criteria.name.trimmed().isEmpty()) {
        statement += QStringLiteral(" AND instr(UPPER(t.TeacherName), UPPER(?)) > 0");
        values << criteria.name.trimmed();
    }
    if (criteria.minPeriods) {
        statement += QStringLiteral(" AND t.NoOfPeriods >= ?");
        values << *criteria.minPeriods;
    }
    if (criteria.stateCode > 0) {
        statement += QStringLiteral(" AND c.StateCode = ?");
        values << criteria.stateCode;
    }
    if (criteria.cityCode > 0) {
        statement += QStringLiteral(" AND t.CityCode = ?");
        values << criteria.cityCode;
    }
    statement += QStringLiteral(" ORDER BY t.TeacherName");

    QList<Row> rows;
    QSqlQuery query = Sql(m_db).run(statement, values);
    while (query.next()) {
        const int seniority = query.value(5).toInt();
        rows.append({query.value(0).toInt(), query.value(1).toString(), query.value(2).toString(),
                     query.value(3).toString(), query.value(4).toInt(),
                     seniority > 0 ? QString::number(seniority) : QString(), query.value(6).toString(),
                     query.value(7).toString(), query.value(8).toString()});
    }
    return rows;
}

bool TeacherSearch::exists(int code) const
{
    return Sql(m_db).exists(QStringLiteral("SELECT 1 FROM TeacherMaster WHERE TeacherCode = ? AND TeacherCode > 0"),
                            {code});
}
