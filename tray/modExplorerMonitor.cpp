#include "tray/modExplorerMonitor.h"

#include "tray/modTrayIcon.h"

namespace tray {
namespace {

constexpr char kProcedure[] = "ExSubClassProc";
constexpr char kPointer[] = "ExSubClassPtr";

UINT TaskbarCreatedMessage = 0;

LRESULT CALLBACK MonitorProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == TaskbarCreatedMessage) {
        LoadImages();  // Windows also sends the message when the taskbar's scaling changes
        AddTrayIcon();
        RefreshTrayIconImage();  // an icon that the taskbar still has cannot be added
    }
    const auto previous = reinterpret_cast<WNDPROC>(GetPropA(window, kProcedure));
    return CallWindowProcA(previous, window, message, wParam, lParam);
}

}  // namespace

void StartExplorerMonitor(HWND window) {
    if (GetPropA(window, kProcedure)) return;
    TaskbarCreatedMessage = RegisterWindowMessageA("TaskbarCreated");
    // Without this a program with administrator rights does not receive the message of the shell,
    // which has none.
    ChangeWindowMessageFilterEx(window, TaskbarCreatedMessage, MSGFLT_ALLOW, nullptr);
    SetPropA(window, kProcedure, reinterpret_cast<HANDLE>(GetWindowLongA(window, GWL_WNDPROC)));
    const LONG previous =
        SetWindowLongA(window, GWL_WNDPROC, reinterpret_cast<LONG>(MonitorProcedure));
    SetPropA(window, kPointer, reinterpret_cast<HANDLE>(previous));
}

void StopExplorerMonitor(HWND window) {
    const HANDLE previous = GetPropA(window, kProcedure);
    if (!previous) return;
    SetWindowLongA(window, GWL_WNDPROC, reinterpret_cast<LONG>(previous));
    RemovePropA(window, kProcedure);
    RemovePropA(window, kPointer);
}

}  // namespace tray
