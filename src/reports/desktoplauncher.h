#pragma once
#include "launcher.h"

// Starts the desktop's default application for a file (the text editor for .txt, the spreadsheet program
// for .xlsx) or a folder (the file manager) and returns at once.
class DesktopLauncher : public Launcher
{
public:
    bool openTextFile(const QString &path) override;
    bool openDocument(const QString &path) override;
    bool openFolder(const QString &path) override;
};
