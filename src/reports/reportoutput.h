#pragma once
#include "gridtextfile.h"

class Launcher;
class MessageService;

// The last step of every report: the written file goes to the program that shows it, and the user hears
// what happened when it could not.
namespace ReportOutput {

enum class Kind {
    TextFile, // a Print: the text editor
    Sheet,    // an Export: the spreadsheet program
};

// Opens `file` in the program for its kind; true when a program took it. A file that could not be written
// shows its error. A file that was written but that no program would open (none is installed) is not lost
// without a word: the user is told where it is and may open its folder instead.
bool show(const ReportFile &file, Kind kind, Launcher &launcher, MessageService &messages);

}
