#include "frmhelp.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>

frmHelp::frmHelp(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("TimeTable - Help"));

    auto *treeHeading = new QLabel(QStringLiteral("SCREEN NAME"), this);
    m_tvwDisplay = new QTreeWidget(this);
    m_tvwDisplay->setObjectName(QStringLiteral("tvwDisplay"));
    m_tvwDisplay->setHeaderHidden(true);
    m_tvwDisplay->setRootIsDecorated(false);
    m_lblName = new QLabel(this);
    m_lblName->setObjectName(QStringLiteral("lblName"));
    m_lblName->setStyleSheet(QStringLiteral("font-weight: bold; font-size: 12pt;"));
    m_txtDetail = new QTextEdit(this);
    m_txtDetail->setObjectName(QStringLiteral("txtDetail"));
    m_txtDetail->setReadOnly(true);
    m_cmdExit = new QPushButton(QStringLiteral("E&xit"), this);
    m_cmdExit->setObjectName(QStringLiteral("cmdExit"));

    auto *layout = new QGridLayout(this);
    layout->addWidget(treeHeading, 0, 0);
    layout->addWidget(m_lblName, 0, 1);
    layout->addWidget(m_tvwDisplay, 1, 0);
    layout->addWidget(m_txtDetail, 1, 1);
    auto *store = new QLabel(QStringLiteral("The school is kept in %1").arg(QDir::toNativeSeparators(ctx.dataFolder)),
                             this);
    store->setObjectName(QStringLiteral("lblStore"));
    store->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(store);
    buttons->addStretch();
    buttons->addWidget(m_cmdExit);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 2);
    resize(760, 460);

    connect(m_cmdExit, &QPushButton::clicked, this, [this] { Screen::closeScreen(this); });
    connect(m_tvwDisplay, &QTreeWidget::itemClicked, this, &frmHelp::nodeClicked);

    Screen::guarded(ctx, [&] { m_pages = HelpBook(ctx.dataFolder).pages(); });
    for (const HelpPage &page : std::as_const(m_pages))
        new QTreeWidgetItem(m_tvwDisplay, {page.screenName});
    showScreen(ctx.session.helpScreenNo);
}

void frmHelp::showScreen(int scrno)
{
    for (const HelpPage &page : std::as_const(m_pages)) {
        if (page.scrno == scrno)
            return showPage(page);
    }
}

void frmHelp::showPage(const HelpPage &page)
{
    // A label takes a single '&' for an accelerator mark.
    m_lblName->setText(QString(page.screenName).replace(QLatin1Char('&'), QStringLiteral("&&")));
    m_txtDetail->setPlainText(page.details);
    const QList<QTreeWidgetItem *> nodes = m_tvwDisplay->findItems(page.screenName, Qt::MatchFixedString);
    if (!nodes.isEmpty())
        m_tvwDisplay->setCurrentItem(nodes.first());
}

void frmHelp::nodeClicked(QTreeWidgetItem *item)
{
    for (const HelpPage &page : std::as_const(m_pages)) {
        if (page.screenName.toUpper() == item->text(0).toUpper())
            return showPage(page);
    }
}
