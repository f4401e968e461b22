#pragma once
#include <windows.h>

#include <string>
#include <string_view>

// The items of combo boxes and list boxes, whose messages differ in their numbers only.
namespace win {

struct ListControl {
    HWND window;
    bool isListBox;
};
ListControl ComboBox(HWND dialog, int control);
ListControl ListBox(HWND dialog, int control);

void ClearItems(const ListControl& control);
// Adds an item at the end, or at its place in a sorted control. Returns its index.
int AddItem(const ListControl& control, const std::string& text);
void RemoveItem(const ListControl& control, int index);
int CountItems(const ListControl& control);
// Returns an item's text; empty if there is no such item.
std::string ItemText(const ListControl& control, int index);
// Returns the index of the first item with exactly this text; -1 if there is none.
int FindItem(const ListControl& control, std::string_view text);

// Returns the selected item's index; -1 if there is none.
int SelectedItem(const ListControl& control);
// Selects an item; an index out of range clears the selection.
void SelectItem(const ListControl& control, int index);

}  // namespace win
