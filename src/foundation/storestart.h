#pragma once
#include "apppaths.h"
#include "storelock.h"

#include <QString>
#include <functional>
#include <memory>

class MessageService;

// Where and how the program opens the school at start.
struct StoreStart
{
    QString folder;
    bool readOnly = false;   // the folder cannot be written, or another window holds the school
    bool checkFirst = false; // the last run ended without closing: check the store before use
    bool quit = false;       // the user chose not to open the school
    std::unique_ptr<StoreLock> lock;
};

// Settles how the school in `folder` is opened. A school in a folder that cannot be written is copied to
// `userFolder` or opened read-only, as the user answers; a school another window holds is opened read-only
// or not at all; a lock left by a run that ended without closing is taken over and the store checked first.
// `isReadOnly` tells whether a folder's school cannot be changed there (the folder test by default).
StoreStart chooseStoreStart(const QString &folder, const QString &userFolder, const QString &userName,
                            MessageService &messages,
                            const std::function<bool(const QString &)> &isReadOnly = AppPaths::storeIsReadOnly);
