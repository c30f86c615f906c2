#include "apppaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace AppPaths {

QString dataFolder()
{
    const QString programFolder = QCoreApplication::applicationDirPath();
    // A real write test: an installed copy under /usr may look writable to QFileInfo and still refuse.
    QTemporaryFile probe(QDir(programFolder).filePath(QStringLiteral("write-test-XXXXXX")));
    if (probe.open())
        return programFolder;
    const QString home = QDir::homePath() + QStringLiteral("/.local/share/Zarlo-TimeTable");
    QDir().mkpath(home);
    return home;
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
