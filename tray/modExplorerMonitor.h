#pragma once
#include <windows.h>

// Adds the icon again when Explorer has created a new taskbar, for example after a crash.
namespace tray {

// Subclasses the window; does nothing if it is monitored already.
void StartExplorerMonitor(HWND window);

// Restores the window's procedure; does nothing if it is not monitored.
void StopExplorerMonitor(HWND window);

}  // namespace tray
