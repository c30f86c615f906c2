#pragma once
#include <QString>
#include <QStringList>

// Where the program keeps its files. The store lives in the user's data folder, so that rebuilding or
// reinstalling the program never touches the school; the program's own folder is used only where a store
// already stands there or a portable start asks for it.
namespace AppPaths {

// The store's folder for a start with these command-line words (`--data DIR`, `--portable`); made when
// missing. An empty result with `*error` set when a --data folder cannot be made.
QString dataFolder(const QStringList &arguments, QString *error = nullptr);
// True when a school's store stands in `folder` but cannot be changed there (the file or folder is read-only).
bool storeIsReadOnly(const QString &folder);
// Copies the store files of `from` into `to` (made when missing). Refuses, with `*error`, when `to` already
// holds a store or a copy fails; a failed copy leaves nothing half-copied behind.
bool copyStore(const QString &from, const QString &to, QString *error);
// The user's data folder of the program (~/.local/share/Zarlo-TimeTable on Linux).
QString userDataFolder();
QString tempFolder(const QString &dataFolder);
// Removes any old temp folder and makes it new; false when it cannot be made.
bool makeFreshFolder(const QString &path);
bool removeFolder(const QString &path);

}
