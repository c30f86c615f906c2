#pragma once
#include <QString>

// The closing words of the entry screens' Save and Delete.
namespace Texts {
inline QString recordSaved() { return QStringLiteral("Record Saved"); }
inline QString recordUpdated() { return QStringLiteral("Record Updated"); }
inline QString recordDeleted() { return QStringLiteral("Record Deleted"); }
// The caption of screens that close on Esc.
inline QString escCloses() { return QStringLiteral("Press 'ESC' To Close The Window"); }
}

// Every message box of the program goes through this interface: the desktop shows real boxes, tests put a
// scripted double in its place, and the headless tool answers as its options say.
class MessageService
{
public:
    virtual ~MessageService() = default;

    // The heading used when a box names none.
    static QString defaultTitle() { return QStringLiteral("Zarlo-TimeTable"); }

    virtual void information(const QString &text, const QString &title = defaultTitle()) = 0;
    virtual void critical(const QString &text, const QString &title = defaultTitle()) = 0;
    // Yes/No question; true for Yes.
    virtual bool question(const QString &text, const QString &title = defaultTitle()) = 0;
    // OK/Cancel question; true for OK.
    virtual bool okCancel(const QString &text, const QString &title = defaultTitle()) = 0;
};
