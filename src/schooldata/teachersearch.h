#pragma once
#include <QList>
#include <QSqlDatabase>
#include <QString>

#include <optional>

// Finds teachers for the teacher master by a part of the name, a least number of periods, a state and a
// city. Store failures throw StoreError.
class TeacherSearch
{
public:
    // An empty name, no periods and codes of 0 leave their criterion out.
    struct Criteria
    {
        QString name;
        std::optional<int> minPeriods;
        int stateCode = 0;
        int cityCode = 0;

        bool isEmpty() const { return name.trimmed().isEmpty() && !minPeriods && stateCode <= 0 && cityCode <= 0; }
    };

    // One line of the result, shown as the grid shows it: references left blank read as empty text.
    struct Row
    {
        int code = 0;
        QString name;
        QString shortName;
        QString telephone;
        int noOfPeriods = 0;
        QString seniorityNo; // empty when not given
        QString stateName;
        QString cityName;
        QString bloodGroupName;
    };

    explicit TeacherSearch(const QSqlDatabase &db) : m_db(db) {}

    // The teachers that meet every given criterion, by name.
    QList<Row> find(const Criteria &criteria) const;
    // Is the teacher still there (another screen may have deleted it since the search)?
    bool exists(int code) const;

private:
    QSqlDatabase m_db;
};
