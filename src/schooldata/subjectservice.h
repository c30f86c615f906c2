#pragma once
#include "masterrecord.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

struct SubjectRow
{
    int code = 0;
    QString name;
    QString shortName;
};

// The rules of the subject master: a name and a short name, each unique with case and outer blanks
// ignored, and a rename carried into the saved settings of generation phase I, which hold subjects by name.
// Store failures throw StoreError.
class SubjectService
{
public:
    explicit SubjectService(const QSqlDatabase &db) : m_db(db) {}

    // Subjects whose name holds `text`, by name.
    QList<SubjectRow> search(const QString &text) const;
    std::optional<SubjectRow> subject(int code) const;
    // Checks and writes: a new subject when `code` is 0, else an update (and the carry of a rename).
    SaveResult save(int code, const QString &name, const QString &shortName) const;
    // Deletes the subject; refused (StoreError) while another table uses it.
    void remove(int code) const;

private:
    std::optional<SaveResult> duplicate(int code, const QString &name, const QString &shortName) const;
    SaveResult update(int code, const QString &name, const QString &shortName) const;

    QSqlDatabase m_db;
};
