#pragma once
#include <windows.h>

#include <string>
#include <string_view>

// Entries of combo boxes and list boxes, by the messages that the two share in all but number.
namespace win {

struct ChoiceControl {
    HWND window;
    bool isListBox;
};
ChoiceControl ComboBox(HWND dialog, int control);
ChoiceControl ListBox(HWND dialog, int control);

void ClearChoices(const ChoiceControl& control);
// Appends an entry (a sorted control places it); its index.
int AddChoice(const ChoiceControl& control, const std::string& text);
void RemoveChoice(const ChoiceControl& control, int index);
int CountChoices(const ChoiceControl& control);
std::string ChoiceText(const ChoiceControl& control, int index);
// The index of the entry equal to the text, case included; -1 when there is none.
int FindChoice(const ChoiceControl& control, std::string_view text);

// The selected entry's index, -1 for none.
int SelectedChoice(const ChoiceControl& control);
// Selects by index; one that does not exist selects nothing.
void SelectChoice(const ChoiceControl& control, int index);

}  // namespace win
