// A minimal tray program: a window, an icon, a message loop. The baseline for start and memory.
#include <windows.h>
#include <shellapi.h>

namespace {

NOTIFYICONDATAA icon{};

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        Shell_NotifyIconA(NIM_DELETE, &icon);
        PostQuitMessage(0);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = "MinimalTray";
    RegisterClassA(&windowClass);
    icon.cbSize = sizeof icon;
    icon.hWnd = CreateWindowExA(0, "MinimalTray", "Minimal", WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                                nullptr, instance, nullptr);
    icon.uID = 1;
    icon.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    icon.uCallbackMessage = WM_APP;
    icon.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    Shell_NotifyIconA(NIM_ADD, &icon);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
