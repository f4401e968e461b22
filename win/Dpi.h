#pragma once
#include <windows.h>

// Sizes in pixels that depend on the resolution of a screen, which is given in dots per inch.
namespace win {

// Returns the resolution of the window's screen, or the system's if there is no such window.
UINT WindowDpi(HWND window);

// Returns the resolution of the screen with the taskbar.
UINT TaskbarDpi();

// Returns a system metric (SM_...) for a resolution.
int MetricForDpi(int metric, UINT dpi);

// Returns the size of notification icons and of list icons.
int SmallIconSize(UINT dpi);

// Returns the size of the icons of dialogs.
int LargeIconSize(UINT dpi);

// Returns the size of a window with the given client area, as if it were on a screen with this
// resolution.
SIZE WindowSizeForDpi(HWND window, SIZE client, UINT dpi);

}  // namespace win
