#include "win/MessageLoop.h"

namespace win {
namespace {

// Uses the W functions: an ANSI character message holds at most two bytes, but a UTF-8 character
// can take four.
bool DispatchPending() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // leave it to the outer loop
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
    constexpr ULONG_PTR kDialogClass = 32770;
    return window && GetClassLongPtrW(window, GCW_ATOM) == kDialogClass &&
           IsDialogMessageW(window, &message);
}

void PumpPendingMessages() {
    DispatchPending();
}

void PumpOrWait(DWORD milliseconds, HANDLE other) {
    MsgWaitForMultipleObjectsEx(other ? 1 : 0, &other, milliseconds, QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
    // A quit message stays in the queue and would end every later wait at once.
    if (!DispatchPending()) Sleep(milliseconds);
}

}  // namespace win
