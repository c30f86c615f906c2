#include "frmcombinedteacherentry.h"
#include "frmcombinedteacherentrysearch.h"
#include "messageservice.h"
#include "session.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using Combined::TeacherSubjectRow;

frmCombinedTeacherEntry::frmCombinedTeacherEntry(AppContext &ctx, QWidget *parent)
    : CombinedMainRowForm(ctx, Combined::Kind::Teacher, parent), m_service(ctx.db())
{
    m_fraAdd = new QGroupBox(QStringLiteral("Combine With Teacher"), this);
    m_fraAdd->setObjectName(QStringLiteral("fraAdd"));
    m_cboTeacherAdd = CombinedUi::combo(m_fraAdd, QStringLiteral("cboTeacherAdd"));
    m_cboSubjectAdd = CombinedUi::combo(m_fraAdd, QStringLiteral("cboSubjectAdd"));
    m_cmdAdd = new QPushButton(QStringLiteral("&Add"), m_fraAdd);
    m_cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    m_cmdAdd->setAutoDefault(false);
    auto *adding = new QHBoxLayout(m_fraAdd);
    adding->addWidget(new QLabel(QStringLiteral("Teacher :"), m_fraAdd));
    adding->addWidget(m_cboTeacherAdd, 1);
    adding->addSpacing(16);
    adding->addWidget(new QLabel(QStringLiteral("Subject :"), m_fraAdd));
    adding->addWidget(m_cboSubjectAdd, 1);
    adding->addSpacing(16);
    adding->addWidget(m_cmdAdd);

    auto *listBox = new QGroupBox(QStringLiteral("Teachers In This Group"), this);
    m_msgDetails = CombinedUi::grid(listBox, QStringLiteral("msgDetails"),
                                    {QStringLiteral("Teacher Name"), QStringLiteral("Subject Name"),
                                     QStringLiteral("Teacher Code"), QStringLiteral("SubjectCode")},
                                    2);
    auto *list = new QVBoxLayout(listBox);
    list->addWidget(m_msgDetails);

    auto *content = new QVBoxLayout;
    content->addWidget(m_fraMain);
    content->addWidget(m_fraAdd);
    content->addWidget(listBox, 1);
    resize(640, 520);

    connect(m_cboTeacherAdd, &QComboBox::activated, this, &frmCombinedTeacherEntry::teacherAddChosen);
    connect(m_cmdAdd, &QPushButton::clicked, this, &frmCombinedTeacherEntry::add);
    connect(m_msgDetails, &QTableWidget::cellClicked, this, &frmCombinedTeacherEntry::listedClicked);

    finish(content, {m_fraMain, m_fraAdd});
}

Combined::TeacherDraft frmCombinedTeacherEntry::draft() const
{
    return {mainRow(), m_listed, editing(), keptKey(), groupNo()};
}

bool frmCombinedTeacherEntry::listedPlaced() const
{
    return m_service.listedPlaced(draft());
}

void frmCombinedTeacherEntry::showList()
{
    QList<QStringList> cells;
    for (const TeacherSubjectRow &row : std::as_const(m_listed))
        cells.append({row.teacherName, row.subjectName, QString::number(row.teacher), QString::number(row.subject)});
    CombinedUi::show(m_msgDetails, cells);
}

void frmCombinedTeacherEntry::clearList()
{
    m_listed.clear();
    showList();
    CombinedUi::select(m_cboTeacherAdd, 0);
    CombinedUi::fill(m_cboSubjectAdd, {});
}

void frmCombinedTeacherEntry::clearEntry()
{
    clearMain();
    CombinedUi::fill(m_cboTeacherAdd, m_groups.teachers());
    clearList();
}

void frmCombinedTeacherEntry::showGroup(const Combined::Key &key, int groupNo)
{
    const std::optional<Combined::MainRow> main = m_groups.mainRowOfGroup(groupNo);
    showMain(main ? *main : m_groups.mainRow(key.classCode, key.division, key.subject).value_or(Combined::MainRow{}));
    m_listed = m_service.listed(groupNo);
    showList();
}

void frmCombinedTeacherEntry::teacherAddChosen()
{
    guarded([this] {
        if (!accept(m_service.checkTeacherChoice(draft(), CombinedUi::code(m_cboTeacherAdd))))
            return;
        const int subject = CombinedUi::code(m_cboSubjectAdd);
        CombinedUi::fill(m_cboSubjectAdd, m_groups.subjects());
        CombinedUi::select(m_cboSubjectAdd, subject);
    });
}

void frmCombinedTeacherEntry::add()
{
    guarded([this] {
        Combined::TeacherAddition added;
        added.teacher = CombinedUi::code(m_cboTeacherAdd);
        added.teacherName = m_cboTeacherAdd->currentText();
        added.subject = CombinedUi::code(m_cboSubjectAdd);
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

void frmCombinedTeacherEntry::listedClicked(int row)
{
    if (!changing() || row < 0 || row >= m_listed.size())
        return;
    guarded([&] {
        if (m_service.listedPlaced(draft())) {
            m_ctx.messages->information(Combined::groupPlacedText());
            return;
        }
        if (!m_ctx.messages->question(QStringLiteral("Do You Want To Remove The Selected Teacher And Subject From The Group ?")))
            return;
        m_listed.removeAt(row);
        showList();
    });
}

bool frmCombinedTeacherEntry::saveEntry()
{
    const Combined::TeacherDraft current = draft();
    if (!accept(m_service.checkSave(current, chosenClass(), chosenDivision(), chosenSubject())))
        return false;
    m_service.save(current);
    return true;
}

CombinedSearchForm *frmCombinedTeacherEntry::createSearchForm()
{
    return new frmCombinedTeacherEntrySearch(m_ctx, this);
}
