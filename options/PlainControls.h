#pragma once
#include <windows.h>

#include <span>
#include <string>

#include "settings/ProgramState.h"
#include "settings/SettingKeys.h"

// Controls that show exactly one setting. A page lists them in a table, by which they are loaded,
// stored and watched.
namespace options {

// A check box, stored as "True" or "False", or a combo box, stored as the text of its chosen entry.
struct PlainControl {
    int control;
    const settings::Setting& setting;
    const char* defaultValue;  // shown while nothing is stored
    // For a setting that the running program keeps in memory: its current value. It replaces the
    // default, and storing updates it.
    std::string settings::ProgramState::*current = nullptr;
};

// Shows the stored values. A check box that is ticked by default stays so unless "False" is stored;
// any other one is ticked only for "True". A combo box must have its entries already; a value
// without an entry selects nothing.
void LoadControls(HWND page, std::span<const PlainControl> controls);

// Stores the values in table order. A combo box without a selection leaves its setting unchanged.
void ApplyControls(HWND page, std::span<const PlainControl> controls);

// Marks the page as changed if a WM_COMMAND message with this `wParam` reports a change of one of
// the controls.
void MarkControlChange(HWND page, std::span<const PlainControl> controls, WPARAM wParam);

// Returns the text of a combo box's chosen entry, or the empty text.
std::string ChosenEntry(HWND page, int combo);

}  // namespace options
