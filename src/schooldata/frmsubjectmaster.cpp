#include "frmsubjectmaster.h"
#include "session.h"

#include <QFormLayout>
#include <QLineEdit>

frmSubjectMaster::frmSubjectMaster(AppContext &ctx, QWidget *parent)
    : MasterScreen(ctx,
                   {QStringLiteral("frmSubjectMaster"), QStringLiteral("Subject Master"), 8,
                    QStringLiteral("dgdDetails"),
                    {QStringLiteral("Subject Name"), QStringLiteral("Subject Short Name"), QStringLiteral("SubjectCode")},
                    2, 0, QStringLiteral("txtSubjectNameSearch"), QStringLiteral("S&ubject Name :"), 25,
                    QStringLiteral("Subject Name Does Not Exists"),
                    QStringLiteral("Do You Want To Delete This Subject Name ?")},
                   parent)
{
    m_txtSubjectName = new QLineEdit(this);
    m_txtSubjectName->setObjectName(QStringLiteral("txtSubjectName"));
    m_txtSubjectName->setMaxLength(25);
    m_txtSubjectShort = new QLineEdit(this);
    m_txtSubjectShort->setObjectName(QStringLiteral("txtSubjectShort"));
    m_txtSubjectShort->setMaxLength(3);
    // Three letters fit a timetable cell; the field is no wider than that needs.
    m_txtSubjectShort->setMaximumWidth(m_txtSubjectShort->fontMetrics().horizontalAdvance(QStringLiteral("WWWW")) + 16);
    fieldLayout()->addRow(QStringLiteral("Subject Name :"), m_txtSubjectName);
    fieldLayout()->addRow(QStringLiteral("Short Name :"), m_txtSubjectShort);
    finishSetup();
}

SubjectService frmSubjectMaster::service() const
{
    return SubjectService(m_ctx.db());
}

QList<QStringList> frmSubjectMaster::findRows(const QString &text) const
{
    QList<QStringList> rows;
    for (const SubjectRow &row : service().search(text))
        rows.append({row.name, row.shortName, QString::number(row.code)});
    return rows;
}

bool frmSubjectMaster::recordExists(int code) const
{
    return service().subject(code).has_value();
}

void frmSubjectMaster::showRecord(int code)
{
    const std::optional<SubjectRow> subject = service().subject(code);
    if (!subject)
        return;
    m_txtSubjectName->setText(subject->name);
    m_txtSubjectShort->setText(subject->shortName);
}

SaveResult frmSubjectMaster::saveRecord(int code)
{
    return service().save(code, m_txtSubjectName->text(), m_txtSubjectShort->text());
}

void frmSubjectMaster::removeRecord(int code)
{
    service().remove(code);
}

QWidget *frmSubjectMaster::fieldFor(MasterField field) const
{
    switch (field) {
    case MasterField::Name:
    case MasterField::State:
        return m_txtSubjectName;
    case MasterField::ShortName:
        return m_txtSubjectShort;
    case MasterField::None:
        break;
    }
    return nullptr;
}
