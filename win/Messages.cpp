#include "win/Messages.h"

namespace win {
namespace {

// The wide variants throughout, though every window is an ANSI one: an ANSI character message holds
// two bytes at most, and a letter in UTF-8 may take four.
bool DispatchPending() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // for the loop that this wait is nested in
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (IsForDialog(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

}  // namespace

bool IsForDialog(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const HWND window = GetAncestor(message.hwnd, GA_ROOT);
    constexpr ULONG_PTR dialogClass = 32770;
    return window && GetClassLongPtrA(window, GCW_ATOM) == dialogClass &&
           IsDialogMessageW(window, &message);
}

void PumpPendingMessages() {
    DispatchPending();
}

void PumpNowAndThen() {
    constexpr DWORD shortest = 15;
    static DWORD last = 0;
    if (GetTickCount() - last < shortest) return;
    PumpPendingMessages();
    last = GetTickCount();
}

void PumpOrWait(DWORD milliseconds, HANDLE other) {
    MsgWaitForMultipleObjectsEx(other ? 1 : 0, &other, milliseconds, QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
    // A quit message stays in the queue and would end every further sleep at once.
    if (!DispatchPending()) Sleep(milliseconds);
}

void ShowMessage(HWND owner, const std::string& text, UINT icon, const char* title) {
    MessageBoxA(owner, text.c_str(), title, MB_OK | icon | MB_SETFOREGROUND);
}

bool Confirm(HWND owner, const std::string& text, UINT icon) {
    return MessageBoxA(owner, text.c_str(), kProgramName, MB_YESNO | icon | MB_SETFOREGROUND) ==
           IDYES;
}

}  // namespace win
