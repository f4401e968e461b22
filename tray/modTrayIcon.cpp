#include "tray/modTrayIcon.h"

#include <shellapi.h>

#include <cstddef>
#include <cstring>
#include <utility>

#include "assets/icons/icons.h"
#include "settings/IniOpenSave.h"
#include "settings/Product.h"
#include "tray/TrayTip.h"
#include "tray/TrayWindow.h"
#include "win/CodePage.h"
#include "win/Dates.h"
#include "win/Dpi.h"
#include "win/Images.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace tray {
namespace {

static_assert(IDI_PROGRAM == win::kProgramIcon && IDI_NORMAL == kNormalIcon &&
              IDI_NEWALERTS == kNewAlertsIcon);

// The record's size up to and including the balloon fields.
constexpr DWORD kRecordSize = 488;
static_assert(offsetof(NOTIFYICONDATAA, guidItem) == kRecordSize);

constexpr UINT kAddTimeout = 30000;
constexpr UINT kBalloonTimeout = 10000;

// Every change sends the whole record, so that flags and texts of earlier changes stay in force:
// after a balloon each later change shows it again, deliberately.
NOTIFYICONDATAA TrayIconData;

template <std::size_t size>
void SetText(char (&field)[size], std::string_view text) {
    const std::string ansi = win::ToAnsi(text);
    const std::string_view fitting = win::FitBytes(ansi, size - 1);
    std::memset(field, 0, size);
    std::memcpy(field, fitting.data(), fitting.size());
}

int IconSize() {
    return win::SmallIconSize(win::TaskbarDpi());
}

void FillIdentity(UINT flags, UINT timeout) {
    TrayIconData.cbSize = kRecordSize;
    TrayIconData.hWnd = TrayWindow();
    TrayIconData.uID = 1;
    TrayIconData.uFlags = flags;
    TrayIconData.uCallbackMessage = kTrayCallback;
    TrayIconData.dwState = 0;
    TrayIconData.dwStateMask = 0;
    TrayIconData.uTimeout = timeout;
}

void Send(DWORD message) {
    Shell_NotifyIconA(message, &TrayIconData);
}

void ShowImage(const TrayImage& image) {
    TrayIconData.hIcon = image.picture.Get();
    Send(NIM_MODIFY);
}

}  // namespace

TrayImages& Images() {
    static TrayImages& images = win::NeverDestroyed<TrayImages>();
    return images;
}

void UseBuiltInPicture(TrayImage& image) {
    image.path.clear();
    image.picture = win::LoadIconResource(image.builtIn, IconSize());
}

void UseIconFile(TrayImage& image, const std::string& path) {
    win::Icon loaded = win::LoadIconFile(path, IconSize());
    if (!loaded) return;
    image.path = path;
    image.picture = std::move(loaded);
}

void LoadImages() {
    for (TrayImage* image : {&Images().ImageIcon, &Images().ImageIcon2})
        if (image->path.empty())
            UseBuiltInPicture(*image);
        else
            UseIconFile(*image, image->path);
}

void AddTrayIcon() {
    FillIdentity(NIF_MESSAGE | NIF_ICON | NIF_TIP, kAddTimeout);
    TrayIconData.hIcon = Images().ImageIcon.picture.Get();
    SetText(TrayIconData.szTip, SKYVANE_NAME);
    UpdateTrayTip(settings::ReadSetting(settings::kLastUpdated));
    Send(NIM_ADD);
}

void ShowTrayBalloon(const std::string& message) {
    FillIdentity(NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO, kBalloonTimeout);
    SetText(TrayIconData.szInfoTitle, SKYVANE_NAME);
    SetText(TrayIconData.szInfo, message);
    Send(NIM_MODIFY);
}

void RemoveTrayIcon() {
    Send(NIM_DELETE);
}

std::optional<RECT> FindTrayIcon() {
    NOTIFYICONIDENTIFIER icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = TrayIconData.hWnd;
    icon.uID = TrayIconData.uID;
    RECT place;
    if (FAILED(Shell_NotifyIconGetRect(&icon, &place))) return std::nullopt;
    return place;
}

void RefreshTrayIconImage() {
    ShowImage(Images().ImageIcon);
}

void ShowNewAlertImage() {
    ShowImage(Images().ImageIcon2);
}

void SetTrayTip(const std::string& tip) {
    SetText(TrayIconData.szTip, tip);
    Send(NIM_MODIFY);
}

void UpdateTrayTip(const std::string& lastUpdated) {
    const std::string tip =
        TrayTip(lastUpdated, win::ShortDateIfToday(lastUpdated), win::ShortDateToday());
    if (!tip.empty()) SetTrayTip(tip);
}

}  // namespace tray
