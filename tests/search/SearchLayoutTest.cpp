#include "search/SearchLayout.h"

#include <gtest/gtest.h>

#include "search/resource.h"
#include "win/Dialog.h"

namespace search {
namespace {

// The system makes a new window no larger than the screen, but does not move the controls.
TEST(SearchLayoutTest, ShowsAllControlsInAWindowThatIsTooSmall) {
    const HWND dialog = win::CreateForm(IDD_frmSearch, nullptr, nullptr);
    ASSERT_TRUE(dialog);
    SetWindowPos(dialog, nullptr, 0, 0, 500, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    SearchLayout layout;
    layout.Remember(dialog);
    layout.Apply(nullptr);
    RECT client;
    GetClientRect(dialog, &client);
    for (const int control : {frmSearch_Command1, frmSearch_Command2, frmSearch_StationList}) {
        RECT place;
        GetWindowRect(GetDlgItem(dialog, control), &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_LE(place.right, client.right) << control;
        EXPECT_LE(place.bottom, client.bottom) << control;
    }
    DestroyWindow(dialog);
}

}  // namespace
}  // namespace search
