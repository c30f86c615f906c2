#pragma once
#include "codename.h"
#include "masterrecord.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

// One of the single-name reference masters (states, blood groups, salutations): its table and the texts
// its Save and Delete show.
struct ReferenceKind
{
    QString table;
    QString codeColumn;
    QString nameColumn;
    bool trimStoredName = false; // the duplicate test also trims the stored name
    QString enterName;
    QString alreadyExists;
    QString updated;
    QString saved;
    QString notFound;
    QString deleteQuestion;
    QString makerColumn = {}; // a column that records the user who made the row, where the table has one

    static const ReferenceKind &state();
    static const ReferenceKind &bloodGroup();
    static const ReferenceKind &salutation();
};

// Search, Save and Delete of one single-name reference master. Store failures throw StoreError.
class ReferenceMasterService
{
public:
    // `makerCode` is the user at work, written into the kind's maker column of a new row.
    ReferenceMasterService(const QSqlDatabase &db, const ReferenceKind &kind, int makerCode = 0)
        : m_db(db), m_kind(kind), m_makerCode(makerCode) {}

    // Rows with a code above 0 whose name holds `text`, by name.
    QList<CodeName> search(const QString &text) const;
    // The stored name, or nothing when the row is gone.
    std::optional<QString> name(int code) const;
    // Checks and writes the name: a new row when `code` is 0, else an update of that row.
    SaveResult save(int code, const QString &name) const;
    // Deletes the row; refused (StoreError) while another table uses it.
    void remove(int code) const;

private:
    QString table() const;
    QSqlDatabase m_db;
    const ReferenceKind &m_kind;
    int m_makerCode = 0;
};
