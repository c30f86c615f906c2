#include "apppaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace AppPaths {

QString userDataFolder()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (folder.isEmpty())
        folder = QDir::homePath() + QStringLiteral("/.local/share/Zarlo-TimeTable");
    return folder;
}

QString dataFolder(const QStringList &arguments, QString *error)
{
    QString wanted;
    const qsizetype data = arguments.indexOf(QStringLiteral("--data"));
    if (data >= 0 && data + 1 < arguments.size()) {
        wanted = QDir(arguments.at(data + 1)).absolutePath();
    } else {
        const QString programFolder = QCoreApplication::applicationDirPath();
        const bool storeThere = QFileInfo::exists(QDir(programFolder).filePath(QStringLiteral("TimeTable.mdb")));
        wanted = arguments.contains(QStringLiteral("--portable")) || storeThere ? programFolder : userDataFolder();
    }
    if (!QDir().mkpath(wanted)) {
        if (error)
            *error = QStringLiteral("The folder %1 cannot be made").arg(QDir::toNativeSeparators(wanted));
        return {};
    }
    return wanted;
}

QString tempFolder(const QString &dataFolder)
{
    return QDir(dataFolder).filePath(QStringLiteral("Temp"));
}

bool makeFreshFolder(const QString &path)
{
    removeFolder(path);
    return QDir().mkpath(path);
}

bool removeFolder(const QString &path)
{
    QDir dir(path);
    return !dir.exists() || dir.removeRecursively();
}

}
