#include "masterscreen.h"
#include "messageservice.h"
#include "privileges.h"
#include "session.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

using Screen::EntryState;

MasterScreen::MasterScreen(AppContext &ctx, const Setup &setup, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_setup(setup)
{
    setObjectName(setup.formName);
    setWindowTitle(setup.caption);
    buildLayout();

    connect(m_cmdNew, &QPushButton::clicked, this, &MasterScreen::newRecord);
    connect(m_cmdEdit, &QPushButton::clicked, this, &MasterScreen::editRecord);
    connect(m_cmdDelete, &QPushButton::clicked, this, &MasterScreen::deleteRecord);
    connect(m_cmdSave, &QPushButton::clicked, this, &MasterScreen::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &MasterScreen::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &MasterScreen::exitScreen);
    connect(m_txtSearch, &QLineEdit::textChanged, this, &MasterScreen::refresh);
    connect(m_dgdDetails, &QTableWidget::cellDoubleClicked, this, [this](int row) { chooseRow(row); });
}

void MasterScreen::buildLayout()
{
    m_frame = new QGroupBox(this);
    m_frame->setObjectName(QStringLiteral("Frame1"));
    m_fields = new QFormLayout(m_frame);

    m_cmdNew = Screen::button(this, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdDelete = Screen::button(this, "cmdDelete", QStringLiteral("&Delete"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave, m_cmdCancel})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(m_cmdExit);

    auto *search = new QGroupBox(QStringLiteral("Search"), this);
    search->setObjectName(QStringLiteral("fraSearch"));
    m_txtSearch = new QLineEdit(search);
    m_txtSearch->setObjectName(m_setup.searchName);
    m_txtSearch->setMaxLength(m_setup.searchLimit);
    m_txtSearch->setClearButtonEnabled(true);
    m_dgdDetails = new QTableWidget(0, int(m_setup.headings.size()), search);
    m_dgdDetails->setObjectName(m_setup.gridName);
    m_dgdDetails->setHorizontalHeaderLabels(m_setup.headings);
    m_dgdDetails->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_dgdDetails->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_dgdDetails->setSelectionMode(QAbstractItemView::SingleSelection);
    m_dgdDetails->setAlternatingRowColors(true);
    m_dgdDetails->verticalHeader()->hide();
    m_dgdDetails->verticalHeader()->setDefaultSectionSize(m_dgdDetails->fontMetrics().height() + 8);
    for (int column = 0; column < m_setup.visibleColumns; ++column)
        m_dgdDetails->horizontalHeader()->setSectionResizeMode(
            column, column == m_setup.stretchColumn ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    for (int column = m_setup.visibleColumns; column < m_setup.headings.size(); ++column)
        m_dgdDetails->setColumnHidden(column, true);
    m_dgdDetails->installEventFilter(this);
    auto *searchField = new QFormLayout;
    searchField->addRow(m_setup.searchCaption, m_txtSearch);
    auto *searchLayout = new QVBoxLayout(search);
    searchLayout->addLayout(searchField);
    searchLayout->addWidget(m_dgdDetails, 1);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_frame);
    layout->addLayout(buttons);
    layout->addWidget(search, 1);
    resize(480, 460);
}

void MasterScreen::finishSetup()
{
    Screen::applyConventions(this, m_ctx, m_setup.helpScreenNo);
    cancel();
}

void MasterScreen::refresh()
{
    QList<QStringList> rows;
    Screen::guarded(m_ctx, [&] { rows = findRows(m_txtSearch->text()); });
    m_dgdDetails->clearContents();
    m_dgdDetails->setRowCount(int(rows.size()));
    for (int row = 0; row < rows.size(); ++row) {
        const QStringList &cells = rows.at(row);
        for (int column = 0; column < cells.size(); ++column)
            m_dgdDetails->setItem(row, column, new QTableWidgetItem(cells.at(column)));
    }
}

void MasterScreen::cancel()
{
    {
        const QSignalBlocker quiet(m_txtSearch);
        Screen::ClearControls(this);
    }
    m_code = 0;
    Screen::guarded(m_ctx, [this] { reloadLists(); });
    refresh();
    setState(EntryState::Idle);
}

void MasterScreen::clearSearch()
{
    const QSignalBlocker quiet(m_txtSearch);
    m_txtSearch->clear();
}

void MasterScreen::continueNew()
{
    m_code = 0;
    setState(EntryState::New);
}

void MasterScreen::setState(EntryState state)
{
    m_state = state;
    Screen::EntryButtons{m_frame, m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave}.setState(state);
    if (state == EntryState::New || state == EntryState::Edit)
        firstField()->setFocus();
}

void MasterScreen::newRecord()
{
    if (!AllowedOrSay(m_ctx, m_setup.formName, Privileges::New))
        return;
    {
        const QSignalBlocker quiet(m_txtSearch);
        Screen::ClearControls(m_frame);
    }
    m_code = 0;
    setState(EntryState::New);
    // A list may have grown on another screen since this one was last cleared.
    Screen::guarded(m_ctx, [this] { reloadLists(); });
}

void MasterScreen::editRecord()
{
    if (m_code <= 0 || !AllowedOrSay(m_ctx, m_setup.formName, Privileges::Edit))
        return;
    setState(EntryState::Edit);
    Screen::guarded(m_ctx, [this] { editStarted(); });
}

void MasterScreen::deleteRecord()
{
    if (m_code <= 0 || !AllowedOrSay(m_ctx, m_setup.formName, Privileges::Delete))
        return;
    if (!m_ctx.messages->question(m_setup.deleteQuestion))
        return;
    if (!Screen::guarded(m_ctx, [this] { removeRecord(m_code); }))
        return;
    cancel();
    m_ctx.messages->information(Texts::recordDeleted());
}

void MasterScreen::save()
{
    if (m_state != EntryState::New && m_state != EntryState::Edit)
        return;
    const bool wasNew = m_state == EntryState::New;
    SaveResult result;
    if (!Screen::guarded(m_ctx, [&] { result = saveRecord(wasNew ? 0 : m_code); }))
        return;
    m_ctx.messages->information(result.message);
    if (!result.saved) {
        if (QWidget *field = fieldFor(result.field))
            field->setFocus();
        return;
    }
    m_code = result.code;
    if (wasNew)
        newSaved();
    else
        cancel();
}

void MasterScreen::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void MasterScreen::chooseRow(int row)
{
    const QTableWidgetItem *codeCell = m_dgdDetails->item(row, m_setup.visibleColumns);
    const int code = codeCell ? codeCell->text().toInt() : 0;
    if (code <= 0)
        return;
    bool shown = false;
    const bool ran = Screen::guarded(m_ctx, [&] {
        if (!recordExists(code)) {
            m_ctx.messages->information(m_setup.notFound);
            refresh();
            return;
        }
        if (!m_ctx.messages->question(QStringLiteral("Do You Want To Edit/Delete ?")))
            return;
        showRecord(code);
        shown = true;
    });
    if (!ran || !shown)
        return;
    m_code = code;
    setState(EntryState::Chosen);
}

bool MasterScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_dgdDetails && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            chooseRow(m_dgdDetails->currentRow());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
