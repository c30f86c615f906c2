#pragma once
#include <QLockFile>
#include <QString>

// One program window at a time on a school's store, also across machines sharing its folder. The lock file
// beside the store names who holds it, so that a second user is told by whom and since when; a lock left by
// a program that ended without closing (on this machine) is taken over, and the caller then checks the store.
class StoreLock
{
public:
    enum class State { Taken, TakenAfterUncleanEnd, HeldElsewhere, CannotLock };

    explicit StoreLock(const QString &dataFolder);
    ~StoreLock();
    StoreLock(const StoreLock &) = delete;
    StoreLock &operator=(const StoreLock &) = delete;

    State take(const QString &userName);
    // "<user> on <machine> since <date time>" of the holder, read from the lock's companion file.
    QString holder() const;
    QString lockPath() const { return m_path; }

private:
    QString m_path;
    QString m_holderPath;
    QLockFile m_lock;
    bool m_taken = false;
};
