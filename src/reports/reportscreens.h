#pragma once

class ScreenRegistry;

// Puts the report screens on the main window's menu.
void registerReportScreens(ScreenRegistry &registry);
