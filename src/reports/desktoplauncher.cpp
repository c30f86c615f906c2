#include "desktoplauncher.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace {
Launcher *replacement = nullptr;

bool openLocal(const QString &path)
{
    return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
}

bool DesktopLauncher::openTextFile(const QString &path)
{
    return openLocal(path);
}

bool DesktopLauncher::openDocument(const QString &path)
{
    return openLocal(path);
}

bool DesktopLauncher::openFolder(const QString &path)
{
    return openLocal(path);
}

Launcher &Launcher::instance()
{
    static DesktopLauncher desktop;
    return replacement ? *replacement : desktop;
}

void Launcher::setDefault(Launcher *launcher)
{
    replacement = launcher;
}
