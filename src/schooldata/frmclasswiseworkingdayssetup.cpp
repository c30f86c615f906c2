#include "frmclasswiseworkingdayssetup.h"
#include "gridcelleditor.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "session.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
const QString FormName = QStringLiteral("frmClasswiseWorkingDaysSetup");
enum Column { CodeColumn, NameColumn, DaysColumn };

QString daysText(int days)
{
    return days > 0 ? QString::number(days) : QString();
}
}

frmClasswiseWorkingDaysSetup::frmClasswiseWorkingDaysSetup(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_classwise(ctx.db())
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Classwise-Working Days Setup"));

    m_msgClassDetails = new QTableWidget(0, 3, this);
    m_msgClassDetails->setObjectName(QStringLiteral("msgClassDetails"));
    m_msgClassDetails->setHorizontalHeaderLabels(
        {QStringLiteral("Class Code"), QStringLiteral("Class Name"), QStringLiteral("Working Days/Week")});
    m_msgClassDetails->setColumnHidden(CodeColumn, true);
    m_msgClassDetails->verticalHeader()->hide();
    m_msgClassDetails->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    m_msgClassDetails->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_msgClassDetails->horizontalHeader()->setSectionResizeMode(DaysColumn, QHeaderView::ResizeToContents);
    m_msgClassDetails->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_msgClassDetails->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_msgClassDetails->setSelectionMode(QAbstractItemView::SingleSelection);
    m_txtWorkingDays = new QLineEdit(this);
    m_txtWorkingDays->setObjectName(QStringLiteral("txtWorkingDays"));
    m_txtWorkingDays->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Screen::DigitsOnly(m_txtWorkingDays, 2);

    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *push : {m_cmdEdit, m_cmdSave, m_cmdCancel, m_cmdExit})
        buttons->addWidget(push);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_msgClassDetails, 1);
    layout->addLayout(buttons);
    resize(420, 420);

    m_daysEditor = new GridCellEditor(m_msgClassDetails, DaysColumn, m_txtWorkingDays);
    connect(m_daysEditor, &GridCellEditor::edited, this, &frmClasswiseWorkingDaysSetup::daysEdited);
    connect(m_daysEditor, &GridCellEditor::enterPressed, this, &frmClasswiseWorkingDaysSetup::nextRow);
    connect(m_msgClassDetails, &QTableWidget::cellClicked, this, [this](int row, int) { editRow(row); });
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmClasswiseWorkingDaysSetup::edit);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmClasswiseWorkingDaysSetup::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmClasswiseWorkingDaysSetup::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, [this] {
        if (Screen::ConfirmExit(m_ctx, windowTitle()))
            Screen::closeScreen(this);
    });

    cancel();
    Screen::applyConventions(this, ctx, 4);
}

int frmClasswiseWorkingDaysSetup::schoolDays() const
{
    return m_ctx.session.calendar.noOfWorkingDays;
}

void frmClasswiseWorkingDaysSetup::load()
{
    if (!Screen::guarded(m_ctx, [this] {
            m_classwise.rebuildIfClassesChanged(schoolDays());
            m_rows = m_classwise.rows(schoolDays());
        }))
        m_rows.clear();
    fillGrid();
}

void frmClasswiseWorkingDaysSetup::fillGrid()
{
    m_msgClassDetails->setRowCount(int(m_rows.size()));
    for (int row = 0; row < m_rows.size(); ++row) {
        const ClassWorkingDays &entry = m_rows.at(row);
        m_msgClassDetails->setItem(row, CodeColumn, new QTableWidgetItem(QString::number(entry.classCode)));
        m_msgClassDetails->setItem(row, NameColumn, new QTableWidgetItem(entry.className));
        auto *days = new QTableWidgetItem(daysText(entry.noOfWorkingDays));
        days->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_msgClassDetails->setItem(row, DaysColumn, days);
    }
}

void frmClasswiseWorkingDaysSetup::edit()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    m_editing = true;
    m_msgClassDetails->setEnabled(true);
    m_cmdEdit->setEnabled(false);
    m_cmdSave->setEnabled(true);
    editRow(0);
}

void frmClasswiseWorkingDaysSetup::editRow(int row)
{
    if (!m_editing || row < 0 || row >= m_rows.size() || m_rows.at(row).className.trimmed().isEmpty())
        return;
    m_msgClassDetails->setCurrentCell(row, DaysColumn);
    m_daysEditor->placeOn(row);
}

void frmClasswiseWorkingDaysSetup::daysEdited(int row, const QString &text)
{
    int days = text.toInt();
    if (days > schoolDays()) {
        m_ctx.messages->information(ClasswiseWorkingDays::aboveSchoolDaysText());
        days = 0;
        m_txtWorkingDays->clear();
    }
    m_rows[row].noOfWorkingDays = days;
    m_msgClassDetails->item(row, DaysColumn)->setText(daysText(days));
}

void frmClasswiseWorkingDaysSetup::nextRow(int row)
{
    if (row + 1 < m_rows.size())
        return editRow(row + 1);
    m_daysEditor->close();
    m_cmdSave->setFocus();
}

void frmClasswiseWorkingDaysSetup::save()
{
    if (const int missing = ClasswiseWorkingDays::firstMissing(m_rows); missing >= 0) {
        m_ctx.messages->information(ClasswiseWorkingDays::missingText());
        return editRow(missing);
    }
    if (!Screen::guarded(m_ctx, [this] { m_classwise.save(m_rows); }))
        return;
    m_ctx.messages->information(m_editing ? Texts::recordUpdated() : Texts::recordSaved());
    cancel();
}

void frmClasswiseWorkingDaysSetup::cancel()
{
    m_daysEditor->close();
    m_editing = false;
    load();
    m_msgClassDetails->setEnabled(false);
    m_cmdEdit->setEnabled(true);
    m_cmdSave->setEnabled(false);
    m_cmdEdit->setFocus();
}
