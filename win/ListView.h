#pragma once
#include <windows.h>
#include <commctrl.h>

#include <array>
#include <initializer_list>
#include <optional>
#include <string>

// List views in report style, whose rows start with a small icon, and the width of texts.
namespace win {

// Has the list send its requests in UTF-16, which SetCellText and FindRequestText read, whatever
// its dialog prefers.
void UseListUnicode(HWND list);

// Adds a column with this width in pixels.
void AddListColumn(HWND list, const char* header, int width);

// Appends a row; `icon` is an index into the list's small icons.
void AddListRow(HWND list, int icon, std::initializer_list<std::string> texts);
// Answers a virtual list's request for the text of a cell (LVN_GETDISPINFOW); the list shows no
// more than its buffer holds.
void SetCellText(NMLVDISPINFOW& request, const std::string& text);
// Returns the letters that a virtual list's request (LVN_ODFINDITEMW) searches for; nullopt if it
// searches for something else.
std::optional<std::string> FindRequestText(const NMHDR& notification);
// Sets the number of rows of a virtual list and redraws it.
void SetListCount(HWND list, std::size_t rows);
int CountListRows(HWND list);

// Returns the selected row counted from 0; -1 if there is none.
int SelectedListRow(HWND list);
// Selects and focuses one row and scrolls to it.
void SelectListRow(HWND list, int row);

// Fits every column to its contents and header; the last one takes the remaining width.
void ResizeListViewColumns(HWND list);
// The two steps of ResizeListViewColumns; the second leaves space for the scroll bar that `rows`
// rows need.
void FitListColumns(HWND list);
void FillLastListColumn(HWND list, std::size_t rows);

// Changes the width of every column by the ratio of `to` to `from`.
void ScaleListColumns(HWND list, int from, int to);

// Measures the width of texts as a control draws them.
class TextMeter {
  public:
    explicit TextMeter(HWND control);
    TextMeter(const TextMeter&) = delete;
    TextMeter& operator=(const TextMeter&) = delete;
    ~TextMeter();

    // Returns the width in pixels.
    int Width(const std::string& text) const;

  private:
    int MeasureText(const std::string& text) const;

    HWND control_;
    HDC device_;
    HGDIOBJ previousFont_;
    std::array<INT, 128> asciiWidths_{};
};

}  // namespace win
