#pragma once
#include <QHash>
#include <QString>
#include <functional>

class QWidget;
struct AppContext;

// What the menu can open: each subsystem registers its screens (by form name) and commands (by menu key)
// here, and the main window looks them up. A menu entry with nothing registered opens nothing.
class ScreenRegistry
{
public:
    using Factory = std::function<QWidget *(AppContext &)>;
    using Command = std::function<void(AppContext &)>;

    struct Screen
    {
        Factory factory;
        // Runs alone: refuses to open beside another child screen and hides the top menus while open.
        bool exclusive = false;
        QString refusalText; // shown when an exclusive screen cannot open
    };

    void addScreen(const QString &formName, Factory factory);
    void addExclusiveScreen(const QString &formName, Factory factory, const QString &refusalText);
    void addCommand(const QString &key, Command command);

    const Screen *screen(const QString &formName) const;
    const Command *command(const QString &key) const;

private:
    QHash<QString, Screen> m_screens;
    QHash<QString, Command> m_commands;
};
