#include "options/Pages.h"
#include "options/PlainControls.h"
#include "options/resource.h"
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
    SaveProxyUserName(win::ControlText(page, frmOptions_Text1));
    SaveProxyPassword(win::ControlText(page, frmOptions_Text2));
}

}  // namespace

const PageEntry kInternetPage{"Internet", IDD_InternetFrame, HandleMessage, Load, Apply};

}  // namespace options
