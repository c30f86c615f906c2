#pragma once
#include "launcher.h"

// Starts the desktop's default application for a file (the text editor for .txt, the spreadsheet program
// for .xlsx) and returns at once.
class DesktopLauncher : public Launcher
{
public:
    bool openTextFile(const QString &path) override;
    bool openDocument(const QString &path) override;
};
