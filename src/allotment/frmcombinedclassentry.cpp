#include "frmcombinedclassentry.h"
#include "codecombo.h"
#include "frmcombinedclassentrysearch.h"
#include "screen.h"

#include <QComboBox>
#include <QPushButton>

frmCombinedClassEntry::frmCombinedClassEntry(AppContext &ctx, QWidget *parent)
    : CombinedListedForm(ctx, Combined::Kind::Class, parent)
{
    m_cboClassAdd = CombinedUi::combo(this, QStringLiteral("cboClassAdd"));
    m_cboDivisionAdd = CombinedUi::combo(this, QStringLiteral("cboDivisionAdd"));
    connect(m_cboClassAdd, &QComboBox::activated, this, &frmCombinedClassEntry::classAddChosen);
    connect(m_cboDivisionAdd, &QComboBox::activated, this, &frmCombinedClassEntry::divisionAddChosen);

    ListedParts parts;
    parts.addCaption = QStringLiteral("Combine With Class-Division");
    parts.firstLabel = QStringLiteral("Class :");
    parts.firstAdd = m_cboClassAdd;
    parts.secondLabel = QStringLiteral("Division :");
    parts.secondAdd = m_cboDivisionAdd;
    parts.listCaption = QStringLiteral("Class-Divisions In This Group");
    parts.headers = {QStringLiteral("Class Name"), QStringLiteral("Division Name"), QStringLiteral("Class Code"),
                     QStringLiteral("DivisionCode")};
    parts.removeQuestion = QStringLiteral("Do You Want To Remove The Selected Class-Division From The Group ?");
    parts.resetWhenPlaced = true;
    finishListed(parts);
}

QStringList frmCombinedClassEntry::cellsOf(const Row &row) const
{
    return {row.className, row.divisionName, QString::number(row.classCode), QString::number(row.division)};
}

void frmCombinedClassEntry::clearEntry()
{
    clearMain();
    CombinedUi::fill(m_cboClassAdd, m_groups.classes());
    clearList();
}

void frmCombinedClassEntry::classAddChosen()
{
    Screen::guarded(m_ctx, [this] {
        CombinedUi::fill(m_cboDivisionAdd, m_groups.divisionsOf(CodeCombo::code(m_cboClassAdd)));
    });
}

void frmCombinedClassEntry::divisionAddChosen()
{
    Screen::guarded(m_ctx, [this] {
        const int classCode = CodeCombo::code(m_cboClassAdd);
        const int division = CodeCombo::code(m_cboDivisionAdd);
        if (accept(m_service.checkAddedDivision(draft(), classCode, division)) && division > 0)
            m_cmdAdd->setFocus();
    });
}

void frmCombinedClassEntry::add()
{
    Screen::guarded(m_ctx, [this] {
        const int classCode = CodeCombo::code(m_cboClassAdd);
        const int division = CodeCombo::code(m_cboDivisionAdd);
        if (!accept(m_service.checkAdd(draft(), classCode, division, chosenClass(), chosenDivision(), chosenSubject())))
            return;
        m_listed.append({classCode, division, m_cboClassAdd->currentText(), m_cboDivisionAdd->currentText()});
        showList();
        CombinedUi::select(m_cboDivisionAdd, 0);
        m_cboDivisionAdd->setFocus();
    });
}

CombinedSearchForm *frmCombinedClassEntry::createSearchForm()
{
    return new frmCombinedClassEntrySearch(m_ctx, this);
}
