#pragma once
#include <windows.h>

// Puts the icon back when the taskbar is made anew, as after a restart of the shell.
namespace tray {

// Subclasses the window; a window that is already watched stays as it is.
void StartExplorerMonitor(HWND window);

// Puts the window's procedure back; one that is not watched stays as it is.
void StopExplorerMonitor(HWND window);

}  // namespace tray
