#include "combinedentryform.h"
#include "codecombo.h"
#include "combinedsearchform.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace CombinedUi {

QComboBox *combo(QWidget *parent, const QString &name)
{
    auto *box = new QComboBox(parent);
    box->setObjectName(name);
    box->setMinimumContentsLength(14);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

void fill(QComboBox *combo, const QList<CodeName> &choices)
{
    CodeCombo::fill(combo, choices, false);
    Screen::WidenDropDown(combo);
}

void select(QComboBox *combo, int code)
{
    const QSignalBlocker quiet(combo);
    CodeCombo::select(combo, code);
}

QTableWidget *grid(QWidget *parent, const QString &name, const QStringList &headers, int visibleColumns,
                   const QList<int> &narrowColumns)
{
    auto *table = new QTableWidget(1, int(headers.size()), parent);
    table->setObjectName(name);
    table->setHorizontalHeaderLabels(headers);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    table->verticalHeader()->setVisible(false);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->horizontalHeader()->setHighlightSections(false);
    for (int column : narrowColumns)
        table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    for (int column = visibleColumns; column < headers.size(); ++column)
        table->setColumnHidden(column, true);
    return table;
}

void show(QTableWidget *grid, const QList<QStringList> &rows)
{
    grid->clearContents();
    grid->setRowCount(int(rows.size()) + 1);
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size() && column < grid->columnCount(); ++column)
            grid->setItem(row, column, new QTableWidgetItem(rows[row][column]));
    }
    grid->clearSelection();
}

}

CombinedEntryForm::CombinedEntryForm(AppContext &ctx, Combined::Kind kind, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_kind(kind), m_groups(ctx.db(), kind)
{
    setObjectName(Combined::formName(kind));
    setWindowTitle(Combined::caption(kind));
    m_cmdNew = Screen::button(this, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdDelete = Screen::button(this, "cmdDelete", QStringLiteral("&Delete"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdSearch = Screen::button(this, "cmdSearch", QStringLiteral("Sea&rch"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));
    m_lblGroupNo = new QLabel(this);
    m_lblGroupNo->setObjectName(QStringLiteral("lblGroupNo"));

    connect(m_cmdNew, &QPushButton::clicked, this, &CombinedEntryForm::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &CombinedEntryForm::editEntry);
    connect(m_cmdDelete, &QPushButton::clicked, this, &CombinedEntryForm::deleteEntry);
    connect(m_cmdSave, &QPushButton::clicked, this, &CombinedEntryForm::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &CombinedEntryForm::reset);
    connect(m_cmdSearch, &QPushButton::clicked, this, &CombinedEntryForm::openSearch);
    connect(m_cmdExit, &QPushButton::clicked, this, &CombinedEntryForm::exitScreen);
}

void CombinedEntryForm::finish(QLayout *content, const QList<QWidget *> &frames)
{
    m_frames = frames;
    auto *buttons = new QHBoxLayout;
    for (QPushButton *push : {m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave, m_cmdCancel})
        buttons->addWidget(push);
    buttons->addStretch();
    buttons->addWidget(m_cmdSearch);
    buttons->addWidget(m_cmdExit);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(content, 1);
    layout->addWidget(m_lblGroupNo, 0, Qt::AlignRight);
    layout->addLayout(buttons);

    Screen::applyConventions(this, m_ctx, Combined::helpScreenNo(m_kind));
    reset();
}

bool CombinedEntryForm::accept(const Combined::Verdict &verdict)
{
    if (verdict.ok())
        return true;
    m_ctx.messages->information(verdict.text);
    switch (verdict.then) {
    case Combined::Verdict::Then::Reset:
        reset();
        break;
    case Combined::Verdict::Then::ClearList:
        clearList();
        break;
    default:
        if (auto *field = findChild<QWidget *>(verdict.focus); field && !verdict.focus.isEmpty())
            field->setFocus();
        break;
    }
    return false;
}

void CombinedEntryForm::setState(State state)
{
    m_state = state;
    const bool changing = state == State::New || state == State::Edit;
    for (QWidget *frame : std::as_const(m_frames))
        frame->setEnabled(changing);
    m_cmdNew->setEnabled(state == State::Idle);
    m_cmdEdit->setEnabled(state == State::Loaded);
    m_cmdDelete->setEnabled(state == State::Loaded);
    m_cmdSave->setEnabled(changing);
    m_cmdSearch->setEnabled(!changing);
    const QString number = QString::number(m_groupNo);
    m_lblGroupNo->setText(m_groupNo > 0 ? Combined::groupIdCaption(m_kind) + QLatin1Char(' ') + number : QString());
    if (state == State::Idle)
        m_cmdNew->setFocus();
    else if (state == State::Loaded)
        m_cmdEdit->setFocus();
}

void CombinedEntryForm::reset()
{
    m_keptKey = {};
    m_groupNo = 0;
    m_state = State::Idle;
    Screen::guarded(m_ctx, [this] { clearEntry(); });
    setState(State::Idle);
}

void CombinedEntryForm::loadChosenGroup(const Combined::Key &key, int groupNo)
{
    reset();
    const bool loaded = Screen::guarded(m_ctx, [&] {
        showGroup(key, groupNo);
        m_keptKey = key;
        m_groupNo = groupNo;
    });
    if (!loaded)
        return reset();
    setState(State::Loaded);
}

void CombinedEntryForm::newEntry()
{
    if (!AllowedOrSay(m_ctx, objectName(), Privileges::New))
        return;
    setState(State::New);
    if (QWidget *field = firstField())
        field->setFocus();
}

void CombinedEntryForm::editEntry()
{
    if (!AllowedOrSay(m_ctx, objectName(), Privileges::Edit))
        return;
    bool placed = false;
    if (!Screen::guarded(m_ctx, [&] { placed = m_groups.placedPeriods(m_keptKey); }))
        return;
    if (placed) {
        m_ctx.messages->information(Combined::cannotEditText());
        return;
    }
    setState(State::Edit);
    if (QWidget *field = firstField())
        field->setFocus();
}

void CombinedEntryForm::deleteEntry()
{
    if (!AllowedOrSay(m_ctx, objectName(), Privileges::Delete))
        return;
    if (!m_ctx.messages->question(Combined::deleteQuestion(m_kind)))
        return;
    Screen::guarded(m_ctx, [this] {
        const QString refusal = m_groups.deleteRefusal(m_keptKey);
        if (!refusal.isEmpty()) {
            m_ctx.messages->information(refusal);
            return;
        }
        m_groups.dissolve(m_groupNo);
        m_ctx.messages->information(Texts::recordDeleted());
        reset();
    });
}

void CombinedEntryForm::save()
{
    const bool wasEditing = editing();
    bool written = false;
    if (!Screen::guarded(m_ctx, [&] { written = saveEntry(); }) || !written)
        return;
    m_ctx.messages->information(wasEditing ? Texts::recordUpdated() : Texts::recordSaved());
    reset();
}

void CombinedEntryForm::openSearch()
{
    if (!m_search) {
        m_search = createSearchForm();
        m_search->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_search, &CombinedSearchForm::groupChosen, this, &CombinedEntryForm::loadChosenGroup);
    }
    m_search->show();
    m_search->raise();
    m_search->activateWindow();
}

void CombinedEntryForm::exitScreen()
{
    if (!Screen::ConfirmExit(m_ctx, windowTitle()))
        return;
    if (m_search)
        m_search->close();
    Screen::closeScreen(this);
}
