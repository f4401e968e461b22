#pragma once
#include <windows.h>

#include <array>
#include <initializer_list>
#include <string>

// Lists in report style: rows of texts, the first one behind a small icon.
namespace win {

// Adds a column of this width in pixels.
void AddListColumn(HWND list, const char* header, int width);

// Appends a row; `icon` counts from 0 in the list's small icons.
void AddListRow(HWND list, int icon, std::initializer_list<std::string> texts);
// Tells a list that asks for its texts how many rows there are; draws them anew.
void SetListCount(HWND list, std::size_t rows);
int CountListRows(HWND list);

// The selected row counted from 0, -1 for none.
int SelectedListRow(HWND list);
// Selects a row alone, makes it the one that the keyboard goes on from, and scrolls to it.
void SelectListRow(HWND list, int row);

// Sizes every column to fit both its contents and its header; the last one takes the rest.
void ResizeListViewColumns(HWND list);
// Its two steps; the second leaves room for the scroll bar that so many rows need.
void FitListColumns(HWND list);
void FillLastListColumn(HWND list, std::size_t rows);

// Measures the width of texts as a control draws them.
class TextMeter {
  public:
    explicit TextMeter(HWND control);
    TextMeter(const TextMeter&) = delete;
    TextMeter& operator=(const TextMeter&) = delete;
    ~TextMeter();

    // In pixels.
    int Width(const std::string& text) const;

  private:
    int MeasureText(const std::string& text) const;

    HWND control_;
    HDC device_;
    HGDIOBJ previousFont_;
    std::array<INT, 128> asciiWidths_{};
};

}  // namespace win
