#pragma once
#include <QString>

// Where the program keeps its files: the store files in the program's folder when it is writable, else
// in the user's data folder; the temp folder beside them.
namespace AppPaths {
QString dataFolder();
QString tempFolder(const QString &dataFolder);
// Removes any old temp folder and makes it new; false when it cannot be made.
bool makeFreshFolder(const QString &path);
bool removeFolder(const QString &path);
}
