#include <vector>

#include "search/resource.h"
#include "tests/options/OptionsDriver.h"

namespace options {
namespace {

class DialogScalingTest : public OptionsFormTest {};

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> Descendants(HWND dialog) {
    std::vector<HWND> found;
    EnumChildWindows(dialog, AddWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

RECT PlaceInParent(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// Sends what the system sends when the dialog comes to a screen with another resolution.
void MoveToScreen(HWND dialog, UINT dpi) {
    SIZE size{};
    ASSERT_TRUE(SendMessageW(dialog, WM_GETDPISCALEDSIZE, dpi, reinterpret_cast<LPARAM>(&size)));
    RECT window{10, 20, 10 + size.cx, 20 + size.cy};
    SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&window));
}

LONG FontHeight(HWND control) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font,
               &font);
    return font.lfHeight;
}

TEST_F(DialogScalingTest, FollowsToAnotherScreenAndBack) {
    WithDialog([](HWND dialog) {
        const std::vector<HWND> controls = Descendants(dialog);
        std::vector<RECT> before;
        for (const HWND control : controls) before.push_back(PlaceInParent(control));
        MoveToScreen(dialog, 192);
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const RECT place = PlaceInParent(controls[i]);
            RECT parent;
            GetClientRect(GetParent(controls[i]), &parent);
            EXPECT_TRUE(place.right <= parent.right && place.bottom <= parent.bottom)
                << win::WindowText(controls[i]);
            const LONG widthBefore = before[i].right - before[i].left;
            EXPECT_GE((place.right - place.left) * 3, widthBefore * 5)
                << win::WindowText(controls[i]);
        }
        EXPECT_EQ(FontHeight(Find(dialog, frmOptions_Check4)), -21);
        EXPECT_EQ(FontHeight(Find(dialog, frmOptions_ApplyButton)), -21);
        MoveToScreen(dialog, 96);
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const RECT place = PlaceInParent(controls[i]);
            EXPECT_TRUE(EqualRect(&place, &before[i])) << win::WindowText(controls[i]);
        }
    });
}

bool HasClass(HWND window, const std::string& wanted) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    return name == wanted;
}

bool NeedsLabel(HWND control) {
    return HasClass(control, "Edit") || HasClass(control, "ComboBox") ||
           HasClass(control, "ListBox") || HasClass(control, "SysListView32");
}

void ExpectLabels(HWND dialog) {
    for (const HWND control : Descendants(dialog)) {
        if (!NeedsLabel(control)) continue;
        const HWND label = GetWindow(control, GW_HWNDPREV);
        EXPECT_TRUE(HasClass(label, "Static")) << GetDlgCtrlID(control);
        EXPECT_NE(win::WindowText(label), "") << GetDlgCtrlID(control);
    }
}

// Screen readers take the name of a list or box from the text before it.
TEST_F(DialogScalingTest, PutsANameBeforeEachListAndBox) {
    WithDialog(ExpectLabels);
    for (const int form : {IDD_frmSearch, IDD_frmSearchChoose, IDD_InputBox}) {
        const HWND dialog = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(form),
                                               nullptr, nullptr, 0);
        ASSERT_TRUE(dialog) << form;
        if (form == IDD_InputBox) win::SetControlText(dialog, InputBox_Prompt, "set when opened");
        ExpectLabels(dialog);
        DestroyWindow(dialog);
    }
}

}  // namespace
}  // namespace options
