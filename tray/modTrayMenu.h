#pragma once

// The icon's popup menu. Its fixed items come from the window's menu bar; the alert items at the
// top and the "View Weather" submenu are built here.
namespace tray {

// Inserts the empty "View Weather" submenu and subclasses the tray window, which must exist, to
// handle the commands of the built items.
void SetUpTrayMenus();

// Restores the window procedure that SetUpTrayMenus replaced; does nothing before that call.
void RemoveMenuSubclass();

// Builds the station items from the station list; postponed while the menu is open. Handles
// messages.
void BuildStationMenu();

// Loads the station list if its file could not be read before, and rebuilds the station items.
// Handles messages.
void LoadUnreadStations();

// Builds the alert items from the Alerts section of the settings; postponed while the menu is open.
// If the settings cannot be read, the old items stay. Handles messages.
void BuildAlertsMenu();

// Builds the items that were postponed.
void BuildPostponedMenus();

// Shows the menu at the pointer, or at the icon if the keyboard has chosen the icon while the
// pointer is elsewhere, and returns when it is closed. Does nothing if it is open already. Before
// SetUpTrayMenus it returns at once; SetUpTrayMenus then shows the menu.
void ShowTrayMenu();

bool IsTrayMenuOpen();

// Enables or grays the item "Retrieve Severe Alerts".
void EnableRetrieveItem(bool enable);

}  // namespace tray
