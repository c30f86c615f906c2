#include "frmblankperiods.h"
#include "manuallists.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

frmBlankPeriods::frmBlankPeriods(AppContext &ctx, QWidget *parent) : QWidget(parent), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmBlankPeriods"));
    setWindowTitle(QStringLiteral("Classes That Exceed Working Periods"));

    m_msgDetails = new QTableWidget(0, 4, this);
    m_msgDetails->setObjectName(QStringLiteral("msgDetails"));
    m_msgDetails->setHorizontalHeaderLabels({QStringLiteral("Sl.No."), QStringLiteral("Class Name"),
                                             QStringLiteral("Division Name"), QStringLiteral("Difference In Periods")});
    m_msgDetails->verticalHeader()->hide();
    m_msgDetails->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_msgDetails->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_msgDetails->setAlternatingRowColors(true);
    m_msgDetails->horizontalHeader()->setStretchLastSection(true);
    m_msgDetails->setMinimumWidth(420);

    m_cmdExit = new QPushButton(QStringLiteral("E&xit"), this);
    m_cmdExit->setObjectName(QStringLiteral("cmdExit"));
    connect(m_cmdExit, &QPushButton::clicked, this, &frmBlankPeriods::exitScreen);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdExit);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_msgDetails);
    layout->addLayout(buttons);

    load();
    Screen::applyConventions(this, ctx, 0);
}

// The difference is the week's periods less those allotted, so an over-allotted class shows below 0.
void frmBlankPeriods::load()
{
    QList<OverAllottedClass> classes;
    Screen::guarded(m_ctx, [&] { classes = OverAllottedClasses(m_ctx.db(), m_ctx.session.calendar); });
    m_msgDetails->setRowCount(int(classes.size()));
    for (int row = 0; row < classes.size(); ++row) {
        const QStringList cells = {QString::number(row + 1), classes[row].className, classes[row].divisionName,
                                   QString::number(classes[row].difference)};
        for (int column = 0; column < cells.size(); ++column) {
            auto *item = new QTableWidgetItem(cells[column]);
            if (column == 0 || column == 3)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_msgDetails->setItem(row, column, item);
        }
    }
    m_msgDetails->resizeColumnsToContents();
}

void frmBlankPeriods::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}
