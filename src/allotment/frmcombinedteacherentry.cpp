#include "frmcombinedteacherentry.h"
#include "codecombo.h"
#include "frmcombinedteacherentrysearch.h"
#include "screen.h"

#include <QComboBox>

frmCombinedTeacherEntry::frmCombinedTeacherEntry(AppContext &ctx, QWidget *parent)
    : CombinedListedForm(ctx, Combined::Kind::Teacher, parent)
{
    m_cboTeacherAdd = CombinedUi::combo(this, QStringLiteral("cboTeacherAdd"));
    m_cboSubjectAdd = CombinedUi::combo(this, QStringLiteral("cboSubjectAdd"));
    connect(m_cboTeacherAdd, &QComboBox::activated, this, &frmCombinedTeacherEntry::teacherAddChosen);

    ListedParts parts;
    parts.addCaption = QStringLiteral("Combine With Teacher");
    parts.firstLabel = QStringLiteral("Teacher :");
    parts.firstAdd = m_cboTeacherAdd;
    parts.secondLabel = QStringLiteral("Subject :");
    parts.secondAdd = m_cboSubjectAdd;
    parts.listCaption = QStringLiteral("Teachers In This Group");
    parts.headers = {QStringLiteral("Teacher Name"), QStringLiteral("Subject Name"), QStringLiteral("Teacher Code"),
                     QStringLiteral("SubjectCode")};
    parts.removeQuestion = QStringLiteral("Do You Want To Remove The Selected Teacher And Subject From The Group ?");
    finishListed(parts);
}

QStringList frmCombinedTeacherEntry::cellsOf(const Row &row) const
{
    return {row.teacherName, row.subjectName, QString::number(row.teacher), QString::number(row.subject)};
}

void frmCombinedTeacherEntry::clearEntry()
{
    clearMain();
    CombinedUi::fill(m_cboTeacherAdd, m_groups.teachers());
    clearList();
}

void frmCombinedTeacherEntry::teacherAddChosen()
{
    Screen::guarded(m_ctx, [this] {
        if (!accept(m_service.checkTeacherChoice(draft(), CodeCombo::code(m_cboTeacherAdd))))
            return;
        const int subject = CodeCombo::code(m_cboSubjectAdd);
        CombinedUi::fill(m_cboSubjectAdd, m_groups.subjects());
        CombinedUi::select(m_cboSubjectAdd, subject);
    });
}

void frmCombinedTeacherEntry::add()
{
    Screen::guarded(m_ctx, [this] {
        Combined::TeacherAddition added;
        added.teacher = CodeCombo::code(m_cboTeacherAdd);
        added.teacherName = m_cboTeacherAdd->currentText();
        added.subject = CodeCombo::code(m_cboSubjectAdd);
        added.mainClass = chosenClass();
        added.mainDivision = chosenDivision();
        added.mainSubject = chosenSubject();
        if (!accept(m_service.checkAdd(draft(), added)))
            return;
        m_listed.append({added.teacher, added.subject, added.teacherName, m_cboSubjectAdd->currentText()});
        showList();
        CombinedUi::select(m_cboTeacherAdd, 0);
        CombinedUi::fill(m_cboSubjectAdd, {});
        m_cboTeacherAdd->setFocus();
    });
}

CombinedSearchForm *frmCombinedTeacherEntry::createSearchForm()
{
    return new frmCombinedTeacherEntrySearch(m_ctx, this);
}
