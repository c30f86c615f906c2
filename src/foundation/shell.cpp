#include "shell.h"
#include "apppaths.h"
#include "frmsplash.h"
#include "frmstartlogin.h"
#include "mditimetable.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "store.h"
#include "storeerror.h"

#include <QDir>

#include <QTimer>

Shell::Shell(const ScreenRegistry &registry, MessageService &messages, const QString &dataFolder, QObject *parent)
    : QObject(parent), m_registry(registry)
{
    m_ctx.connectionName = mainConnectionName();
    m_ctx.dataFolder = dataFolder;
    m_ctx.tempFolder = AppPaths::tempFolder(dataFolder);
    m_ctx.messages = &messages;
}

Shell::~Shell()
{
    delete m_retired.data();
    m_main.reset();
    m_login.reset();
    m_splash.reset();
    Store::close(m_ctx.connectionName);
}

void Shell::setReadOnly(bool readOnly)
{
    m_ctx.readOnly = readOnly;
    // Pictures go to a temp folder of the user's when the school's folder is not to be written.
    m_ctx.tempFolder = readOnly ? QDir(QDir::tempPath()).filePath(QStringLiteral("Zarlo-TimeTable-%1")
                                                                     .arg(qEnvironmentVariable("USER", QStringLiteral("user"))))
                                : AppPaths::tempFolder(m_ctx.dataFolder);
}

void Shell::start()
{
    m_splash = std::make_unique<frmSplash>(m_ctx);
    connect(m_splash.get(), &frmSplash::movieCommand, this, &Shell::movieCommand);
    m_splash->show();
}

void Shell::movieCommand(const QString &command, const QString &argument)
{
    if (command != QLatin1String("quit") || m_connected)
        return;
    if (argument == QLatin1String("true"))
        return end();
    if (argument == QLatin1String("enter"))
        connectStores();
}

void Shell::connectStores()
{
    const bool opened = Screen::guarded(m_ctx, [this] {
        const QSqlDatabase db = Store::open(StoreFile::Main, m_ctx.dataFolder, m_ctx.connectionName,
                                            m_ctx.readOnly ? Store::Access::ReadOnly : Store::Access::ReadWrite);
        if (m_checkFirst) {
            if (const QString problem = Store::integrityProblem(db); !problem.isEmpty())
                throw UnusableStore(Store::unusableText(db.databaseName(),
                                                        QStringLiteral("It Is Damaged (%1)").arg(problem)));
        }
        if (m_ctx.readOnly)
            return;
        // The companion files are opened at each use; here they are only made when missing.
        for (StoreFile companion : {StoreFile::BackupHistory, StoreFile::Help}) {
            const QString name = QStringLiteral("tt_check_companion");
            Store::open(companion, m_ctx.dataFolder, name);
            Store::close(name);
        }
    });
    if (!opened)
        return; // the program stays on the splash, as it always has
    m_connected = true;
    showLogin();
    m_splash->hide();
    m_splash.release()->deleteLater();
}

void Shell::showLogin()
{
    m_login = std::make_unique<frmStartLogin>(m_ctx);
    connect(m_login.get(), &frmStartLogin::loggedIn, this, &Shell::loggedIn);
    connect(m_login.get(), &frmStartLogin::programEnded, this, &Shell::end);
    m_login->show();
}

void Shell::loggedIn(bool noLoginsExist)
{
    m_ctx.session.openAccess = noLoginsExist;
    m_main = std::make_unique<mdiTimeTable>(m_ctx, m_registry);
    m_ctx.host = m_main.get();
    connect(m_main.get(), &mdiTimeTable::programEnded, this, &Shell::end);
    connect(m_main.get(), &mdiTimeTable::restartRequested, this, &Shell::restart);
    if (!m_main->load())
        return;
    QStringList grants;
    if (!noLoginsExist) {
        Screen::guarded(m_ctx, [&] { grants = Privileges::displayGrants(m_ctx.db(), m_ctx.session.userCode); });
    }
    m_main->applyPrivileges(noLoginsExist, grants);
    m_main->showAsLeft();
    m_login->hide();
    m_login.release()->deleteLater();
    // The activation runs once the window is up, so that School Setup can open above it.
    QTimer::singleShot(0, m_main.get(), &mdiTimeTable::activate);
}

// The main window goes with its screens and the login comes back, with a session as fresh as at start.
void Shell::restart()
{
    m_ctx.host = nullptr;
    m_main->hide();
    m_retired = m_main.release();
    m_retired->deleteLater(); // a screen of it asked for this, and is still on the stack
    m_ctx.session = Session();
    showLogin();
}

void Shell::end()
{
    emit finished();
}
