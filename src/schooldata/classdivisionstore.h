#pragma once
#include "classdivisions.h"

#include <QSqlDatabase>

// Reads and writes ClassDivisionMaster and ClassDivisionDetails as one whole, the way the class division
// screen keeps them. Store failures throw StoreError; a write that fails rolls back.
class ClassDivisionStore
{
public:
    explicit ClassDivisionStore(const QSqlDatabase &db) : m_db(db) {}

    // Every class above code 0 by ClassOrder, each with its divisions by DivisionCode.
    QList<ClassRow> load() const;
    // The highest ClassCode ever stored that is still there (0 with only the code-0 row).
    int highestClassCode() const;

    // Adds the named rows as new classes with their divisions, in one transaction.
    void saveNew(const QList<ClassRow> &rows) const;
    // Makes the store hold exactly the named rows: divisions and classes the grid no longer has are deleted,
    // unless another screen still uses them. Returns the refusal text (nothing is written then), or an empty
    // text when all is written.
    QString saveEdit(const QList<ClassRow> &rows) const;

    // When two classes share a ClassOrder, numbers every class 1, 2, ... by ClassCode. True when it did.
    bool rearrangeClassOrder() const;

private:
    QString removeUnusedDivisions(const QList<ClassRow> &rows) const;
    void writeClass(const ClassRow &row) const;
    QString removeUnusedClasses(const QList<ClassRow> &rows) const;
    void insertMissing(const QList<ClassRow> &rows) const;
    void insertClass(const ClassRow &row) const;
    void insertDivision(int classCode, const CodeName &division) const;
    int uses(const QStringList &tables, const QString &where, const QVariantList &values) const;

    QSqlDatabase m_db;
};
