#include "tray/frmAbout.h"

#include <windows.h>
#include <commctrl.h>

#include <string>

#include "settings/Addresses.h"
#include "tray/resource.h"
#include "win/Dialog.h"
#include "win/Images.h"
#include "win/MessageLoop.h"
#include "win/Shell.h"
#include "win/Text.h"

namespace tray {
namespace {

HWND openBox = nullptr;

// A link's text, which is also its address.
std::string LinkText(int control) {
    const std::string markup = win::ControlText(openBox, control);
    const std::string text = win::ReplaceAll(win::ReplaceAll(markup, "<a>", ""), "</a>", "");
    return std::string(win::TrimSpaces(text));
}

// The control may draw a link wider than it measured it, and cut its end: the space makes room.
void ShowLink(int control, const std::string& text) {
    win::SetControlText(openBox, control, "<a>" + text + " </a>");
}

void OpenWeatherHome() {
    win::OpenInBrowser(openBox, settings::WeatherHomePage());
}

void FollowLink(UINT_PTR control) {
    if (control == frmAbout_Label3) win::OpenInBrowser(openBox, LinkText(frmAbout_Label3));
    if (control == frmAbout_Label4)
        win::OpenInBrowser(openBox, settings::MailLink(LinkText(frmAbout_Label4)));
}

// Sets the picture of the logo's button, and deletes the one before it.
void ReplaceLogo(HWND dialog, HANDLE picture) {
    const LRESULT old = SendDlgItemMessageW(dialog, frmAbout_Image2, BM_SETIMAGE, IMAGE_BITMAP,
                                            reinterpret_cast<LPARAM>(picture));
    if (old) DeleteObject(reinterpret_cast<HGDIOBJ>(old));
}

// Shows the logo at the size of its button, which depends on the resolution of the screen.
void ShowLogo(HWND dialog) {
    RECT client;
    GetClientRect(GetDlgItem(dialog, frmAbout_Image2), &client);
    const HANDLE logo = win::LoadSharedBitmap(IDB_WEATHERBUG);
    ReplaceLogo(dialog, CopyImage(logo, IMAGE_BITMAP, client.right, client.bottom, 0));
}

void Initialize(HWND dialog) {
    openBox = dialog;
    ShowLink(frmAbout_Label3, settings::MakerHost());
    ShowLink(frmAbout_Label4, settings::MakerMail());
    const HANDLE icon = win::LoadSharedIcon(win::kProgramIcon, win::LargeIconSize());
    SendDlgItemMessageW(dialog, frmAbout_Image1, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    ShowLogo(dialog);
}

INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            Initialize(dialog);
            // With the focus on the first link, Enter would open it.
            SetFocus(GetDlgItem(dialog, frmAbout_Command1));
            return FALSE;
        case WM_COMMAND:
            if (LOWORD(wParam) == frmAbout_Image2) OpenWeatherHome();
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) win::EndModal(dialog);
            return TRUE;
        case WM_NOTIFY: {
            const auto* note = reinterpret_cast<const NMHDR*>(lParam);
            if (note->code == static_cast<UINT>(NM_CLICK) ||
                note->code == static_cast<UINT>(NM_RETURN))
                FollowLink(note->idFrom);
            return TRUE;
        }
        case WM_SETCURSOR:
            if (GetDlgCtrlID(reinterpret_cast<HWND>(wParam)) != frmAbout_Image2) return FALSE;
            SetCursor(LoadCursorW(nullptr, IDC_HAND));
            SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
            return TRUE;
        case WM_DESTROY:
            ReplaceLogo(dialog, nullptr);
            openBox = nullptr;
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

void ShowAboutBox() {
    if (openBox) {
        SetForegroundWindow(openBox);
        return;
    }
    win::ShowModal({IDD_frmAbout, ICC_LINK_CLASS, AboutProcedure});
    win::PumpPendingMessages();
}

}  // namespace tray
