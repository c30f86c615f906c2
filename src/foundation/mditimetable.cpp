#include "mditimetable.h"
#include "artwork.h"
#include "frmaboutus.h"
#include "frmstartlock.h"
#include "mainmenu.h"
#include "messageservice.h"
#include "routines.h"
#include "runstatus.h"
#include "screen.h"
#include "screenregistry.h"
#include "sql.h"
#include "store.h"
#include "apppaths.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>

namespace {
const char *const TopMenus[] = {"mnuMasters", "mnuTimeTableEntry", "mnuReports", "mnuUtilities"};
}

mdiTimeTable::mdiTimeTable(AppContext &ctx, const ScreenRegistry &registry, QWidget *parent)
    : QMainWindow(parent), m_ctx(ctx), m_registry(registry)
{
    setObjectName(QStringLiteral("mdiTimeTable"));
    setWindowTitle(QStringLiteral("Zarlo-TimeTable"));
    m_area = new QMdiArea(this);
    m_area->setObjectName(QStringLiteral("mdiArea"));
    m_area->viewport()->installEventFilter(this);
    setCentralWidget(m_area);
    setStyleSheet(QStringLiteral("QMainWindow { background: rgb(244, 234, 244); }"));

    m_statusUser = new QLabel(this);
    m_statusUser->setObjectName(QStringLiteral("lblUserName"));
    statusBar()->addWidget(m_statusUser, 1);

    m_tmrTimer = new QTimer(this);
    m_tmrTimer->setObjectName(QStringLiteral("tmrTimer"));
    m_tmrTimer->setInterval(1000);
    connect(m_tmrTimer, &QTimer::timeout, this, &mdiTimeTable::heartbeat);

    buildMenu();
    connect(this, &mdiTimeTable::programEnded, this, [this] { m_ending = true; });
    resize(1024, 720);
}

mdiTimeTable::~mdiTimeTable()
{
    // The child screens go down with the window: their end must not call back into it.
    for (QWidget *screen : m_area->findChildren<QWidget *>())
        disconnect(screen, nullptr, this, nullptr);
}

void mdiTimeTable::buildMenu()
{
    MainMenu::build(menuBar());
    for (QAction *action : menuBar()->findChildren<QAction *>()) {
        const QString opens = action->data().toString();
        if (opens.isEmpty())
            continue;
        connect(action, &QAction::triggered, this, [this, opens] { openScreen(opens); });
    }
    if (auto *windows = menuBar()->findChild<QMenu *>(QStringLiteral("mnuWindows")))
        connect(windows, &QMenu::aboutToShow, this, &mdiTimeTable::fillWindowsMenu);
}

bool mdiTimeTable::load()
{
    const bool loaded = Screen::guarded(m_ctx, [this] {
        setBackground(false);
        const QVariant option = Sql(m_ctx.db()).scalar(QStringLiteral("SELECT * FROM Options"));
        if (option.toString() == QLatin1String("Y"))
            m_ctx.session.confirmExit = true;
        else if (option.toString() == QLatin1String("N"))
            m_ctx.session.confirmExit = false;
        m_ctx.session.calendar.load(m_ctx.db());
        RunStatus::ensureClasswiseWorkingDays(m_ctx.db());
        RunStatus::reset(m_ctx.db());
    });
    if (!loaded) {
        emit programEnded();
        return false;
    }
    m_tmrTimer->start();
    return true;
}

void mdiTimeTable::applyPrivileges(bool noLoginsExist, const QStringList &displayGrants)
{
    QStringList enable;
    if (noLoginsExist) {
        enable = {QStringLiteral("mnuUtilities"), QStringLiteral("mnufrmUtilUserMaster"),
                  QStringLiteral("mnufrmUtilUserPrivilegeMaster")};
    } else {
        for (const QString &form : displayGrants)
            enable << QStringLiteral("mnu") + form;
    }
    for (QMenu *menu : menuBar()->findChildren<QMenu *>())
        menu->setToolTipsVisible(true);
    // Entry names compare without case: a privilege row may spell a form name with other capitals.
    for (const MenuEntry &entry : MainMenu::entries()) {
        const QString name = QString::fromLatin1(entry.name);
        auto *action = menuBar()->findChild<QAction *>(name);
        if (!action)
            continue;
        const bool granted = std::any_of(enable.cbegin(), enable.cend(), [&](const QString &key) {
            return key.compare(name, Qt::CaseInsensitive) == 0;
        });
        const QString opens = QString::fromLatin1(entry.opens);
        // An entry whose screen is still to come says so, rather than opening nothing.
        const bool available = opens.isEmpty() || canOpen(opens);
        action->setEnabled((entry.enabled || granted) && available);
        action->setToolTip(available ? QString() : QStringLiteral("Not available yet: this screen comes in a later version"));
    }
}

bool mdiTimeTable::canOpen(const QString &opens) const
{
    static const QStringList BuiltIn = {QStringLiteral("mnuLock"), QStringLiteral("mnuClose"),
                                        QStringLiteral("frmAboutUs")};
    return BuiltIn.contains(opens, Qt::CaseInsensitive) || m_registry.screen(opens) || m_registry.command(opens);
}

void mdiTimeTable::activate()
{
    m_statusUser->setText(QStringLiteral("User Name : ") + m_ctx.session.userName.trimmed());
    if (!m_ctx.session.calendar.schoolSetUp)
        openScreen(QStringLiteral("frmSchoolSetup"));
}

void mdiTimeTable::openScreen(const QString &formName)
{
    if (formName == QLatin1String("mnuLock"))
        return lock();
    if (formName == QLatin1String("mnuClose"))
        return closeProgram();
    if (formName == QLatin1String("frmAboutUs")) {
        auto *about = new frmAboutUs(m_ctx, this);
        about->open();
        return;
    }
    if (formName == QLatin1String("frmManualPeriodsEntry"))
        return openManualPeriodsEntry();

    if (const ScreenRegistry::Command *command = m_registry.command(formName)) {
        (*command)(m_ctx);
        return;
    }
    const ScreenRegistry::Screen *screen = m_registry.screen(formName);
    if (!screen)
        return; // a screen still to come: its entry stands in the menu and opens nothing yet
    // A screen that is open already comes to the front.
    for (QMdiSubWindow *window : m_area->subWindowList()) {
        if (window->widget() && window->widget()->objectName().compare(formName, Qt::CaseInsensitive) == 0) {
            m_area->setActiveSubWindow(window);
            return;
        }
    }
    if (screen->exclusive && OtherChildOpen()) {
        m_ctx.messages->information(screen->refusalText);
        return;
    }
    Screen::guarded(m_ctx, [&] { showChild(formName, screen->factory(m_ctx), screen->exclusive); });
}

// The heartbeat stops, the window's place is kept for the next start and the stopped mark is written.
void mdiTimeTable::endSession()
{
    m_tmrTimer->stop();
    rememberGeometry();
    Screen::guarded(m_ctx, [this] { RunStatus::markStopped(m_ctx.db()); });
}

void mdiTimeTable::restartProgram()
{
    endSession();
    emit restartRequested();
}

namespace {
QSettings windowSettings()
{
    return QSettings(QStringLiteral("Zarlo-TimeTable"), QStringLiteral("Zarlo-TimeTable"));
}
}

void mdiTimeTable::showAsLeft()
{
    const QByteArray geometry = windowSettings().value(QStringLiteral("mainWindow/geometry")).toByteArray();
    if (geometry.isEmpty() || !restoreGeometry(geometry)) {
        // The size of the screen even where no window manager maximises a window.
        if (const QScreen *screen = this->screen())
            setGeometry(screen->availableGeometry());
        showMaximized();
        return;
    }
    show();
}

void mdiTimeTable::rememberGeometry() const
{
    windowSettings().setValue(QStringLiteral("mainWindow/geometry"), saveGeometry());
}

void mdiTimeTable::openManualPeriodsEntry()
{
    const ScreenRegistry::Screen *screen = m_registry.screen(QStringLiteral("frmManualPeriodsEntry"));
    Screen::guarded(m_ctx, [&] {
        const QSqlDatabase db = m_ctx.db();
        const SchoolCalendar &calendar = m_ctx.session.calendar;
        if (ClassesUnderAllotted(db, calendar)) {
            const QStringList question = {
                QStringLiteral("Working Periods In Few Classes Are Not Properly Filled"),
                QStringLiteral(
                    "You Can See These Details In 'WorkAllotment Details Report' Or 'WorkAllotment Non Tallied Classes Report'"),
                QStringLiteral("Without Filling These Periods You Can Proceed With 'Manual Entry'"),
                QStringLiteral("Do You Want To Proceed ?")};
            if (!m_ctx.messages->question(question.join(QLatin1Char('\n'))))
                return;
        }
        // An over-allotted class keeps the manual screen shut; the user may look at the details instead.
        if (ClassesOverAllotted(db, calendar)) {
            const QStringList question = {
                QStringLiteral("'Periods Alloted' Is Greater Than 'Periods Per Week' For Some Classes."),
                QStringLiteral("Do You Want To View The Details ?")};
            if (m_ctx.messages->question(question.join(QLatin1Char('\n'))))
                openScreen(QStringLiteral("frmBlankPeriods"));
            return;
        }
        if (!screen)
            return;
        statusBar()->hide();
        showChild(QStringLiteral("frmManualPeriodsEntry"), screen->factory(m_ctx), false);
    });
}

void mdiTimeTable::showChild(const QString &formName, QWidget *screen, bool exclusive)
{
    if (!screen)
        return;
    if (screen->objectName().isEmpty())
        screen->setObjectName(formName);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->installEventFilter(this); // the frame's close goes through ConfirmExit as Exit does
    setBackground(true);
    QMdiSubWindow *window = m_area->addSubWindow(screen);
    window->setAttribute(Qt::WA_DeleteOnClose);
    const bool hidStatusBar = !statusBar()->isVisible();
    connect(screen, &QObject::destroyed, this,
            [this, exclusive, hidStatusBar](QObject *gone) { childClosed(gone, exclusive, hidStatusBar); });
    if (exclusive) {
        m_ctx.session.exclusiveScreenOpen = true;
        setTopMenusVisible(false);
    }
    const QSize wanted = screen->testAttribute(Qt::WA_Resized) ? screen->size() : screen->sizeHint();
    window->show();
    // Centred in the client area, at the size the screen asks for.
    window->resize(wanted + (window->size() - screen->size()));
    const QRect area = m_area->viewport()->rect();
    window->move(qMax(0, (area.width() - window->width()) / 2), qMax(0, (area.height() - window->height()) / 2));
    m_area->setActiveSubWindow(window);
}

void mdiTimeTable::childClosed(QObject *gone, bool exclusive, bool hidStatusBar)
{
    if (exclusive) {
        m_ctx.session.exclusiveScreenOpen = false;
        setTopMenusVisible(true);
    }
    if (hidStatusBar || !statusBar()->isVisible())
        statusBar()->show();
    int open = 0;
    for (QMdiSubWindow *window : m_area->subWindowList())
        open += window->widget() && window->widget() != gone ? 1 : 0;
    setBackground(open > 0);
}

bool mdiTimeTable::OtherChildOpen() const
{
    const QList<QMdiSubWindow *> windows = m_area->subWindowList();
    return std::any_of(windows.cbegin(), windows.cend(),
                       [](QMdiSubWindow *w) { return w->widget() && w->isVisible(); });
}

void mdiTimeTable::RestoreBackground()
{
    setBackground(OtherChildOpen());
}

void mdiTimeTable::setBackground(bool childOpen)
{
    m_childBackground = childOpen;
    const QScreen *screen = this->screen();
    const bool small = screen && Artwork::isSmallScreen(screen->size());
    const QPixmap picture = Artwork::background(childOpen ? Artwork::Background::ChildOpen
                                                          : Artwork::Background::NoChild,
                                                m_area->viewport()->size(), small);
    if (!m_ctx.tempFolder.isEmpty())
        Artwork::exportPicture(picture, (childOpen ? 1002 : 1001) + (small ? 2 : 0), m_ctx.tempFolder);
    m_area->setBackground(QBrush(picture));
}

void mdiTimeTable::setTopMenusVisible(bool visible)
{
    for (const char *name : TopMenus) {
        if (auto *action = menuBar()->findChild<QAction *>(QString::fromLatin1(name)))
            action->setVisible(visible);
    }
}

void mdiTimeTable::fillWindowsMenu()
{
    auto *windows = menuBar()->findChild<QMenu *>(QStringLiteral("mnuWindows"));
    windows->clear();
    const QList<QMdiSubWindow *> list = m_area->subWindowList();
    for (QMdiSubWindow *window : list) {
        QAction *item = windows->addAction(window->windowTitle());
        item->setCheckable(true);
        item->setChecked(window == m_area->activeSubWindow());
        connect(item, &QAction::triggered, window, [this, window] { m_area->setActiveSubWindow(window); });
    }
}

void mdiTimeTable::heartbeat()
{
    if (m_heartbeatFailing)
        return; // one box at a time: the timer goes on once the user has read it
    m_heartbeatFailing = true;
    Screen::guarded(m_ctx, [this] { RunStatus::heartbeat(m_ctx.db()); });
    m_heartbeatFailing = false;
}

void mdiTimeTable::lock()
{
    auto *lockScreen = new frmStartLock(m_ctx, this);
    connect(lockScreen, &frmStartLock::closeProgramRequested, this, &mdiTimeTable::programEnded);
    connect(lockScreen, &frmStartLock::unlocked, this, &mdiTimeTable::RestoreBackground);
    lockScreen->open();
}

void mdiTimeTable::closeProgram()
{
    if (!m_ctx.messages->question(QStringLiteral("Do You Want To Close 'Zarlo-TimeTable' ?")))
        return;
    endSession();
    Store::close(m_ctx.connectionName);
    AppPaths::removeFolder(m_ctx.tempFolder);
    emit programEnded();
}

void mdiTimeTable::closeEvent(QCloseEvent *event)
{
    if (m_ending) {
        event->accept();
        return;
    }
    m_ctx.messages->information(
        QStringLiteral("If You Want To Close 'Zarlo - TimeTable', Click On The Close Menu"));
    event->ignore();
}

bool mdiTimeTable::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_area->viewport() && event->type() == QEvent::Resize) {
        setBackground(m_childBackground);
        return false;
    }
    if (event->type() == QEvent::Close) {
        auto *screen = qobject_cast<QWidget *>(watched);
        if (screen && !screen->property("ttExitConfirmed").toBool()
            && !Screen::ConfirmExit(m_ctx, screen->windowTitle())) {
            event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}
