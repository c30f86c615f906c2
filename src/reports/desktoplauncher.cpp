#include "desktoplauncher.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace {
Launcher *replacement = nullptr;

bool openLocalFile(const QString &path)
{
    return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
}

bool DesktopLauncher::openTextFile(const QString &path)
{
    return openLocalFile(path);
}

bool DesktopLauncher::openDocument(const QString &path)
{
    return openLocalFile(path);
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
