#include "tray/modTrayMenu.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "alerts/StoredAlerts.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "tray/AlertMenu.h"
#include "tray/OptionsDialog.h"
#include "tray/ShowAlerts.h"
#include "tray/TrayWindow.h"
#include "tray/modTrayIcon.h"
#include "tray/resource.h"
#include "win/CodePage.h"
#include "win/Handle.h"
#include "win/MessageLoop.h"
#include "win/NeverDestroyed.h"
#include "win/Shell.h"
#include "win/Text.h"

namespace tray {
namespace {

static_assert(mnuExit < kFixedItemsEnd);

HMENU TrayMenuHandle = nullptr;
HMENU StationMenuHandle = nullptr;
std::int16_t AlertItemCount = 0;
std::string& AlertMenuMap = win::NeverDestroyed<std::string>();
WNDPROC PreviousTrayWindowProc = nullptr;

// The empty menus whose handles serve as identifiers of the alert items, one for each item.
std::vector<win::Menu>& alertHandles = win::NeverDestroyed<std::vector<win::Menu>>();
// A process can have 10,000 windows and menus in all: a feed must not use up those that the dialogs
// need.
constexpr std::int16_t kMostAlertItems = 5000;
bool isPopupOpen = false;
bool wasClickedBeforeSetUp = false;
bool rebuildAlertsWhenClosed = false;
bool rebuildStationsWhenClosed = false;

// Opens the page of a station: the program's own or, by its address, one of the weather web site.
void OpenPage(const std::string& code, std::string (*address)(std::string_view code)) {
    if (settings::UsesLocalPage(code))
        ShowAlerts(code);
    else
        win::OpenInBrowser(TrayWindow(), address(code));
}

void RunBuiltCommand(std::uint32_t identifier) {
    // First the alerts: an alert's identifier may also be above those of the stations.
    const auto code = AlertItemCount > 0 ? FindInAlertMap(AlertMenuMap, identifier) : std::nullopt;
    if (code) {
        OpenPage(*code, settings::AlertPage);
    } else if (identifier == kAddStation) {
        ShowStationOptions();
    } else if (identifier > kAddStation) {
        const auto station = stations::StationAt(identifier - kFirstStation);
        if (const auto stationCode = stations::StationCode(station))
            OpenPage(*stationCode, settings::StationPage);
    }
}

LRESULT CALLBACK MenuProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const WNDPROC previous = PreviousTrayWindowProc;
    if (message == WM_CLOSE) RemoveMenuSubclass();
    if (message == WM_COMMAND) RunBuiltCommand(static_cast<std::uint32_t>(wParam));
    return CallWindowProcA(previous, window, message, wParam, lParam);
}

// Menu items cannot be hidden: the item is inserted or removed.
void ShowNoAlertsItem(bool show) {
    const bool isShown =
        GetMenuState(TrayMenuHandle, mnuAlertsAvailable, MF_BYCOMMAND) != static_cast<UINT>(-1);
    if (show && !isShown)
        InsertMenuA(TrayMenuHandle, 0, MF_BYPOSITION | MF_STRING, mnuAlertsAvailable,
                    "(No Alerts Available)");
    if (!show && isShown) RemoveMenu(TrayMenuHandle, mnuAlertsAvailable, MF_BYCOMMAND);
}

void RemoveAlertItems() {
    for (; AlertItemCount > 0; --AlertItemCount) RemoveMenu(TrayMenuHandle, 0, MF_BYPOSITION);
    alertHandles.clear();
    ShowNoAlertsItem(true);
}

std::vector<std::uint32_t> AlertIdentifiers() {
    std::vector<std::uint32_t> identifiers;
    identifiers.reserve(alertHandles.size());
    for (const win::Menu& menu : alertHandles)
        identifiers.push_back(static_cast<std::uint32_t>(reinterpret_cast<UINT_PTR>(menu.Get())));
    return identifiers;
}

// Creates an empty menu, keeps it and returns its handle as an identifier; 0 if the system has no
// more menus. Unusable ones are destroyed only by the caller, so that the system does not return
// them again.
std::uint32_t CreateAlertIdentifier(std::vector<std::uint32_t>& taken,
                                    std::vector<win::Menu>& unusable) {
    for (;;) {
        win::Menu menu(CreatePopupMenu());
        if (!menu) return 0;
        const auto number = static_cast<std::uint32_t>(reinterpret_cast<UINT_PTR>(menu.Get()));
        if (IsUsableAlertIdentifier(number, settings::State().stationCount, taken)) {
            alertHandles.push_back(std::move(menu));
            taken.push_back(number);
            return number;
        }
        unusable.push_back(std::move(menu));
    }
}

// Whether an alert item has the identifier of a station that was added after it.
bool AlertItemsCollide() {
    for (const std::uint32_t identifier : AlertIdentifiers())
        if (!IsUsableAlertIdentifier(identifier, settings::State().stationCount, {})) return true;
    return false;
}

// Whether the point is in the taskbar or in a window that belongs to it. The place of a hidden icon
// may be that of the arrow, although the icon was clicked in the window that the arrow opens.
bool IsInTaskbar(POINT point) {
    const HWND taskbar = FindWindowW(L"Shell_TrayWnd", nullptr);
    const HWND window = GetAncestor(WindowFromPoint(point), GA_ROOT);
    return taskbar &&
           GetWindowThreadProcessId(window, nullptr) == GetWindowThreadProcessId(taskbar, nullptr);
}

// Shows the menu at the pointer, or next to the icon if the keyboard has chosen the icon and the
// pointer is elsewhere. The message of the icon is the same for both.
void TrackTrayMenu() {
    POINT cursor;
    GetCursorPos(&cursor);
    const auto icon = FindTrayIcon();
    const bool isClick = GetAsyncKeyState(VK_RBUTTON) < 0 || GetAsyncKeyState(VK_LBUTTON) < 0;
    if (isClick || !icon || PtInRect(&*icon, cursor) || IsInTaskbar(cursor)) {
        TrackPopupMenu(TrayMenuHandle, TPM_RIGHTBUTTON, cursor.x, cursor.y, 0, TrayWindow(),
                       nullptr);
        return;
    }
    TPMPARAMS beside{sizeof beside, *icon};
    TrackPopupMenuEx(TrayMenuHandle, TPM_RIGHTBUTTON | TPM_VERTICAL, icon->left, icon->top,
                     TrayWindow(), &beside);
}

}  // namespace

void SetUpTrayMenus() {
    TrayMenuHandle = GetSubMenu(GetMenu(TrayWindow()), 0);
    StationMenuHandle = CreatePopupMenu();
    constexpr UINT kAfterNationalAlerts = 4;
    InsertMenuA(TrayMenuHandle, kAfterNationalAlerts, MF_BYPOSITION | MF_POPUP,
                reinterpret_cast<UINT_PTR>(StationMenuHandle), "View Weather");
    PreviousTrayWindowProc = reinterpret_cast<WNDPROC>(GetWindowLongA(TrayWindow(), GWL_WNDPROC));
    SetWindowLongA(TrayWindow(), GWL_WNDPROC, reinterpret_cast<LONG>(MenuProcedure));
    // The icon was added before its menu.
    if (wasClickedBeforeSetUp) PostMessageA(TrayWindow(), kTrayCallback, 0, WM_RBUTTONDOWN);
}

void RemoveMenuSubclass() {
    if (PreviousTrayWindowProc)
        SetWindowLongA(TrayWindow(), GWL_WNDPROC, reinterpret_cast<LONG>(PreviousTrayWindowProc));
}

void BuildStationMenu() {
    if (isPopupOpen) {
        rebuildStationsWhenClosed = true;
        return;
    }
    while (RemoveMenu(StationMenuHandle, 0, MF_BYPOSITION)) win::PumpPendingMessages();
    AppendMenuA(StationMenuHandle, MF_STRING, kAddStation, "Add New Station...");
    const settings::ProgramState& state = settings::State();
    if (state.stationCount == 0) return;
    AppendMenuA(StationMenuHandle, MF_SEPARATOR, kStationSeparator, nullptr);
    for (std::size_t i = 0; i < state.stations.size(); ++i) {
        const std::string caption = MenuText(stations::DisplayText(state.stations[i]));
        if (caption.empty()) break;
        AppendMenuA(StationMenuHandle, MF_STRING, kFirstStation + i, win::ToAnsi(caption).c_str());
    }
    if (AlertItemsCollide()) BuildAlertsMenu();
}

void LoadUnreadStations() {
    if (stations::LoadUnreadStationList()) BuildStationMenu();
}

void BuildAlertsMenu() {
    if (isPopupOpen) {
        rebuildAlertsWhenClosed = true;
        return;
    }
    const auto stored = settings::ReadSection(settings::kAlerts);
    if (!stored) return;
    if (isPopupOpen) return BuildAlertsMenu();  // opened by a message during the read: postpone
    const auto& section = *stored;
    RemoveAlertItems();
    const auto storedCount = section.find(win::AsciiLower(settings::kAlertCount.key));
    const std::int16_t count =
        storedCount == section.end() ? std::int16_t{0} : win::LeadingInt16(storedCount->second);
    if (count <= 0) return;
    AlertMenuMap.clear();
    std::string seenCaptions;
    std::vector<std::uint32_t> taken;
    std::vector<win::Menu> unusable;
    for (int k = 1; k <= count && AlertItemCount < kMostAlertItems; ++k) {
        const std::string code = alerts::StoredValue(section, settings::kAlertZipCode, k);
        const std::string caption =
            AlertCaption(alerts::StoredValue(section, settings::kAlertTitle, k),
                         stations::DisplayTextOfCode(settings::State().stations, code));
        if (!AddCaption(seenCaptions, caption)) continue;
        const std::uint32_t identifier = CreateAlertIdentifier(taken, unusable);
        if (identifier == 0) break;
        if (!InsertMenuA(TrayMenuHandle, static_cast<UINT>(AlertItemCount + 1), MF_BYPOSITION,
                         identifier, win::ToAnsi(MenuText(caption)).c_str()))
            break;
        ++AlertItemCount;
        AddToAlertMap(AlertMenuMap, identifier, code);
    }
    if (AlertItemCount > 0) ShowNoAlertsItem(false);
}

void BuildPostponedMenus() {
    if (std::exchange(rebuildStationsWhenClosed, false)) BuildStationMenu();
    if (std::exchange(rebuildAlertsWhenClosed, false)) BuildAlertsMenu();
}

bool IsTrayMenuOpen() {
    return isPopupOpen;
}

void ShowTrayMenu() {
    wasClickedBeforeSetUp = !TrayMenuHandle;
    if (isPopupOpen || wasClickedBeforeSetUp) return;
    constexpr UINT kNoDefaultItem = static_cast<UINT>(-1);
    SetMenuDefaultItem(TrayMenuHandle, AlertItemCount > 0 ? kNoDefaultItem : mnuAlertsAvailable,
                       FALSE);
    isPopupOpen = true;
    TrackTrayMenu();
    isPopupOpen = false;
    PostMessageA(TrayWindow(), WM_NULL, 0, 0);  // or the next popup may close at once
    // Posted, so that the chosen command, which is in the queue, still finds its item.
    PostMessageA(TrayWindow(), kTrayMenuClosed, 0, 0);
}

void EnableRetrieveItem(bool enable) {
    EnableMenuItem(TrayMenuHandle, mnuRetrieveSevereAlerts,
                   MF_BYCOMMAND | (enable ? MF_ENABLED : MF_GRAYED));
}

}  // namespace tray
