#pragma once

class ScreenRegistry;

// The administration screens the menu opens: help, users and privileges.
void registerAdminScreens(ScreenRegistry &registry);
