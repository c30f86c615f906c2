#pragma once
#include "masterscreen.h"
#include "referencemasterservice.h"

// What tells one single-name master screen from another: its names, captions and limits.
struct ReferenceScreenSetup
{
    QString formName;
    QString caption;
    int helpScreenNo = 0;
    QString fieldName;
    QString fieldCaption;
    int limit = 30;
    QString searchName;
    QString searchCaption;
    QString heading; // the grid's name column
    QString codeHeading = {}; // the grid's hidden code column, when not named as the table's
};

// A master of one name per row (states, blood groups, salutations). Each such screen is a class of its own,
// named as the form, that passes its kind and setup here.
class ReferenceMasterScreen : public MasterScreen
{
    Q_OBJECT
protected:
    ReferenceMasterScreen(AppContext &ctx, const ReferenceKind &kind, const ReferenceScreenSetup &setup,
                          QWidget *parent);

    QList<QStringList> findRows(const QString &text) const override;
    bool recordExists(int code) const override;
    void showRecord(int code) override;
    SaveResult saveRecord(int code) override;
    void removeRecord(int code) override;
    QWidget *fieldFor(MasterField field) const override;

private:
    ReferenceMasterService service() const;

    const ReferenceKind &m_kind;
    QLineEdit *m_txtName = nullptr;
};
