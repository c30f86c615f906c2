#include "perioddetailspanel.h"
#include "gridcelleditor.h"
#include "messageservice.h"
#include "screen.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

namespace {
enum Column { CodeColumn, NameColumn, MinutesColumn };

QString minutesText(int minutes)
{
    return minutes > 0 ? QString::number(minutes) : QString();
}
}

PeriodDetailsPanel::PeriodDetailsPanel(MessageService &messages, QWidget *parent)
    : QGroupBox(QStringLiteral("Period Details"), parent), m_messages(messages)
{
    setObjectName(QStringLiteral("fraPeriodDetails"));

    m_msgPeriodDuration = new QTableWidget(0, 3, this);
    m_msgPeriodDuration->setObjectName(QStringLiteral("msgPeriodDuration"));
    m_msgPeriodDuration->setHorizontalHeaderLabels(
        {QStringLiteral("Period Code"), QStringLiteral("Period"), QStringLiteral("Minutes")});
    m_msgPeriodDuration->setColumnHidden(CodeColumn, true);
    m_msgPeriodDuration->verticalHeader()->hide();
    m_msgPeriodDuration->horizontalHeader()->setStretchLastSection(true);
    m_msgPeriodDuration->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_msgPeriodDuration->setSelectionMode(QAbstractItemView::SingleSelection);
    m_msgPeriodDuration->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_msgPeriodDuration->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    m_msgPeriodDuration->setMinimumWidth(260);

    m_txtDurationInMinutes = new QLineEdit(this);
    m_txtDurationInMinutes->setObjectName(QStringLiteral("txtDurationInMinutes"));
    m_txtDurationInMinutes->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Screen::DigitsOnly(m_txtDurationInMinutes, 3);

    m_lblTotal = new QLabel(this);
    m_lblTotal->setObjectName(QStringLiteral("lblTotal"));
    m_cmdClose = new QPushButton(QStringLiteral("C&lose"), this);
    m_cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto *hint = new QLabel(QStringLiteral("Type the length of each period in minutes and press Enter for the "
                                           "next one. A day cannot take more than 1440 minutes."),
                            this);
    hint->setWordWrap(true);

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setHorizontalSpacing(24);
    layout->addWidget(m_msgPeriodDuration, 0, 0, 4, 1);
    layout->addWidget(hint, 0, 1);
    layout->addWidget(m_lblTotal, 1, 1);
    layout->setRowStretch(2, 1);
    layout->addWidget(m_cmdClose, 3, 1, Qt::AlignRight);
    layout->setColumnStretch(1, 1);

    m_minutesEditor = new GridCellEditor(m_msgPeriodDuration, MinutesColumn, m_txtDurationInMinutes);
    connect(m_minutesEditor, &GridCellEditor::edited, this, &PeriodDetailsPanel::minutesEdited);
    connect(m_minutesEditor, &GridCellEditor::enterPressed, this, &PeriodDetailsPanel::nextRow);
    // The name and code are fixed: any click on a row edits its minutes.
    connect(m_msgPeriodDuration, &QTableWidget::cellClicked, this,
            [this](int row, int) { m_minutesEditor->placeOn(row); });
    connect(m_cmdClose, &QPushButton::clicked, this, [this] {
        dismiss();
        emit closed();
    });
    showTotal();
}

void PeriodDetailsPanel::setPeriods(const QList<PeriodRow> &periods)
{
    m_periods = periods;
    m_minutesEditor->close();
    fillGrid();
}

void PeriodDetailsPanel::fillGrid()
{
    m_msgPeriodDuration->setRowCount(int(m_periods.size()));
    for (int row = 0; row < m_periods.size(); ++row) {
        const PeriodRow &period = m_periods.at(row);
        m_msgPeriodDuration->setItem(row, CodeColumn, new QTableWidgetItem(QString::number(period.periodCode)));
        m_msgPeriodDuration->setItem(row, NameColumn, new QTableWidgetItem(period.periodName));
        auto *minutes = new QTableWidgetItem(minutesText(period.minutes));
        minutes->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_msgPeriodDuration->setItem(row, MinutesColumn, minutes);
    }
    showTotal();
}

void PeriodDetailsPanel::showTotal()
{
    m_lblTotal->setText(QStringLiteral("Total Duration In Minutes : ")
                        + QString::number(SchoolSetupService::totalMinutes(m_periods)));
}

void PeriodDetailsPanel::openAt(int row)
{
    show();
    if (m_periods.isEmpty())
        return m_cmdClose->setFocus();
    row = qBound(0, row, int(m_periods.size()) - 1);
    m_msgPeriodDuration->setCurrentCell(row, MinutesColumn);
    m_minutesEditor->placeOn(row);
}

void PeriodDetailsPanel::dismiss()
{
    m_minutesEditor->close();
    hide();
}

void PeriodDetailsPanel::minutesEdited(int row, const QString &text)
{
    const int before = m_periods.at(row).minutes;
    m_periods[row].minutes = text.toInt();
    if (SchoolSetupService::totalMinutes(m_periods) > SchoolSetupService::MaxMinutesPerDay) {
        m_messages.information(QStringLiteral("Total Duration Of Minutes Should Not Exceed 1440"));
        m_periods[row].minutes = before;
        m_txtDurationInMinutes->setText(minutesText(before));
        m_txtDurationInMinutes->setFocus();
    }
    m_msgPeriodDuration->item(row, MinutesColumn)->setText(minutesText(m_periods.at(row).minutes));
    showTotal();
}

void PeriodDetailsPanel::nextRow(int row)
{
    if (row + 1 < m_periods.size()) {
        m_msgPeriodDuration->setCurrentCell(row + 1, MinutesColumn);
        m_minutesEditor->placeOn(row + 1);
        return;
    }
    m_minutesEditor->close();
    m_cmdClose->setFocus();
}
