#include "storestart.h"
#include "messageservice.h"

#include <QDir>

StoreStart chooseStoreStart(const QString &folder, const QString &userFolder, const QString &userName,
                            MessageService &messages, const std::function<bool(const QString &)> &isReadOnly)
{
    StoreStart start;
    start.folder = folder;
    if (isReadOnly(folder)) {
        const bool copy = messages.question(
            QStringLiteral("The School In %1 Cannot Be Changed There: The Folder Or The File Is Read-Only.\n\n"
                           "Yes: Copy It To %2 And Open The Copy\nNo: Open It Read-Only")
                .arg(QDir::toNativeSeparators(folder), QDir::toNativeSeparators(userFolder)));
        QString error;
        if (copy && AppPaths::copyStore(folder, userFolder, &error)) {
            start.folder = userFolder;
        } else {
            if (copy)
                messages.critical(error + QStringLiteral("\nThe School Is Opened Read-Only."));
            start.readOnly = true;
            return start;
        }
    }
    start.lock = std::make_unique<StoreLock>(start.folder);
    switch (start.lock->take(userName)) {
    case StoreLock::State::HeldElsewhere:
        if (!messages.question(QStringLiteral("This School Is Open By %1.\nIf Zarlo-TimeTable Is No Longer Running "
                                              "There, Delete %2.\n\nDo You Want To Open It Read-Only ?")
                                   .arg(start.lock->holder(), QDir::toNativeSeparators(start.lock->lockPath())))) {
            start.quit = true;
            return start;
        }
        start.readOnly = true;
        break;
    case StoreLock::State::TakenAfterUncleanEnd:
        start.checkFirst = true;
        break;
    case StoreLock::State::Taken:
    case StoreLock::State::CannotLock:
        break;
    }
    return start;
}
