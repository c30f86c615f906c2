#include "combinedsearchform.h"
#include "codecombo.h"
#include "combinedentryform.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QString idFieldName(Combined::Kind kind)
{
    switch (kind) {
    case Combined::Kind::Subject:
        return QStringLiteral("txtCombinedSubjectId");
    case Combined::Kind::Class:
        return QStringLiteral("txtCombinedClassId");
    case Combined::Kind::Teacher:
        return QStringLiteral("txtCombinedTeacherId");
    }
    return {};
}

}

CombinedSearchForm::CombinedSearchForm(AppContext &ctx, Combined::Kind kind, QWidget *parent)
    : QWidget(parent, Qt::Window), m_ctx(ctx), m_kind(kind), m_groups(ctx.db(), kind)
{
    setObjectName(Combined::formName(kind) + QStringLiteral("Search"));
    setWindowTitle(Combined::searchCaption(kind));

    auto *filters = new QGroupBox(QStringLiteral("Find Groups By"), this);
    m_cboClass = CombinedUi::combo(filters, QStringLiteral("cboClass"));
    m_cboSubject = CombinedUi::combo(filters, QStringLiteral("cboSubject"));
    m_cboTeacher = CombinedUi::combo(filters, QStringLiteral("cboTeacher"));
    m_txtCombinedId = new QLineEdit(filters);
    m_txtCombinedId->setObjectName(idFieldName(kind));
    Screen::DigitsOnly(m_txtCombinedId, 9);
    m_cmdSearch = Screen::button(filters, "cmdSearch", QStringLiteral("&Search"));

    auto *filterGrid = new QGridLayout(filters);
    filterGrid->addWidget(new QLabel(QStringLiteral("Class Name :"), filters), 0, 0);
    filterGrid->addWidget(m_cboClass, 0, 1);
    filterGrid->addWidget(new QLabel(QStringLiteral("Subject Name :"), filters), 0, 2);
    filterGrid->addWidget(m_cboSubject, 0, 3);
    filterGrid->addWidget(new QLabel(QStringLiteral("Teacher Name :"), filters), 1, 0);
    filterGrid->addWidget(m_cboTeacher, 1, 1);
    filterGrid->addWidget(new QLabel(Combined::groupIdCaption(kind), filters), 1, 2);
    filterGrid->addWidget(m_txtCombinedId, 1, 3);
    filterGrid->addWidget(m_cmdSearch, 1, 4);
    filterGrid->setColumnStretch(1, 1);
    filterGrid->setColumnStretch(3, 1);

    m_msgDetails = CombinedUi::grid(this, QStringLiteral("msgDetails"),
                                    {Combined::groupIdHeader(kind), QStringLiteral("Teacher Name"),
                                     QStringLiteral("Class Name"), QStringLiteral("Division Name"),
                                     QStringLiteral("Subject Name"), QStringLiteral("Periods"),
                                     QStringLiteral("ClassCode"), QStringLiteral("DivisionCode"),
                                     QStringLiteral("SubjectCode"), QStringLiteral("TeacherCode")},
                                    6, {0, 5});
    auto *hint = new QLabel(QStringLiteral("Click a row to open its group."), this);
    hint->setEnabled(false);
    m_cmdClear = Screen::button(this, "cmdClear", QStringLiteral("&Clear"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(hint);
    buttons->addStretch();
    buttons->addWidget(m_cmdClear);
    buttons->addWidget(m_cmdExit);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(filters);
    layout->addWidget(m_msgDetails, 1);
    layout->addLayout(buttons);
    resize(760, 440);

    connect(m_cmdSearch, &QPushButton::clicked, this, &CombinedSearchForm::search);
    connect(m_cmdClear, &QPushButton::clicked, this, &CombinedSearchForm::clearFilters);
    connect(m_cmdExit, &QPushButton::clicked, this, &CombinedSearchForm::exitForm);
    connect(m_msgDetails, &QTableWidget::cellClicked, this, &CombinedSearchForm::rowClicked);

    Screen::guarded(ctx, [this] {
        CombinedUi::fill(m_cboClass, m_groups.classes());
        CombinedUi::fill(m_cboSubject, m_groups.subjects());
        CombinedUi::fill(m_cboTeacher, m_groups.teachers());
    });
    Screen::applyConventions(this, ctx, Combined::helpScreenNo(kind));
}

Combined::SearchFilter CombinedSearchForm::filter() const
{
    Combined::SearchFilter filter;
    filter.classCode = CodeCombo::code(m_cboClass);
    filter.subject = CodeCombo::code(m_cboSubject);
    filter.teacher = CodeCombo::code(m_cboTeacher);
    bool number = false;
    const int groupNo = m_txtCombinedId->text().trimmed().toInt(&number);
    if (number)
        filter.groupNo = groupNo;
    return filter;
}

void CombinedSearchForm::search()
{
    if (m_searching)
        return;
    m_searching = true;
    const Combined::SearchFilter wanted = filter();
    if (wanted.empty() && !m_ctx.messages->question(Combined::viewAllQuestion(m_kind))) {
        m_searching = false;
        m_cboClass->setFocus();
        return;
    }
    m_rows.clear();
    Screen::guarded(m_ctx, [&] { m_rows = m_groups.search(wanted); });
    QList<QStringList> cells;
    for (const Combined::SearchRow &row : std::as_const(m_rows)) {
        cells.append({QString::number(row.groupNo), row.teacherName, row.className, row.divisionName,
                      row.subjectName, QString::number(row.periods), QString::number(row.key.classCode),
                      QString::number(row.key.division), QString::number(row.key.subject),
                      QString::number(row.key.teacher)});
    }
    CombinedUi::show(m_msgDetails, cells);
    if (m_rows.isEmpty())
        m_ctx.messages->information(QStringLiteral("No Record Exists"));
    m_searching = false;
}

void CombinedSearchForm::rowClicked(int row)
{
    if (row < 0 || row >= m_rows.size())
        return;
    const Combined::SearchRow chosen = m_rows.at(row);
    bool stands = false;
    if (!Screen::guarded(m_ctx, [&] { stands = m_groups.stillInGroup(chosen.key, chosen.groupNo); }))
        return;
    if (!stands) {
        m_ctx.messages->information(QStringLiteral("Record Has Been Deleted In Master Screen"));
        return;
    }
    if (!m_ctx.messages->question(QStringLiteral("Do You Want To Edit/Delete ?")))
        return;
    emit groupChosen(chosen.key, chosen.groupNo);
    Screen::closeScreen(this);
}

void CombinedSearchForm::clearFilters()
{
    for (QComboBox *combo : {m_cboClass, m_cboSubject, m_cboTeacher})
        CombinedUi::select(combo, 0);
    m_txtCombinedId->clear();
    m_rows.clear();
    CombinedUi::show(m_msgDetails, {});
    m_cboClass->setFocus();
}

void CombinedSearchForm::exitForm()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}
