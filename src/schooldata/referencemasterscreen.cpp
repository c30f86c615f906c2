#include "referencemasterscreen.h"
#include "session.h"

#include <QFormLayout>
#include <QLineEdit>

ReferenceMasterScreen::ReferenceMasterScreen(AppContext &ctx, const ReferenceKind &kind,
                                             const ReferenceScreenSetup &setup, QWidget *parent)
    : MasterScreen(ctx,
                   {setup.formName, setup.caption, setup.helpScreenNo, QStringLiteral("dgdDetails"),
                    {setup.heading, setup.codeHeading.isEmpty() ? kind.codeColumn : setup.codeHeading}, 1, 0, setup.searchName, setup.searchCaption, setup.limit,
                    kind.notFound, kind.deleteQuestion},
                   parent),
      m_kind(kind)
{
    m_txtName = new QLineEdit(this);
    m_txtName->setObjectName(setup.fieldName);
    m_txtName->setMaxLength(setup.limit);
    fieldLayout()->addRow(setup.fieldCaption, m_txtName);
    finishSetup();
}

ReferenceMasterService ReferenceMasterScreen::service() const
{
    return ReferenceMasterService(m_ctx.db(), m_kind, m_ctx.session.userCode);
}

QList<QStringList> ReferenceMasterScreen::findRows(const QString &text) const
{
    QList<QStringList> rows;
    for (const CodeName &row : service().search(text))
        rows.append({row.name, QString::number(row.code)});
    return rows;
}

bool ReferenceMasterScreen::recordExists(int code) const
{
    return service().name(code).has_value();
}

void ReferenceMasterScreen::showRecord(int code)
{
    m_txtName->setText(service().name(code).value_or(QString()));
}

SaveResult ReferenceMasterScreen::saveRecord(int code)
{
    return service().save(code, m_txtName->text());
}

void ReferenceMasterScreen::removeRecord(int code)
{
    service().remove(code);
}

QWidget *ReferenceMasterScreen::fieldFor(MasterField field) const
{
    return field == MasterField::None ? nullptr : m_txtName;
}
