#include "appscreens.h"
#include "apppaths.h"
#include "dialogmessageservice.h"
#include "screenregistry.h"
#include "shell.h"
#include "storestart.h"

#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zarlo-TimeTable"));
    QApplication::setApplicationVersion(QStringLiteral(PROJECT_VERSION));
    DialogMessageService dialogs;
    MessageService &messages = dialogs;

    // One copy of the program per user at a time.
    QLockFile running(QDir(QDir::tempPath()).filePath(QStringLiteral("Zarlo-TimeTable-%1.lock")
                                                          .arg(qEnvironmentVariable("USER", QStringLiteral("user")))));
    running.setStaleLockTime(0);
    if (!running.tryLock(0)) {
        messages.information(QStringLiteral("Zarlo-TimeTable Is Already Open"));
        return 0;
    }

    ScreenRegistry registry;
    registerAllScreens(registry);
    // `--data DIR` keeps the school in DIR, `--portable` beside the program; else in the user's data folder.
    QString error;
    const QString dataFolder = AppPaths::dataFolder(QCoreApplication::arguments(), &error);
    if (dataFolder.isEmpty()) {
        messages.critical(error);
        return 1;
    }
    const StoreStart start = chooseStoreStart(dataFolder, AppPaths::userDataFolder(),
                                              qEnvironmentVariable("USER", QStringLiteral("user")), messages);
    if (start.quit)
        return 0;
    Shell shell(registry, messages, start.folder);
    shell.setReadOnly(start.readOnly);
    shell.setCheckFirst(start.checkFirst);
    QObject::connect(&shell, &Shell::finished, &app, [] { QCoreApplication::exit(0); });
    shell.start();
    return app.exec();
}
