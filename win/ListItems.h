#pragma once
#include <windows.h>

#include <string>
#include <string_view>

// Entries of combo boxes and list boxes, by the messages that the two share in all but number.
namespace win {

struct ListControl {
    HWND window;
    bool isListBox;
};
ListControl ComboBox(HWND dialog, int control);
ListControl ListBox(HWND dialog, int control);

void ClearItems(const ListControl& control);
// Appends an entry (a sorted control places it); its index.
int AddItem(const ListControl& control, const std::string& text);
void RemoveItem(const ListControl& control, int index);
int CountItems(const ListControl& control);
std::string ItemText(const ListControl& control, int index);
// The index of the entry equal to the text, case included; -1 when there is none.
int FindItem(const ListControl& control, std::string_view text);

// The selected entry's index, -1 for none.
int SelectedItem(const ListControl& control);
// Selects by index; one that does not exist selects nothing.
void SelectItem(const ListControl& control, int index);

}  // namespace win
