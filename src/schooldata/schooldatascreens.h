#pragma once

class ScreenRegistry;

// Puts the school data screens on the main window's menu.
void registerSchoolDataScreens(ScreenRegistry &registry);
