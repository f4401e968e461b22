#include "win/modOpenDialog.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "win/CodePage.h"
#include "win/Com.h"
#include "win/LateFunctions.h"

namespace win {
namespace {

HHOOK centringHook = nullptr;

LRESULT CALLBACK CentreOnActivation(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE) {
        const HWND dialog = reinterpret_cast<HWND>(wParam);
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        RECT frame;
        if (GetWindowRect(dialog, &frame) &&
            GetMonitorInfoW(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor)) {
            const RECT& work = monitor.rcWork;
            const int width = frame.right - frame.left;
            const int height = frame.bottom - frame.top;
            SetWindowPos(dialog, nullptr, work.left + (work.right - work.left - width) / 2,
                         work.top + (work.bottom - work.top - height) / 2, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        }
        UnhookWindowsHookEx(std::exchange(centringHook, nullptr));
        return 0;
    }
    return CallNextHookEx(centringHook, code, wParam, lParam);
}

}  // namespace

std::string ShowOpenFileDialog(HWND owner, const OpenFileRequest& request) {
    // The size without the fields that later systems added.
    constexpr DWORD kRecordSize = 76;
    static_assert(offsetof(OPENFILENAMEA, pvReserved) == kRecordSize);
    EnsureCom();
    std::string filter = ToAnsi(request.filter) + "||";
    const std::string title = ToAnsi(request.title);
    const std::string startFolder = ToAnsiPath(request.startFolder);
    std::replace(filter.begin(), filter.end(), '|', '\0');
    char path[2048] = {};
    OPENFILENAMEA dialog{};
    dialog.lStructSize = kRecordSize;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path;
    dialog.nMaxFile = sizeof path;
    dialog.lpstrTitle = title.c_str();
    dialog.lpstrInitialDir = startFolder.c_str();
    dialog.Flags =
        OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    centringHook = SetWindowsHookExA(WH_CBT, CentreOnActivation, nullptr, GetCurrentThreadId());
    const bool chosen = late::GetOpenFileNameA(&dialog);
    if (centringHook) UnhookWindowsHookEx(std::exchange(centringHook, nullptr));
    return chosen ? FromAnsi(path) : std::string();
}

}  // namespace win
