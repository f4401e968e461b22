#pragma once

// The tray icon's popup menu: its fixed items come from the window's menu; the list of current
// alerts at the top and the "View Weather" submenu are built here.
namespace tray {

// Finds the popup, inserts the empty "View Weather" submenu and subclasses the tray window.
void SetUpTrayMenus();

// Puts back the window procedure that SetUpTrayMenus replaced.
void RemoveMenuSubclass();

// Builds the station items from the station list; postponed while the popup is open. Lets messages
// run.
void BuildStationMenu();

// Loads the station list if its file could not be read so far, and shows it in the menus. Lets
// messages run.
void LoadUnreadStations();

// Builds the alert items from the Alerts section; postponed while the popup is open.
void BuildAlertsMenu();

// Builds whatever was postponed.
void BuildPostponedMenus();

// Shows the popup at the cursor and returns when it is closed. Returns at once when it is open
// already, and before SetUpTrayMenus, which then has it shown.
void ShowTrayMenu();

bool IsTrayMenuOpen();

void EnableRetrieveItem(bool enable);

}  // namespace tray
