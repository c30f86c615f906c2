#pragma once

class ScreenRegistry;

// Every screen of the program, as the menu of the desktop program finds them.
void registerAllScreens(ScreenRegistry &registry);
