#include "win/Messages.h"

namespace win {
namespace {

bool IsForDialog(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const HWND window = GetAncestor(message.hwnd, GA_ROOT);
    constexpr ULONG_PTR dialogClass = 32770;
    return window && GetClassLongPtrA(window, GCW_ATOM) == dialogClass &&
           IsDialogMessageA(window, &message);
}

}  // namespace

void PumpPendingMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // for the loop that this wait is nested in
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (IsForDialog(message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void PumpOrWait(DWORD milliseconds, HANDLE other) {
    MsgWaitForMultipleObjectsEx(other ? 1 : 0, &other, milliseconds, QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
    PumpPendingMessages();
}

void Tell(HWND owner, const std::string& text, UINT icon, const char* title) {
    MessageBoxA(owner, text.c_str(), title, MB_OK | icon | MB_SETFOREGROUND);
}

bool Ask(HWND owner, const std::string& text, UINT icon) {
    return MessageBoxA(owner, text.c_str(), kProgramName, MB_YESNO | icon | MB_SETFOREGROUND) ==
           IDYES;
}

}  // namespace win
