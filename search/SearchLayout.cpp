#include "search/SearchLayout.h"

#include <algorithm>

#include "search/resource.h"
#include "win/DialogScaling.h"
#include "win/Dpi.h"

namespace search {
namespace {

// The borders of a control that move with the dialog's right or bottom border.
struct Anchor {
    int control;
    bool leftFollows;
    bool rightFollows;
    bool topFollows;
    bool bottomFollows;
};
constexpr Anchor kAnchors[] = {{frmSearch_Shape1, false, true, false, false},
                               {frmSearch_Label25, false, true, false, false},
                               {frmSearch_Text1, false, true, false, false},
                               {frmSearch_Command1, true, true, false, false},
                               {frmSearch_StationList, false, true, false, true},
                               {frmSearch_Label1, false, true, true, true},
                               {frmSearch_Command3, true, true, true, true},
                               {frmSearch_Command2, true, true, true, true}};

SIZE GetClientSize(HWND dialog) {
    RECT client;
    GetClientRect(dialog, &client);
    return {client.right, client.bottom};
}

// Returns the part of the dialog's screen that the taskbar leaves free.
RECT GetWorkArea(HWND dialog) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

void Move(HWND window, const RECT& rect) {
    SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left,
                 rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void SearchLayout::Remember(HWND dialog) {
    dialog_ = dialog;
    unit_ = win::MeasureDialogUnits(dialog);
    // Not the window's present size: the system makes it no larger than the screen.
    client_ = {MulDiv(frmSearch_Width, unit_.cx, 4), MulDiv(frmSearch_Height, unit_.cy, 8)};
    places_.clear();
    for (const Anchor& anchor : kAnchors) {
        RECT rect;
        GetWindowRect(GetDlgItem(dialog, anchor.control), &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        places_.push_back({anchor.control, rect});
    }
}

// The remembered sizes belong to the font that the dialog had then. On a screen of another
// resolution the font differs.
RECT SearchLayout::Scale(const RECT& rect) const {
    const SIZE now = win::MeasureDialogUnits(dialog_);
    return {MulDiv(rect.left, now.cx, unit_.cx), MulDiv(rect.top, now.cy, unit_.cy),
            MulDiv(rect.right, now.cx, unit_.cx), MulDiv(rect.bottom, now.cy, unit_.cy)};
}

SIZE SearchLayout::ScaleClient() const {
    const RECT scaled = Scale({0, 0, client_.cx, client_.cy});
    return {scaled.right, scaled.bottom};
}

void SearchLayout::Apply(HWND map) const {
    if (!dialog_) return;
    const SIZE now = GetClientSize(dialog_);
    const SIZE least = ScaleClient();
    const int wider = now.cx - least.cx;
    const int higher = now.cy - least.cy;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        const Anchor& anchor = kAnchors[i];
        RECT rect = Scale(places_[i].rect);
        const int margin = rect.left;
        if (anchor.leftFollows) rect.left += wider;
        if (anchor.rightFollows) rect.right += wider;
        if (anchor.topFollows) rect.top += higher;
        if (anchor.bottomFollows) rect.bottom += higher;
        if (anchor.control == frmSearch_StationList) {
            rect.right = now.cx - margin;
            const int gap = win::MeasureDialogUnits(dialog_).cx;
            const int width = (rect.right - rect.left - gap) / 2;
            if (map) {
                Move(map, {rect.right - width, rect.top, rect.right, rect.bottom});
                rect.right = rect.left + width;
            }
        }
        Move(GetDlgItem(dialog_, anchor.control), rect);
    }
    RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void SearchLayout::LimitSize(MINMAXINFO& limits) const {
    if (!dialog_) return;
    const SIZE least = win::WindowSizeForDpi(dialog_, ScaleClient(), win::WindowDpi(dialog_));
    const RECT work = GetWorkArea(dialog_);
    limits.ptMinTrackSize = {std::min(least.cx, work.right - work.left),
                             std::min(least.cy, work.bottom - work.top)};
}

void SearchLayout::FitWorkArea() const {
    const RECT work = GetWorkArea(dialog_);
    RECT window;
    GetWindowRect(dialog_, &window);
    const int width = std::min(window.right - window.left, work.right - work.left);
    const int height = std::min(window.bottom - window.top, work.bottom - work.top);
    const int left = std::clamp<int>(window.left, work.left, work.right - width);
    const int top = std::clamp<int>(window.top, work.top, work.bottom - height);
    Move(dialog_, {left, top, left + width, top + height});
}

}  // namespace search
