#include "win/Dpi.h"

#include <shellscalingapi.h>

#include "win/LateFunctions.h"

namespace win {

UINT WindowDpi(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return dpi ? dpi : GetDpiForSystem();
}

UINT TaskbarDpi() {
    static constinit LateFunction<decltype(::GetDpiForMonitor)> getDpi(L"shcore.dll",
                                                                       "GetDpiForMonitor");
    // Uses the screen's DPI: on some systems the taskbar window itself is scaled.
    const HWND taskbar = FindWindowW(L"Shell_TrayWnd", nullptr);
    UINT dpi = 0;
    UINT vertical = 0;
    const bool isKnown = SUCCEEDED(getDpi(MonitorFromWindow(taskbar, MONITOR_DEFAULTTOPRIMARY),
                                          MDT_EFFECTIVE_DPI, &dpi, &vertical));
    return isKnown ? dpi : GetDpiForSystem();
}

int MetricForDpi(int metric, UINT dpi) {
    return GetSystemMetricsForDpi(metric, dpi);
}

int SmallIconSize(UINT dpi) {
    return MetricForDpi(SM_CXSMICON, dpi);
}

int LargeIconSize(UINT dpi) {
    return MetricForDpi(SM_CXICON, dpi);
}

SIZE WindowSizeForDpi(HWND window, SIZE client, UINT dpi) {
    RECT frame{0, 0, client.cx, client.cy};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)), dpi);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace win
