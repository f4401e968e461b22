#pragma once
#include <windows.h>

// The tray window's events: the icon's mouse messages, the timers, the menu's commands, and the end
// of the session. Each is passed to the file that handles it.
namespace tray {

// Loads the built-in icons, creates the tray window and starts the Explorer monitor. Returns null
// if the window cannot be created.
HWND LoadTrayWindow();

}  // namespace tray
