#include "apppaths.h"

#include "schema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
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

bool storeIsReadOnly(const QString &folder)
{
    const QFileInfo store(QDir(folder).filePath(Schema::fileName(StoreFile::Main)));
    return store.exists() && (!store.isWritable() || !QFileInfo(folder).isWritable());
}

bool copyStore(const QString &from, const QString &to, QString *error)
{
    const auto fail = [error](const QString &text) {
        if (error)
            *error = text;
        return false;
    };
    const QDir target(to);
    if (QFileInfo::exists(target.filePath(Schema::fileName(StoreFile::Main))))
        return fail(QStringLiteral("A School Already Stands In %1").arg(QDir::toNativeSeparators(to)));
    if (!QDir().mkpath(to))
        return fail(QStringLiteral("The folder %1 cannot be made").arg(QDir::toNativeSeparators(to)));
    QStringList copied;
    for (StoreFile file : {StoreFile::BackupHistory, StoreFile::Help, StoreFile::Main}) {
        const QString source = QDir(from).filePath(Schema::fileName(file));
        const QString copy = target.filePath(Schema::fileName(file));
        if (!QFileInfo::exists(source))
            continue;
        if (!QFile::copy(source, copy)) {
            for (const QString &done : copied)
                QFile::remove(done);
            return fail(QStringLiteral("%1 cannot be copied to %2")
                            .arg(QDir::toNativeSeparators(source), QDir::toNativeSeparators(to)));
        }
        QFile(copy).setPermissions(QFile(copy).permissions() | QFileDevice::WriteOwner);
        copied << copy;
    }
    return true;
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
