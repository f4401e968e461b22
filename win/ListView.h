#pragma once
#include <windows.h>

#include <initializer_list>
#include <string>

// Lists in report style: rows of texts, the first one behind a small icon.
namespace win {

// Adds a column of this width in pixels.
void AddListColumn(HWND list, const char* header, int width);

// Appends a row; `icon` counts from 0 in the list's small icons.
void AddListRow(HWND list, int icon, std::initializer_list<std::string> texts);
void ClearList(HWND list);
int CountListRows(HWND list);

// The selected row counted from 0, -1 for none.
int SelectedListRow(HWND list);
// Selects a row alone, makes it the one that the keyboard goes on from, and scrolls to it.
void SelectListRow(HWND list, int row);

// Sizes every column to fit both its contents and its header; the last one takes the rest.
void ResizeListViewColumns(HWND list);

}  // namespace win
