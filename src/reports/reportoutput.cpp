#include "reportoutput.h"
#include "launcher.h"
#include "messageservice.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace ReportOutput {

bool show(const ReportFile &file, Kind kind, Launcher &launcher, MessageService &messages)
{
    if (!file.ok()) {
        messages.critical(file.error);
        return false;
    }
    const bool opened = kind == Kind::TextFile ? launcher.openTextFile(file.path) : launcher.openDocument(file.path);
    if (opened)
        return true;
    QStringList question = {QStringLiteral("The Report Is Saved In"), QDir::toNativeSeparators(file.path)};
    if (kind == Kind::TextFile) {
        question << QStringLiteral("But No Text Editor Could Be Started To Show It.");
    } else {
        // Sheets are written to the program's temp folder, which an orderly close removes.
        question << QStringLiteral("But No Spreadsheet Program Could Be Started To Show It.")
                 << QStringLiteral("The Folder Is Emptied When 'Zarlo-TimeTable' Closes, So Copy The File To Keep It.");
    }
    question << QStringLiteral("Do You Want To Open Its Folder ?");
    if (!messages.question(question.join(QLatin1Char('\n'))))
        return false;
    const QString folder = QFileInfo(file.path).absolutePath();
    if (!launcher.openFolder(folder))
        messages.critical(QStringLiteral("The Folder\n%1\nCould Not Be Opened").arg(QDir::toNativeSeparators(folder)));
    return false;
}

}
