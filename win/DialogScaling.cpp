#include "win/DialogScaling.h"

#include <commctrl.h>

#include <iterator>
#include <utility>

#include "win/Dpi.h"
#include "win/Images.h"
#include "win/LateFunctions.h"
#include "win/ListView.h"

namespace win {
namespace {

constexpr int kFontPoints = 8;  // of all dialogs
constexpr int kPointsPerInch = 72;

// Returns the font of the dialog's controls. The one that the dialog itself returns is that of its
// creation, which the system owns.
HFONT FontOf(HWND dialog) {
    return reinterpret_cast<HFONT>(SendDlgItemMessageW(dialog, IDOK, WM_GETFONT, 0, 0));
}

Font MakeFont(HWND dialog, UINT dpi) {
    LOGFONTW font{};
    GetObjectW(FontOf(dialog), sizeof font, &font);
    font.lfHeight = -MulDiv(kFontPoints, static_cast<int>(dpi), kPointsPerInch);
    return Font(CreateFontIndirectW(&font));
}

// Measures the units as the system does when it creates a dialog.
SIZE MeasureUnits(HFONT font) {
    constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kCount = static_cast<int>(std::size(kLetters)) - 1;
    const HDC device = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(device, font);
    SIZE letters{};
    GetTextExtentPoint32W(device, kLetters, kCount, &letters);
    TEXTMETRICW metrics{};
    GetTextMetricsW(device, &metrics);
    SelectObject(device, previous);
    ReleaseDC(nullptr, device);
    return {(letters.cx / (kCount / 2) + 1) / 2, metrics.tmHeight};
}

// The ratio of two sizes of the dialog units.
struct Ratio {
    SIZE from;
    SIZE to;

    int Width(int pixels) const { return MulDiv(pixels, to.cx, from.cx); }
    int Height(int pixels) const { return MulDiv(pixels, to.cy, from.cy); }
};

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t found[32] = L"";
    GetClassNameW(window, found, static_cast<int>(std::size(found)));
    return lstrcmpiW(found, name) == 0;
}

bool IsDialog(HWND window) {
    return HasClass(window, L"#32770");
}

// Returns a control's place in its parent; that of a combo box includes its list.
RECT PlaceOf(HWND control) {
    RECT place;
    GetWindowRect(control, &place);
    if (HasClass(control, WC_COMBOBOXW))
        SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

void ScaleControls(HWND dialog, HFONT font, const Ratio& ratio) {
    for (HWND control = GetWindow(dialog, GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const RECT place = PlaceOf(control);  // before the font, which changes some heights
        if (IsDialog(control))
            ScaleControls(control, font, ratio);
        else
            SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        const int left = ratio.Width(place.left);
        const int top = ratio.Height(place.top);
        SetWindowPos(control, nullptr, left, top, ratio.Width(place.right) - left,
                     ratio.Height(place.bottom) - top, SWP_NOZORDER | SWP_NOACTIVATE);
        if (HasClass(control, WC_LISTVIEWW)) ScaleListColumns(control, ratio.from.cx, ratio.to.cx);
    }
}

// Keeps the system from scaling the dialog and its pages: it would do so only in part.
void DisableSystemScaling(HWND dialog) {
    // Some systems lack the function, and do not scale dialogs.
    auto* const disable = late::SetDialogDpiChangeBehavior.Find();
    if (!disable) return;
    disable(dialog, DDC_DISABLE_ALL, DDC_DISABLE_ALL);
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (IsDialog(child)) DisableSystemScaling(child);
}

}  // namespace

DialogScaling::DialogScaling(HWND dialog) : dialog_(dialog) {
    ShowIcon(WindowDpi(dialog));
    late::SetWindowSubclass(dialog, Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK DialogScaling::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR identifier, DWORD_PTR object) {
    auto& scaling = *reinterpret_cast<DialogScaling*>(object);
    if (message == WM_GETDPISCALEDSIZE) {  // precedes WM_DPICHANGED
        DisableSystemScaling(dialog);
        *reinterpret_cast<SIZE*>(lParam) = scaling.SizeFor(static_cast<UINT>(wParam));
        return TRUE;
    }
    if (message == WM_DPICHANGED)
        scaling.ScaleTo(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
    // Otherwise the library may keep its record of the subclass.
    if (message == WM_NCDESTROY) late::RemoveWindowSubclass(dialog, Procedure, identifier);
    return late::DefSubclassProc(dialog, message, wParam, lParam);
}

void DialogScaling::ShowIcon(UINT dpi) {
    const auto show = [&](WPARAM kind, Icon& shown, int size) {
        Icon icon = LoadIconResource(kProgramIcon, size);
        SendMessageW(dialog_, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon.Get()));
        shown = std::move(icon);
    };
    show(ICON_BIG, bigIcon_, LargeIconSize(dpi));
    show(ICON_SMALL, smallIcon_, SmallIconSize(dpi));
}

SIZE DialogScaling::SizeFor(UINT dpi) const {
    const Ratio ratio{MeasureDialogUnits(dialog_), MeasureUnits(MakeFont(dialog_, dpi).Get())};
    RECT client;
    GetClientRect(dialog_, &client);
    return WindowSizeForDpi(dialog_, {ratio.Width(client.right), ratio.Height(client.bottom)}, dpi);
}

void DialogScaling::ScaleTo(UINT dpi, const RECT& window) {
    Font font = MakeFont(dialog_, dpi);
    const Ratio ratio{MeasureDialogUnits(dialog_), MeasureUnits(font.Get())};
    ScaleControls(dialog_, font.Get(), ratio);
    font_ = std::move(font);
    SetWindowPos(dialog_, nullptr, window.left, window.top, window.right - window.left,
                 window.bottom - window.top, SWP_NOZORDER | SWP_NOACTIVATE);
    ShowIcon(dpi);
    RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

SIZE MeasureDialogUnits(HWND dialog) {
    return MeasureUnits(FontOf(dialog));
}

}  // namespace win
