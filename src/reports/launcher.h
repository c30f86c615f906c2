#pragma once
#include <QString>
#include <QStringList>

// Hands a finished report file to the desktop: the text file to the default text editor, a spreadsheet to
// the program that opens .xlsx files, a folder to the file manager. The program never waits for what it
// starts. Screens take a Launcher so that tests can put a RecordingLauncher in its place and no editor pops
// up during a test run.
class Launcher
{
public:
    virtual ~Launcher() = default;
    // Opens a text file (a report written by a Print button). False when the desktop refused it.
    virtual bool openTextFile(const QString &path) = 0;
    // Opens a document (a sheet written by an Export button) in its default application.
    virtual bool openDocument(const QString &path) = 0;
    // Shows a folder in the file manager, for a report that no program would open.
    virtual bool openFolder(const QString &path) = 0;

    // The launcher of the running program: a DesktopLauncher unless setDefault() put another in its place.
    // Defined in tt_reports_forms (desktoplauncher.cpp), which links the desktop services.
    static Launcher &instance();
    // Replaces the program-wide launcher (nullptr restores the desktop one); for tests of screens that do
    // not take a launcher in their constructor.
    static void setDefault(Launcher *launcher);
};

// Keeps every launch instead of starting anything; `succeed` false makes each file launch fail, as on a
// machine without a text editor or spreadsheet program.
class RecordingLauncher : public Launcher
{
public:
    bool openTextFile(const QString &path) override
    {
        textFiles << path;
        return succeed;
    }
    bool openDocument(const QString &path) override
    {
        documents << path;
        return succeed;
    }
    bool openFolder(const QString &path) override
    {
        folders << path;
        return true;
    }

    QStringList textFiles;
    QStringList documents;
    QStringList folders;
    bool succeed = true; // for files; a folder always opens
};
