#include "options/PlainControls.h"

#include <commctrl.h>

#include <iterator>

#include "options/Pages.h"
#include "settings/IniOpenSave.h"
#include "win/Dialog.h"
#include "win/ListItems.h"

namespace options {

using namespace settings;

namespace {

bool IsComboBox(HWND page, int control) {
    wchar_t name[16] = L"";
    GetClassNameW(GetDlgItem(page, control), name, std::size(name));
    return lstrcmpiW(name, WC_COMBOBOXW) == 0;
}

bool IsTicked(const PlainControl& control) {
    const std::string value = ReadSetting(control.setting);
    return control.defaultValue == std::string_view(kTrue) ? value != kFalse : value == kTrue;
}

std::string ReadEntry(const PlainControl& control) {
    return ReadSetting(control.setting,
                       control.current ? State().*control.current : control.defaultValue);
}

void ApplyEntry(HWND page, const PlainControl& control) {
    const std::string entry = ChosenEntry(page, control.control);
    if (entry.empty()) return;
    WriteSetting(control.setting, entry);
    if (control.current) State().*control.current = entry;
}

}  // namespace

void LoadControls(HWND page, std::span<const PlainControl> controls) {
    for (const PlainControl& control : controls)
        if (IsComboBox(page, control.control)) {
            const win::ListControl combo = win::ComboBox(page, control.control);
            win::SelectItem(combo, win::FindItem(combo, ReadEntry(control)));
        } else {
            win::SetChecked(page, control.control, IsTicked(control));
        }
}

void ApplyControls(HWND page, std::span<const PlainControl> controls) {
    for (const PlainControl& control : controls)
        if (IsComboBox(page, control.control))
            ApplyEntry(page, control);
        else
            WriteFlag(control.setting, win::IsChecked(page, control.control));
}

void MarkControlChange(HWND page, std::span<const PlainControl> controls, WPARAM wParam) {
    for (const PlainControl& control : controls) {
        const UINT change = IsComboBox(page, control.control) ? CBN_SELCHANGE : BN_CLICKED;
        if (control.control == LOWORD(wParam) && change == HIWORD(wParam)) MarkChanged(page);
    }
}

std::string ChosenEntry(HWND page, int combo) {
    const win::ListControl list = win::ComboBox(page, combo);
    return win::ItemText(list, win::SelectedItem(list));
}

}  // namespace options
