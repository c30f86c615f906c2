#include "frmcombinedclassentry.h"
#include "frmcombinedclassentrysearch.h"
#include "messageservice.h"
#include "session.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using Combined::ClassDivisionRow;

frmCombinedClassEntry::frmCombinedClassEntry(AppContext &ctx, QWidget *parent)
    : CombinedMainRowForm(ctx, Combined::Kind::Class, parent), m_service(ctx.db())
{
    m_fraAdd = new QGroupBox(QStringLiteral("Combine With Class-Division"), this);
    m_fraAdd->setObjectName(QStringLiteral("fraAdd"));
    m_cboClassAdd = CombinedUi::combo(m_fraAdd, QStringLiteral("cboClassAdd"));
    m_cboDivisionAdd = CombinedUi::combo(m_fraAdd, QStringLiteral("cboDivisionAdd"));
    m_cmdAdd = new QPushButton(QStringLiteral("&Add"), m_fraAdd);
    m_cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    m_cmdAdd->setAutoDefault(false);
    auto *adding = new QHBoxLayout(m_fraAdd);
    adding->addWidget(new QLabel(QStringLiteral("Class :"), m_fraAdd));
    adding->addWidget(m_cboClassAdd, 1);
    adding->addSpacing(16);
    adding->addWidget(new QLabel(QStringLiteral("Division :"), m_fraAdd));
    adding->addWidget(m_cboDivisionAdd, 1);
    adding->addSpacing(16);
    adding->addWidget(m_cmdAdd);

    auto *listBox = new QGroupBox(QStringLiteral("Class-Divisions In This Group"), this);
    m_msgDetails = CombinedUi::grid(listBox, QStringLiteral("msgDetails"),
                                    {QStringLiteral("Class Name"), QStringLiteral("Division Name"),
                                     QStringLiteral("Class Code"), QStringLiteral("DivisionCode")},
                                    2);
    auto *list = new QVBoxLayout(listBox);
    list->addWidget(m_msgDetails);

    auto *content = new QVBoxLayout;
    content->addWidget(m_fraMain);
    content->addWidget(m_fraAdd);
    content->addWidget(listBox, 1);
    resize(640, 520);

    connect(m_cboClassAdd, &QComboBox::activated, this, &frmCombinedClassEntry::classAddChosen);
    connect(m_cboDivisionAdd, &QComboBox::activated, this, &frmCombinedClassEntry::divisionAddChosen);
    connect(m_cmdAdd, &QPushButton::clicked, this, &frmCombinedClassEntry::add);
    connect(m_msgDetails, &QTableWidget::cellClicked, this, &frmCombinedClassEntry::listedClicked);

    finish(content, {m_fraMain, m_fraAdd});
}

Combined::ClassDraft frmCombinedClassEntry::draft() const
{
    return {mainRow(), m_listed, editing(), keptKey(), groupNo()};
}

bool frmCombinedClassEntry::listedPlaced() const
{
    return m_service.listedPlaced(draft());
}

void frmCombinedClassEntry::showList()
{
    QList<QStringList> cells;
    for (const ClassDivisionRow &row : std::as_const(m_listed))
        cells.append({row.className, row.divisionName, QString::number(row.classCode), QString::number(row.division)});
    CombinedUi::show(m_msgDetails, cells);
}

void frmCombinedClassEntry::clearList()
{
    m_listed.clear();
    showList();
    CombinedUi::select(m_cboClassAdd, 0);
    CombinedUi::fill(m_cboDivisionAdd, {});
}

void frmCombinedClassEntry::clearEntry()
{
    clearMain();
    CombinedUi::fill(m_cboClassAdd, m_groups.classes());
    clearList();
}

void frmCombinedClassEntry::showGroup(const Combined::Key &key, int groupNo)
{
    const std::optional<Combined::MainRow> main = m_groups.mainRowOfGroup(groupNo);
    showMain(main ? *main : m_groups.mainRow(key.classCode, key.division, key.subject).value_or(Combined::MainRow{}));
    m_listed = m_service.listed(groupNo);
    showList();
}

void frmCombinedClassEntry::classAddChosen()
{
    guarded([this] { CombinedUi::fill(m_cboDivisionAdd, m_groups.divisionsOf(CombinedUi::code(m_cboClassAdd))); });
}

void frmCombinedClassEntry::divisionAddChosen()
{
    guarded([this] {
        const int classCode = CombinedUi::code(m_cboClassAdd);
        const int division = CombinedUi::code(m_cboDivisionAdd);
        if (accept(m_service.checkAddedDivision(draft(), classCode, division)) && division > 0)
            m_cmdAdd->setFocus();
    });
}

void frmCombinedClassEntry::add()
{
    guarded([this] {
        const int classCode = CombinedUi::code(m_cboClassAdd);
        const int division = CombinedUi::code(m_cboDivisionAdd);
        if (!accept(m_service.checkAdd(draft(), classCode, division, chosenClass(), chosenDivision(), chosenSubject())))
            return;
        m_listed.append({classCode, division, m_cboClassAdd->currentText(), m_cboDivisionAdd->currentText()});
        showList();
        CombinedUi::select(m_cboDivisionAdd, 0);
        m_cboDivisionAdd->setFocus();
    });
}

void frmCombinedClassEntry::listedClicked(int row)
{
    if (!changing() || row < 0 || row >= m_listed.size())
        return;
    guarded([&] {
        if (m_service.listedPlaced(draft())) {
            m_ctx.messages->information(Combined::groupPlacedText());
            reset();
            return;
        }
        if (!m_ctx.messages->question(QStringLiteral("Do You Want To Remove The Selected Class-Division From The Group ?")))
            return;
        m_listed.removeAt(row);
        showList();
    });
}

bool frmCombinedClassEntry::saveEntry()
{
    const Combined::ClassDraft current = draft();
    if (!accept(m_service.checkSave(current, chosenClass(), chosenDivision(), chosenSubject())))
        return false;
    m_service.save(current);
    return true;
}

CombinedSearchForm *frmCombinedClassEntry::createSearchForm()
{
    return new frmCombinedClassEntrySearch(m_ctx, this);
}
