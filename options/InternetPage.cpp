#include <string>

#include "options/Pages.h"
#include "options/PlainControls.h"
#include "options/resource.h"
#include "settings/MessageBoxes.h"
#include "settings/ProxyLogin.h"
#include "win/Dialog.h"

namespace options {

using namespace settings;

namespace {

constexpr PlainControl kControls[] = {{frmOptions_Check17, kOnlyDownloadWhenConnected, kFalse}};

INT_PTR CALLBACK HandleMessage(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return FALSE;
    if (HIWORD(wParam) == EN_CHANGE)  // Text1 or Text2
        MarkChanged(page);
    else
        MarkControlChange(page, kControls, wParam);
    return TRUE;
}

void Load(HWND page) {
    LoadControls(page, kControls);
    const ProxyLogin login = ReadProxyLogin();
    win::SetControlText(page, frmOptions_Text1, login.userName);
    win::SetControlText(page, frmOptions_Text2, login.password);
}

void Apply(HWND page) {
    ApplyControls(page, kControls);
    const bool isUserNameSaved = SaveProxyUserName(win::ControlText(page, frmOptions_Text1));
    const bool isPasswordSaved = SaveProxyPassword(win::ControlText(page, frmOptions_Text2));
    if (isUserNameSaved && isPasswordSaved) return;
    MarkChanged(page);
    ShowMessage(page,
                std::string(isUserNameSaved ? "The password" : "The user name") +
                    " for the proxy was not saved: it is too long or has characters that cannot be "
                    "stored, such as those of other alphabets.",
                MB_ICONEXCLAMATION);
}

}  // namespace

const PageEntry kInternetPage{"Internet", IDD_InternetFrame, HandleMessage, Load, Apply};

}  // namespace options
