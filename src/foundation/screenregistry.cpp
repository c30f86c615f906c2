#include "screenregistry.h"

void ScreenRegistry::addScreen(const QString &formName, Factory factory)
{
    m_screens.insert(formName.toLower(), {std::move(factory), false, {}});
}

void ScreenRegistry::addExclusiveScreen(const QString &formName, Factory factory, const QString &refusalText)
{
    m_screens.insert(formName.toLower(), {std::move(factory), true, refusalText});
}

void ScreenRegistry::addCommand(const QString &key, Command command)
{
    m_commands.insert(key.toLower(), std::move(command));
}

// Names compare without case, as the menu's keys and the privilege rows were always written loosely
// ("frmrptWorkAllotmentNonTalliedclasses" and "mnufrmrptWorkAllotmentNonTalliedClasses").
const ScreenRegistry::Screen *ScreenRegistry::screen(const QString &formName) const
{
    const auto found = m_screens.constFind(formName.toLower());
    return found == m_screens.constEnd() ? nullptr : &found.value();
}

const ScreenRegistry::Command *ScreenRegistry::command(const QString &key) const
{
    const auto found = m_commands.constFind(key.toLower());
    return found == m_commands.constEnd() ? nullptr : &found.value();
}
