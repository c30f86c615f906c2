#pragma once

class ScreenRegistry;

// Puts the manual timetable screens on the main window's menu.
void registerTimetableScreens(ScreenRegistry &registry);
