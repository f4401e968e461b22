#include <gtest/gtest.h>
#include <windows.h>

#include "tests/Handles.h"
#include "tests/ScratchStore.h"
#include "tray/TrayWindow.h"
#include "tray/frmTray.h"
#include "tray/modExplorerMonitor.h"
#include "tray/modTrayMenu.h"
#include "win/CodePage.h"
#include "win/Text.h"

namespace tray {
namespace {

using settings::WriteSetting;

class TrayMenuTest : public tests::ScratchStore {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        Use(settings::kUseRegistryStore);
        ASSERT_TRUE(LoadTrayWindow());
        SetUpTrayMenus();
    }
    void TearDown() override {
        WriteSetting("Alerts", "Count", "0");
        BuildAlertsMenu();  // the menu's state outlives this window
        RemoveMenuSubclass();
        StopExplorerMonitor(TrayWindow());
        DestroyWindow(TrayWindow());
        ScratchStore::TearDown();
    }
    static HMENU Popup() { return GetSubMenu(GetMenu(TrayWindow()), 0); }
    static std::string TextAt(HMENU menu, int position) {
        char text[256] = {};
        GetMenuStringA(menu, static_cast<UINT>(position), text, sizeof text, MF_BYPOSITION);
        return text;
    }
    static HMENU StationMenu() { return GetSubMenu(Popup(), 4); }  // while there are no alerts
    static void StoreAlert(int n, const std::string& title, const std::string& code) {
        WriteSetting("Alerts", "title" + win::Decimal(n), title);
        WriteSetting("Alerts", "zipcode" + win::Decimal(n), code);
        WriteSetting("Alerts", "Count", win::Decimal(n));
    }
    static void ListStations(const std::vector<std::string>& codes) {
        UseStations(codes);
        BuildStationMenu();
    }
};

TEST_F(TrayMenuTest, ShowsAlertsOnlyForAPositiveCount) {
    StoreAlert(1, "Wind & Hail", "unknown");
    BuildAlertsMenu();
    const int count = GetMenuItemCount(Popup());
    EXPECT_EQ(TextAt(Popup(), 0), "Wind && Hail ()");
    for (const char* none : {"0", "", "many", "-3"}) {
        WriteSetting("Alerts", "Count", none);
        BuildAlertsMenu();
        EXPECT_EQ(TextAt(Popup(), 0), "(No Alerts Available)");
        EXPECT_EQ(GetMenuItemCount(Popup()), count);
    }
}

TEST_F(TrayMenuTest, ListsStationsUpToTheFirstEmptyOne) {
    ListStations({});
    EXPECT_EQ(GetMenuItemCount(StationMenu()), 1);
    EXPECT_EQ(TextAt(StationMenu(), 0), "Add New Station...");
    ListStations({"1", "天気"});
    EXPECT_EQ(GetMenuItemCount(StationMenu()), 4);
    EXPECT_EQ(TextAt(StationMenu(), 3), win::ToAnsi("Place 天気"));
    EXPECT_EQ(GetMenuItemID(StationMenu(), 3), 8002u);
    for (const std::string& nameless :
         {std::string(), std::string(100, ' ') + "S1***66044***1***2"}) {
        settings::State().stations[0] = nameless;
        BuildStationMenu();
        EXPECT_EQ(GetMenuItemCount(StationMenu()), 2);
    }
}

TEST_F(TrayMenuTest, RenumbersAlertsWhenStationsAreAdded) {
    for (int i = 1; i <= 50; ++i) StoreAlert(i, "Alert " + win::Decimal(i), "1");
    BuildAlertsMenu();
    std::vector<std::string> codes;
    for (int i = 0; i < 10000; ++i) codes.push_back(win::Decimal(i));
    ListStations(codes);
    for (int i = 0; i < 50; ++i) {
        const UINT low = GetMenuItemID(Popup(), i) & 0xFFFF;
        EXPECT_TRUE(low < 8000u || low > 8001u + 10000u) << low;
    }
}

TEST_F(TrayMenuTest, LeaksNoHandlesInTenThousandRebuilds) {
    ListStations({"1"});
    for (int i = 1; i <= 2; ++i) StoreAlert(i, "Alert " + win::Decimal(i), "1");
    const auto rebuild = [](int times) {
        for (int i = 0; i < times; ++i) {
            BuildAlertsMenu();
            BuildStationMenu();
        }
    };
    rebuild(10);
    const tests::Handles before = tests::CountHandles();
    rebuild(10000);
    tests::ExpectSameHandles(before, tests::CountHandles());
}

}  // namespace
}  // namespace tray
