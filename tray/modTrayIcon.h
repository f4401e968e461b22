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

// An image of the icon at the size of the taskbar's icons.
struct TrayImage {
    int builtIn;            // the resource number of its built-in picture
    std::string path = {};  // the icon file that the user chose; empty for the built-in picture
    win::Icon picture = {};
};
struct TrayImages {
    TrayImage ImageIcon{kNormalIcon};      // no new alerts
    TrayImage ImageIcon2{kNewAlertsIcon};  // new alerts
};
TrayImages& Images();

// Sets the image to its built-in picture.
void UseBuiltInPicture(TrayImage& image);

// Loads the image from the icon file; keeps its picture if the file cannot be loaded.
void UseIconFile(TrayImage& image, const std::string& path);

// Loads the pictures of both images, again if the size of the taskbar's icons may have changed.
void LoadImages();

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
