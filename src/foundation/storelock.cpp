#include "storelock.h"
#include "schema.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

StoreLock::StoreLock(const QString &dataFolder)
    : m_path(QDir(dataFolder).filePath(Schema::fileName(StoreFile::Main) + QStringLiteral(".lock")))
    , m_holderPath(QDir(dataFolder).filePath(Schema::fileName(StoreFile::Main) + QStringLiteral(".holder")))
    , m_lock(m_path)
{
    m_lock.setStaleLockTime(0); // never stale by age: only a holder that no longer runs gives it up
}

StoreLock::~StoreLock()
{
    if (!m_taken)
        return;
    QFile::remove(m_holderPath);
    m_lock.unlock();
}

StoreLock::State StoreLock::take(const QString &userName)
{
    const bool leftBehind = QFileInfo::exists(m_path);
    if (!m_lock.tryLock(0)) {
        return m_lock.error() == QLockFile::LockFailedError ? State::HeldElsewhere : State::CannotLock;
    }
    m_taken = true;
    QFile holderFile(m_holderPath);
    if (holderFile.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        holderFile.write(QStringLiteral("%1\n%2\n%3\n")
                             .arg(userName, QSysInfo::machineHostName(),
                                  QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy hh:mm")))
                             .toUtf8());
    }
    return leftBehind ? State::TakenAfterUncleanEnd : State::Taken;
}

QString StoreLock::holder() const
{
    QFile holderFile(m_holderPath);
    QStringList lines;
    if (holderFile.open(QIODevice::ReadOnly))
        lines = QString::fromUtf8(holderFile.readAll()).split(QLatin1Char('\n'));
    if (lines.size() >= 3 && !lines.at(0).isEmpty())
        return QStringLiteral("%1 On %2 Since %3").arg(lines.at(0), lines.at(1), lines.at(2));
    qint64 pid = 0;
    QString host, application;
    if (m_lock.getLockInfo(&pid, &host, &application))
        return QStringLiteral("Another User On %1").arg(host);
    return QStringLiteral("Another User");
}
