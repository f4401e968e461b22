#pragma once
#include <windows.h>

// Sizes in pixels that depend on the resolution of a screen, which is given in dots per inch.
namespace win {

// Messages that the headers declare only for programs that need Windows 10.
inline constexpr UINT kDpiChangedAfterParent = 0x02E3;  // WM_DPICHANGED_AFTERPARENT
inline constexpr UINT kGetDpiScaledSize = 0x02E4;       // WM_GETDPISCALEDSIZE

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
