#include "tray/frmAbout.h"

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <utility>

#include "settings/Addresses.h"
#include "tray/resource.h"
#include "win/Dialog.h"
#include "win/Dpi.h"
#include "win/Images.h"
#include "win/MessageLoop.h"
#include "win/NeverDestroyed.h"
#include "win/Shell.h"
#include "win/Text.h"

namespace tray {
namespace {

HWND openBox = nullptr;
win::Icon& programIcon = win::NeverDestroyed<win::Icon>();  // Image1
win::Bitmap& logo = win::NeverDestroyed<win::Bitmap>();     // of Image2

// A link's text, which is also its address.
std::string LinkText(int control) {
    const std::string markup = win::ControlText(openBox, control);
    const std::string text = win::ReplaceAll(win::ReplaceAll(markup, "<a>", ""), "</a>", "");
    return std::string(win::Trim(text));
}

// The control may draw a link wider than it measured and cut it off; the trailing space prevents
// that.
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

// Sets the picture of the logo's button.
void ReplaceLogo(HWND dialog, win::Bitmap picture) {
    SendDlgItemMessageW(dialog, frmAbout_Image2, BM_SETIMAGE, IMAGE_BITMAP,
                        reinterpret_cast<LPARAM>(picture.Get()));
    logo = std::move(picture);
}

// Shows the logo at the size of its button, from the smallest drawing that need not be enlarged.
void ShowLogo(HWND dialog) {
    RECT client;
    GetClientRect(GetDlgItem(dialog, frmAbout_Image2), &client);
    HBITMAP drawing = nullptr;
    for (const int identifier : {IDB_WEATHERBUG, IDB_WEATHERBUG150, IDB_WEATHERBUG200}) {
        drawing = win::LoadSharedBitmap(identifier);
        if (win::BitmapSize(drawing).cx >= client.right) break;
    }
    ReplaceLogo(dialog, win::ScaleBitmap(drawing, {client.right, client.bottom}));
}

// Shows the pictures, whose sizes depend on the resolution of the screen.
void ShowPictures(HWND dialog, UINT dpi) {
    win::Icon icon = win::LoadIconResource(win::kProgramIcon, win::LargeIconSize(dpi));
    SendDlgItemMessageW(dialog, frmAbout_Image1, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()),
                        0);
    programIcon = std::move(icon);
    ShowLogo(dialog);
}

void Initialize(HWND dialog) {
    openBox = dialog;
    ShowLink(frmAbout_Label3, settings::MakerHost());
    ShowLink(frmAbout_Label4, settings::MakerMail());
    ShowPictures(dialog, win::WindowDpi(dialog));
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
        case WM_DPICHANGED:
            ShowPictures(dialog, LOWORD(wParam));
            return TRUE;
        case WM_DESTROY:
            ReplaceLogo(dialog, {});
            programIcon.Reset();
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
