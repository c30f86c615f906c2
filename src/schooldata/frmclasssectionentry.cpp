#include "frmclasssectionentry.h"
#include "classdivisiongrids.h"
#include "classdivisionstore.h"
#include "messageservice.h"
#include "privileges.h"
#include "session.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace ClassDivisions;

namespace {
const QString FormName = QStringLiteral("frmClassSectionEntry");
}

frmClassSectionEntry::frmClassSectionEntry(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx)
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Class Division Entry"));
    buildLayout();

    connect(m_cmdNew, &QPushButton::clicked, this, &frmClassSectionEntry::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmClassSectionEntry::editEntry);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmClassSectionEntry::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmClassSectionEntry::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmClassSectionEntry::exitScreen);
    connect(m_cmdDeleteRow, &QPushButton::clicked, this, &frmClassSectionEntry::deleteRow);
    cancel();
    Screen::applyConventions(this, ctx, 7);
    // After the conventions, so that this screen sees Enter in its grid boxes before Enter-as-Tab does.
    for (int column : {NameColumn, DivisionsColumn, OrderColumn})
        m_grids->editor(column)->installEventFilter(this);
    m_grids->divisionEditor()->installEventFilter(this);
}

void frmClassSectionEntry::buildLayout()
{
    auto *note = new QLabel(QStringLiteral("Priority Number Is Auto Generated Number. Higher Class Will Have The Top Priority, Eg. 12th Standard Will Have 1. So Enter The Class Name In Desending Order."), this);
    note->setWordWrap(true);

    m_fraMain = new QGroupBox(QStringLiteral("Class Details"), this);
    m_fraMain->setObjectName(QStringLiteral("fraMain"));
    m_fraDivisionDetails = new QGroupBox(QStringLiteral("Division Details"), this);
    m_fraDivisionDetails->setObjectName(QStringLiteral("fraDivisionDetails"));
    m_grids = new ClassDivisionGrids(m_fraMain, m_fraDivisionDetails);

    m_txtDeleteSlNo = new QLineEdit(m_fraMain);
    m_txtDeleteSlNo->setObjectName(QStringLiteral("txtDeleteSlNo"));
    Screen::DigitsOnly(m_txtDeleteSlNo, 2);
    m_txtDeleteSlNo->setMaximumWidth(56);
    m_cmdDeleteRow = new QPushButton(QStringLiteral("&Delete Row"), m_fraMain);
    m_cmdDeleteRow->setObjectName(QStringLiteral("cmdDeleteRow"));
    auto *deleteLine = new QHBoxLayout;
    deleteLine->addWidget(new QLabel(QStringLiteral("SNo. To Delete :"), m_fraMain));
    deleteLine->addWidget(m_txtDeleteSlNo);
    deleteLine->addWidget(m_cmdDeleteRow);
    deleteLine->addStretch();
    auto *classLayout = new QGridLayout(m_fraMain);
    classLayout->addWidget(m_grids->classGrid(), 0, 0);
    classLayout->addLayout(deleteLine, 1, 0);

    auto *divisionLayout = new QGridLayout(m_fraDivisionDetails);
    divisionLayout->addWidget(new QLabel(QStringLiteral("Class Name :"), m_fraDivisionDetails), 0, 0);
    divisionLayout->addWidget(m_grids->classLabel(), 0, 1);
    divisionLayout->addWidget(m_grids->divisionGrid(), 1, 0, 1, 2);
    divisionLayout->setColumnStretch(1, 1);

    m_cmdNew = Screen::button(this, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *cmd : {m_cmdNew, m_cmdEdit, m_cmdSave, m_cmdCancel, m_cmdExit})
        buttons->addWidget(cmd);

    auto *layout = new QGridLayout(this);
    layout->addWidget(note, 0, 0, 1, 2);
    layout->addWidget(m_fraMain, 1, 0);
    layout->addWidget(m_fraDivisionDetails, 1, 1);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    m_buttons = {m_fraMain, m_cmdNew, m_cmdEdit, nullptr, m_cmdSave};
    resize(720, 480);
}

bool frmClassSectionEntry::load()
{
    const bool loaded = Screen::guarded(m_ctx, [this] {
        const ClassDivisionStore store(m_ctx.db());
        m_grids->rows() = store.load();
        m_storedMax = store.highestClassCode();
    });
    if (!loaded)
        m_grids->rows().clear();
    m_grids->showClasses();
    m_grids->classGrid()->setCurrentCell(m_grids->rows().isEmpty() ? -1 : 0, NameColumn);
    m_grids->showDivisions();
    return loaded;
}

void frmClassSectionEntry::newEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::New))
        return;
    // A New adds classes beside the stored ones, which keep their names.
    m_keptNames.clear();
    for (const ClassRow &row : std::as_const(m_grids->rows()))
        m_keptNames.append(row.name);
    m_grids->rows() = {ClassRow{}};
    assignCodes(m_grids->rows(), m_storedMax);
    startEntry(Mode::New);
}

void frmClassSectionEntry::editEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    // Editing a partial list would delete whatever failed to load.
    if (!load())
        return;
    m_keptNames.clear();
    addBlankRow();
    startEntry(Mode::Edit);
}

void frmClassSectionEntry::save()
{
    if (m_mode == Mode::Idle)
        return;
    QList<ClassRow> &rows = m_grids->rows();
    for (int row = 0; row < rows.size(); ++row)
        m_grids->settle(row);
    if (const ClassRefusal refusal = validate(rows, m_keptNames); refusal.refused())
        return refuse(refusal);
    bool saved = false;
    Screen::guarded(m_ctx, [&] {
        const ClassDivisionStore store(m_ctx.db());
        if (m_mode == Mode::New) {
            store.saveNew(rows);
            m_ctx.messages->information(Texts::recordSaved());
        } else {
            if (const QString refusal = store.saveEdit(rows); !refusal.isEmpty()) {
                m_ctx.messages->information(refusal);
                return;
            }
            m_ctx.messages->information(Texts::recordUpdated());
        }
        if (store.rearrangeClassOrder())
            m_ctx.messages->information(QStringLiteral("Re-Arrange Class Order"));
        saved = true;
    });
    if (saved)
        cancel();
}

void frmClassSectionEntry::cancel()
{
    m_mode = Mode::Idle;
    m_keptNames.clear();
    m_grids->setEditing(false);
    Screen::ClearControls(this);
    load();
    m_buttons.setState(Screen::EntryState::Idle);
    m_cmdEdit->setEnabled(!m_grids->rows().isEmpty());
    m_fraDivisionDetails->setEnabled(false);
}

void frmClassSectionEntry::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void frmClassSectionEntry::deleteRow()
{
    QList<ClassRow> &rows = m_grids->rows();
    const int serial = m_txtDeleteSlNo->text().toInt();
    if (m_mode == Mode::Idle || serial < 1 || serial > rows.size()) {
        m_txtDeleteSlNo->setFocus();
        return;
    }
    if (!m_ctx.messages->question(QStringLiteral("Do You Want To Delete SNo. ") + QString::number(serial)
                                  + QStringLiteral(" ?")))
        return;
    removeRow(rows, serial);
    if (rows.constLast().isNamed() && rows.size() < MaxClasses)
        rows.append(ClassRow{});
    assignCodes(rows, m_storedMax);
    m_txtDeleteSlNo->clear();
    m_grids->showClasses();
    m_grids->focusCell(std::min(serial, int(rows.size())) - 1, NameColumn);
    m_grids->showDivisions();
}

bool frmClassSectionEntry::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (watched == m_grids->editor(NameColumn))
        classNameEntered();
    else if (watched == m_grids->editor(DivisionsColumn))
        divisionCountEntered();
    else if (watched == m_grids->editor(OrderColumn))
        classOrderEntered();
    else if (watched == m_grids->divisionEditor())
        divisionNameEntered();
    else
        return false;
    return true;
}

void frmClassSectionEntry::classNameEntered()
{
    QList<ClassRow> &rows = m_grids->rows();
    const int row = m_grids->classRow();
    if (row < 0)
        return;
    if (!rows[row].isNamed()) {
        // Enter on the empty row at the end means the list is complete.
        if (row == rows.size() - 1)
            m_cmdSave->setFocus();
        return;
    }
    if (nameTaken(rows, row, m_keptNames)) {
        m_ctx.messages->information(QStringLiteral("Class Name Already Exists"));
        m_grids->editor(NameColumn)->clear();
        return m_grids->focusCell(row, NameColumn);
    }
    if (rows[row].orderText.isEmpty()) {
        rows[row].orderText = QString::number(nextOrder(rows));
        m_grids->showClasses();
    }
    m_grids->focusCell(row, DivisionsColumn);
}

void frmClassSectionEntry::divisionCountEntered()
{
    const int row = m_grids->classRow();
    if (row < 0)
        return;
    if (!m_grids->rows()[row].isNamed()) {
        m_ctx.messages->information(QStringLiteral("Enter Class Name"));
        return m_grids->focusCell(row, NameColumn);
    }
    m_grids->settle(row);
    m_grids->showDivisions();
    m_grids->focusCell(row, OrderColumn);
}

void frmClassSectionEntry::classOrderEntered()
{
    QList<ClassRow> &rows = m_grids->rows();
    const int row = m_grids->classRow();
    if (row < 0)
        return;
    if (!rows[row].isNamed()) {
        m_ctx.messages->information(QStringLiteral("Enter Class Name"));
        return m_grids->focusCell(row, NameColumn);
    }
    if (orderBeyondRows(rows, row)) {
        m_ctx.messages->information(QStringLiteral("Class Order Should Not Greater Than No Of Rows"));
        m_grids->editor(OrderColumn)->clear();
        return m_grids->focusCell(row, OrderColumn);
    }
    rerank(rows, row);
    if (row == rows.size() - 1)
        addBlankRow();
    m_grids->settle(row);
    m_grids->showAll();
    // On to the names of its divisions; the last of them leads back to the classes.
    if (!rows[row].divisions.isEmpty())
        m_grids->focusDivision(0);
    else
        m_grids->focusCell(std::min(row + 1, int(rows.size()) - 1), NameColumn);
}

void frmClassSectionEntry::divisionNameEntered()
{
    const QList<ClassRow> &rows = m_grids->rows();
    const int row = m_grids->classRow();
    const int division = m_grids->divisionRow();
    if (row < 0 || division < 0)
        return;
    if (divisionNameTaken(rows[row], division)) {
        m_ctx.messages->information(QStringLiteral("Division Name Already Exists"));
        m_grids->divisionEditor()->clear();
        return m_grids->focusDivision(division);
    }
    if (division + 1 < rows[row].divisions.size())
        m_grids->focusDivision(division + 1);
    else
        m_grids->focusCell(std::min(row + 1, int(rows.size()) - 1), NameColumn);
}

void frmClassSectionEntry::startEntry(Mode mode)
{
    m_mode = mode;
    m_buttons.setState(mode == Mode::New ? Screen::EntryState::New : Screen::EntryState::Edit);
    m_fraDivisionDetails->setEnabled(true);
    m_grids->setEditing(true);
    m_grids->showAll();
    m_grids->focusCell(0, NameColumn);
}

bool frmClassSectionEntry::addBlankRow()
{
    QList<ClassRow> &rows = m_grids->rows();
    if (rows.size() >= MaxClasses) {
        m_ctx.messages->information(QStringLiteral("You Cannot Create More Than 99 Classes"));
        return false;
    }
    rows.append(ClassRow{});
    assignCodes(rows, m_storedMax);
    return true;
}

void frmClassSectionEntry::refuse(const ClassRefusal &refusal)
{
    m_ctx.messages->information(refusal.text);
    m_grids->focusCell(refusal.row, refusal.column);
    if (refusal.division >= 0)
        m_grids->focusDivision(refusal.division);
}
