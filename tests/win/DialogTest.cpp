#include "win/Dialog.h"

#include <gtest/gtest.h>
#include <commctrl.h>

#include "win/CodePage.h"
#include "win/LateFunctions.h"
#include "win/ListItems.h"
#include "win/ListView.h"

namespace win {
namespace {

constexpr int kControl = 7;

// No code page but UTF-8 has all of them.
const struct {
    const char* text;
    const wchar_t* wide;
} names[] = {{"Łódź", L"\u0141\u00F3d\u017A"},
             {"Ελλάδα", L"\u0395\u03BB\u03BB\u03AC\u03B4\u03B1"},
             {"天気", L"\u5929\u6C17"},
             {"🌪 Twister", L"\U0001F32A Twister"},
             {"ירושלים", L"\u05D9\u05E8\u05D5\u05E9\u05DC\u05D9\u05DD"}};

// A window with one control.
class ControlTest : public testing::Test {
  protected:
    void SetUp() override {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES};
        late::InitCommonControlsEx(&classes);
        dialog = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED, 0, 0, 300, 200, nullptr,
                                 nullptr, nullptr, nullptr);
    }
    void TearDown() override { DestroyWindow(dialog); }
    HWND Create(const wchar_t* className, DWORD style) {
        return CreateWindowExW(0, className, L"", WS_CHILD | style, 0, 0, 300, 100, dialog,
                               reinterpret_cast<HMENU>(kControl), nullptr, nullptr);
    }
    // Returns the text that the message stores, whose lParam is a text or a record with one.
    template <class Record = std::nullptr_t>
    std::wstring Ask(HWND control, UINT message, WPARAM wParam, Record* record = nullptr) {
        wchar_t text[64] = L"";
        auto lParam = reinterpret_cast<LPARAM>(text);
        if constexpr (!std::is_same_v<Record, std::nullptr_t>) {
            record->pszText = text;
            record->cchTextMax = std::size(text);
            lParam = reinterpret_cast<LPARAM>(record);
        }
        SendMessageW(control, message, wParam, lParam);
        return text;
    }
    HWND dialog = nullptr;
};

TEST_F(ControlTest, KeepsATextAsItIs) {
    const HWND edit = Create(WC_EDITW, 0);
    for (const auto& name : names) {
        SetControlText(dialog, kControl, name.text);
        EXPECT_EQ(Ask(edit, WM_GETTEXT, 64), name.wide);
        EXPECT_EQ(ControlText(dialog, kControl), name.text);
        SetControlText(dialog, kControl, "");
        for (const wchar_t* key = name.wide; *key; ++key) SendMessageW(edit, WM_CHAR, *key, 1);
        EXPECT_EQ(ControlText(dialog, kControl), name.text);
    }
}

TEST_F(ControlTest, KeepsTheItemsOfLists) {
    for (const bool isListBox : {true, false}) {
        const ListControl list{
            isListBox ? Create(WC_LISTBOXW, LBS_HASSTRINGS) : Create(WC_COMBOBOXW, CBS_DROPDOWN),
            isListBox};
        for (const auto& name : names) {
            const int item = AddItem(list, name.text);
            EXPECT_EQ(
                Ask(list.window, isListBox ? LB_GETTEXT : CB_GETLBTEXT, static_cast<WPARAM>(item)),
                name.wide);
            EXPECT_EQ(ItemText(list, item), name.text);
            EXPECT_EQ(FindItem(list, name.text), item);
        }
        DestroyWindow(list.window);
    }
}

TEST_F(ControlTest, KeepsTheTextsOfColumnsRowsAndTabs) {
    const HWND list = Create(WC_LISTVIEWW, LVS_REPORT);
    const HWND tabs = Create(WC_TABCONTROLW, 0);
    int row = 0;
    for (const auto& name : names) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        LVITEMW item{};
        TCITEMW tab{};
        tab.mask = TCIF_TEXT;
        AddListColumn(list, name.text, 50);
        AddListRow(list, 0, {name.text});
        InsertTab(tabs, static_cast<std::size_t>(row), name.text);
        const auto index = static_cast<WPARAM>(row++);
        EXPECT_EQ(Ask(list, LVM_GETCOLUMNW, index, &column), name.wide);
        EXPECT_EQ(Ask(list, LVM_GETITEMTEXTW, index, &item), name.wide);
        EXPECT_EQ(Ask(tabs, TCM_GETITEMW, index, &tab), name.wide);
    }
}

TEST_F(ControlTest, FillsTheCellsOfVirtualLists) {
    wchar_t buffer[3] = L"";
    NMLVDISPINFOW request{};
    request.item.pszText = buffer;
    request.item.cchTextMax = std::size(buffer);
    SetCellText(request, names[0].text);
    EXPECT_STREQ(buffer, L"\u0141\u00F3");
    NMLVFINDITEMW search{};
    EXPECT_EQ(FindRequestText(search.hdr), std::nullopt);
    search.lvfi.flags = LVFI_STRING;
    search.lvfi.psz = names[0].wide;
    EXPECT_EQ(FindRequestText(search.hdr), names[0].text);
}

}  // namespace
}  // namespace win
