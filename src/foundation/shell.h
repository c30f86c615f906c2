#pragma once
#include "session.h"

#include <QObject>
#include <QPointer>
#include <memory>

class frmSplash;
class frmStartLogin;
class mdiTimeTable;
class MessageService;
class ScreenRegistry;

// The run of the program from splash to close: the temp folder, the store connection, the login and the
// main window, in that order.
class Shell : public QObject
{
    Q_OBJECT
public:
    Shell(const ScreenRegistry &registry, MessageService &messages, const QString &dataFolder,
          QObject *parent = nullptr);
    ~Shell() override;

    // The name of the main connection.
    static QString mainConnectionName() { return QStringLiteral("main"); }

    // The school is opened read-only (its folder cannot be written, or another window holds it).
    void setReadOnly(bool readOnly);
    // The program ended without closing last time: the store is checked before it is used.
    void setCheckFirst(bool check) { m_checkFirst = check; }
    void start();
    AppContext &context() { return m_ctx; }
    frmStartLogin *loginScreen() const { return m_login.get(); }
    mdiTimeTable *mainWindow() const { return m_main.get(); }

signals:
    void finished();

private:
    void movieCommand(const QString &command, const QString &argument);
    void connectStores();
    void showLogin();
    void loggedIn(bool noLoginsExist);
    void restart();
    void end();

    const ScreenRegistry &m_registry;
    AppContext m_ctx;
    std::unique_ptr<frmSplash> m_splash;
    std::unique_ptr<frmStartLogin> m_login;
    std::unique_ptr<mdiTimeTable> m_main;
    QPointer<mdiTimeTable> m_retired; // the window of a session that ended, until its deferred delete
    bool m_connected = false;
    bool m_checkFirst = false;
};
