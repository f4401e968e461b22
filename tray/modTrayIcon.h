#pragma once
#include <windows.h>

#include <optional>
#include <string>

#include "win/Handle.h"

// The program's icon in the notification area. The shell's results are ignored: if the icon cannot
// be added, there is none until the taskbar is created again.
namespace tray {

// The resource numbers of the built-in pictures.
inline constexpr int kNormalIcon = 2;
inline constexpr int kNewAlertsIcon = 3;

// The two images of the icon: the built-in ones or those that the user chose.
struct TrayImages {
    win::Icon ImageIcon;   // no new alerts
    win::Icon ImageIcon2;  // new alerts
};
TrayImages& Images();

// Loads the built-in images.
void LoadBuiltInImages();

// Replaces an image by the icon in the file; keeps it if the file cannot be loaded.
void ReplaceImage(win::Icon& image, const std::string& path);

// Adds the icon with ImageIcon, and a tooltip with the stored time of the last update.
void AddTrayIcon();

// Shows the text in a balloon at the icon. Text after 255 bytes is cut.
void ShowTrayBalloon(const std::string& message);

void RemoveTrayIcon();

// Returns the place of the icon on the screen, or of the button that shows hidden icons; nullopt if
// the shell does not know it.
std::optional<RECT> FindTrayIcon();

// Shows ImageIcon.
void RefreshTrayIconImage();

// Shows ImageIcon2.
void ShowNewAlertImage();

// Sets the tooltip. Text after 127 bytes is cut.
void SetTrayTip(const std::string& tip);

// Sets the tooltip for the time of the last update; does nothing for an empty text.
void UpdateTrayTip(const std::string& lastUpdated);

}  // namespace tray
