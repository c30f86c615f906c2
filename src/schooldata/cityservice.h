#pragma once
#include "codename.h"
#include "masterrecord.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

struct CityRow
{
    int cityCode = 0;
    int stateCode = 0;
    QString stateName;
    QString cityName;
};

// The rules of the city master: a city belongs to a state, its name is unique only inside that state, and
// a city already in use keeps its state. Store failures throw StoreError.
class CityService
{
public:
    explicit CityService(const QSqlDatabase &db) : m_db(db) {}

    // The blank entry (code 0), then every state by name.
    QList<CodeName> states() const;
    // Cities whose name holds `text`, of the state `stateCode` when it is above 0; by state, then city.
    QList<CityRow> search(const QString &text, int stateCode) const;
    std::optional<CityRow> city(int code) const;
    // Does another table use the city (a teacher, the school)?
    bool isUsed(int code) const;
    // Checks and writes: a new city when `code` is 0, else an update of that city.
    SaveResult save(int code, int stateCode, const QString &name) const;
    // Deletes the city; refused (StoreError) while another table uses it.
    void remove(int code) const;

private:
    QSqlDatabase m_db;
};
