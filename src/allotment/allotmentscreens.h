#pragma once

class ScreenRegistry;

// Puts the work allotment screens on the main window's menu.
void registerAllotmentScreens(ScreenRegistry &registry);
