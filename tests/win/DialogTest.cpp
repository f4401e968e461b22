#include "win/Dialog.h"

#include <gtest/gtest.h>
#include <commctrl.h>

#include "win/CodePage.h"
#include "win/ListView.h"

namespace win {
namespace {

TEST(Dialog, KeepsTextInEveryScript) {
    constexpr int kControl = 7;
    const HWND dialog = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED, 0, 0, 9, 9, nullptr,
                                        nullptr, nullptr, nullptr);
    const HWND edit = CreateWindowExW(0, WC_EDITW, L"", WS_CHILD, 0, 0, 300, 20, dialog,
                                      reinterpret_cast<HMENU>(kControl), nullptr, nullptr);
    for (const std::string text : {"Łódź", "Ελλάδα", "天気", "🌪 Twister", "ירושלים"}) {
        wchar_t stored[16] = L"";
        SetControlText(dialog, kControl, text);
        SendMessageW(edit, WM_GETTEXT, std::size(stored), reinterpret_cast<LPARAM>(stored));
        EXPECT_EQ(stored, ToWide(text));
        EXPECT_EQ(ControlText(dialog, kControl), text);
        SetControlText(dialog, kControl, "");
        for (const wchar_t* key = stored; *key; ++key) SendMessageW(edit, WM_CHAR, *key, 1);
        EXPECT_EQ(ControlText(dialog, kControl), text);
    }
    DestroyWindow(dialog);
}

TEST(Dialog, TruncatesCellTextToItsBuffer) {
    wchar_t buffer[] = {L'?', L'?', L'?', L'!'};
    NMLVDISPINFOW request{};
    request.item.pszText = buffer;
    request.item.cchTextMax = 3;
    SetCellText(request, "Łódź");
    EXPECT_EQ(std::wstring(buffer, 4), std::wstring(L"\u0141\u00F3\0!", 4));
}

}  // namespace
}  // namespace win
