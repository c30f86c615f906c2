#pragma once
#include <QSqlDatabase>
#include <QString>

// The field a refused Save of a master puts the focus back on.
enum class MasterField { None, Name, ShortName, State };

// What a master's Save came to: the confirmation to show, or the refusal and the field to correct.
struct SaveResult
{
    bool saved = false;
    QString message;
    MasterField field = MasterField::None;
    int code = 0; // the code of the row written

    static SaveResult refused(const QString &message, MasterField field) { return {false, message, field, 0}; }
    static SaveResult done(const QString &message, int code) { return {true, message, MasterField::None, code}; }
};

// Rules every master keeps alike: how names are compared and searched, and the refusal of a delete that
// would orphan a user of the record.
namespace MasterRecords {

// Names are compared upper-cased; `trimStored` also ignores blanks around the stored name, for masters whose
// old rows may still carry them. `wanted` is the trimmed entry.
bool sameName(const QString &stored, const QString &wanted, bool trimStored);
// The search of every master grid: the text anywhere in the name, case ignored, taken literally.
bool matchesSearch(const QString &name, const QString &text);
// Deletes the row of `code` in one transaction. When another table still uses the code, throws StoreError
// with a text naming that table, before anything is written.
void removeUnused(const QSqlDatabase &db, const QString &table, const QString &codeColumn, int code);

}
