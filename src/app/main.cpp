#include "apppaths.h"
#include "dialogmessageservice.h"
#include "allotmentscreens.h"
#include "frmhelp.h"
#include "generationscreens.h"
#include "reportscreens.h"
#include "schooldatascreens.h"
#include "screenregistry.h"
#include "shell.h"
#include "timetablescreens.h"

#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

namespace {
void registerScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmHelp"), [](AppContext &ctx) { return new frmHelp(ctx); });
    registerSchoolDataScreens(registry);
    registerAllotmentScreens(registry);
    registerTimetableScreens(registry);
    registerGenerationScreens(registry);
    registerReportScreens(registry);
}
}

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
    registerScreens(registry);
    Shell shell(registry, messages, AppPaths::dataFolder());
    QObject::connect(&shell, &Shell::finished, &app, [] { QCoreApplication::exit(0); });
    shell.start();
    return app.exec();
}
