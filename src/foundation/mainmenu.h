#pragma once
#include <QList>
#include <QString>

class QMenuBar;

// One entry of the main window's menu, in the order the menu shows them.
struct MenuEntry
{
    int level;           // 0 for the menu bar, 1 inside a top menu, 2 inside a sub-menu
    const char *name;    // the entry's object name
    const char *caption; // "-" for a separator
    const char *opens;   // what the entry opens: a form name or a command key; empty for a sub-menu
    bool enabled;        // enabled before any login
    const char *title;   // the title a bulk deletion shows, else empty
};

namespace MainMenu {
const QList<MenuEntry> &entries();
// Builds the menu into `bar`: every entry becomes a QAction named as its entry (a sub-menu's menuAction
// too), carrying what it opens in its data.
void build(QMenuBar *bar);
}
