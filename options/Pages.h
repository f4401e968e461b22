#pragma once
#include <windows.h>

#include <string>

// The pages of the Options dialog, each a dialog of its own with a procedure that handles its
// controls, a loader that reads its settings into them, and a function that stores them.
namespace options {

// In the order of the tabs.
enum class Page { General, Stations, AlertFilters, TrayIcon, TrayAlerts, Internet, Count };

// Every control's change ends here: the page will be written by the next Apply. Nothing while pages
// are being loaded.
void MarkChanged(Page page);

INT_PTR CALLBACK GeneralProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
void LoadGeneral(HWND page);
void ApplyGeneral(HWND page);
// Whether the last click on the store location chose another one than is in effect.
bool IsStoreLocationChanged();
void ForgetStoreLocationChange();

INT_PTR CALLBACK StationsProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
void LoadStations(HWND page);
void ApplyStations(HWND page);
// Selects the entry of Combo1 that is this station line.
void SetCombo1City(HWND page, const std::string& line);

INT_PTR CALLBACK AlertFiltersProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
void LoadAlertFilters(HWND page);
void ApplyAlertFilters(HWND page);

INT_PTR CALLBACK TrayIconProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
void LoadTrayIcon(HWND page);
void ApplyTrayIcon(HWND page);

INT_PTR CALLBACK TrayAlertsProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
void LoadTrayAlerts(HWND page);
void ApplyTrayAlerts(HWND page);

INT_PTR CALLBACK InternetProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
void LoadInternet(HWND page);
void ApplyInternet(HWND page);

}  // namespace options
