#include "win/ListView.h"

#include <commctrl.h>

#include <algorithm>

#include "win/CodePage.h"
#include "win/Dpi.h"

namespace win {
namespace {

int CountColumns(HWND list) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

int ColumnWidth(HWND list, int column) {
    return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

void SetColumnWidth(HWND list, int column, int width) {
    SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
}

// Suspends painting during a change.
class WithoutRedraw {
  public:
    explicit WithoutRedraw(HWND list) : list_(list) { SendMessageW(list, WM_SETREDRAW, FALSE, 0); }
    WithoutRedraw(const WithoutRedraw&) = delete;
    WithoutRedraw& operator=(const WithoutRedraw&) = delete;
    ~WithoutRedraw() {
        SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(list_, nullptr, TRUE);
    }

  private:
    HWND list_;
};

}  // namespace

void AddListColumn(HWND list, const char* header, int width) {
    std::wstring text = ToWide(header);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
    column.cx = width;
    column.pszText = text.data();
    column.iSubItem = CountColumns(list);
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column.iSubItem),
                 reinterpret_cast<LPARAM>(&column));
}

void AddListRow(HWND list, int icon, std::initializer_list<std::string> texts) {
    LVITEMW item{};
    item.iItem = CountListRows(list);
    item.iImage = icon;
    for (const std::string& text : texts) {
        std::wstring wide = ToWide(text);
        item.pszText = wide.data();
        if (item.iSubItem == 0) {
            item.mask = LVIF_TEXT | LVIF_IMAGE;
            SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        } else {
            SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(item.iItem),
                         reinterpret_cast<LPARAM>(&item));
        }
        ++item.iSubItem;
    }
}

void UseListUnicode(HWND list) {
    SendMessageW(list, LVM_SETUNICODEFORMAT, TRUE, 0);
}

void SetCellText(NMLVDISPINFOW& request, const std::string& text) {
    if (request.item.cchTextMax <= 0) return;
    const std::wstring wide = ToWide(text);
    const std::size_t length =
        wide.copy(request.item.pszText, static_cast<std::size_t>(request.item.cchTextMax) - 1);
    request.item.pszText[length] = L'\0';
}

std::optional<std::string> FindRequestText(const NMHDR& notification) {
    const auto& request = reinterpret_cast<const NMLVFINDITEMW&>(notification);
    if (!(request.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !request.lvfi.psz)
        return std::nullopt;
    return FromWide(request.lvfi.psz);
}

void SetListCount(HWND list, std::size_t rows) {
    SendMessageW(list, LVM_SETITEMCOUNT, rows, 0);
    InvalidateRect(list, nullptr, TRUE);
}

int CountListRows(HWND list) {
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

int SelectedListRow(HWND list) {
    return static_cast<int>(
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void SelectListRow(HWND list, int row) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void FitListColumns(HWND list) {
    const int count = CountColumns(list);
    const WithoutRedraw pause(list);
    // LVSCW_AUTOSIZE_USEHEADER sets the last column to the remaining width, even if its text needs
    // more. With a temporary column after it, it is not the last.
    AddListColumn(list, "", 0);
    for (int i = 0; i < count; ++i) SetColumnWidth(list, i, LVSCW_AUTOSIZE_USEHEADER);
    SendMessageW(list, LVM_DELETECOLUMN, static_cast<WPARAM>(count), 0);
}

void FillLastListColumn(HWND list, std::size_t rows) {
    RECT client{};
    GetClientRect(list, &client);
    const auto rowsInView = static_cast<std::size_t>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0));
    const bool hasScrollBar = GetWindowLongW(list, GWL_STYLE) & WS_VSCROLL;
    if (rows > rowsInView && !hasScrollBar)
        client.right -= MetricForDpi(SM_CXVSCROLL, WindowDpi(list));
    const int last = CountColumns(list) - 1;
    int others = 0;
    for (int i = 0; i < last; ++i) others += ColumnWidth(list, i);
    if (others + ColumnWidth(list, last) >= client.right) return;
    const WithoutRedraw pause(list);
    SetColumnWidth(list, last, client.right - others);
}

void ResizeListViewColumns(HWND list) {
    FitListColumns(list);
    FillLastListColumn(list, static_cast<std::size_t>(CountListRows(list)));
}

void ScaleListColumns(HWND list, int from, int to) {
    const WithoutRedraw pause(list);
    for (int i = 0; i < CountColumns(list); ++i)
        SetColumnWidth(list, i, MulDiv(ColumnWidth(list, i), to, from));
}

TextMeter::TextMeter(HWND control)
    : control_(control),
      device_(GetDC(control)),
      previousFont_(SelectObject(
          device_, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)))) {
    GetCharWidth32W(device_, 0, asciiWidths_.size() - 1, asciiWidths_.data());
}

TextMeter::~TextMeter() {
    SelectObject(device_, previousFont_);
    ReleaseDC(control_, device_);
}

int TextMeter::Width(const std::string& text) const {
    // Adding up widths is much faster than measuring, and exact: the controls draw without kerning.
    int sum = 0;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= asciiWidths_.size()) return MeasureText(text);
        sum += asciiWidths_[static_cast<unsigned char>(c)];
    }
    return sum;
}

int TextMeter::MeasureText(const std::string& text) const {
    SIZE size{};
    const std::wstring wide = ToWide(text);
    GetTextExtentPoint32W(device_, wide.c_str(), static_cast<int>(wide.size()), &size);
    return size.cx;
}

}  // namespace win
