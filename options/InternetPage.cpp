#include "options/Pages.h"
#include "options/resource.h"
#include "settings/IniOpenSave.h"
#include "settings/ProxyLogin.h"
#include "win/Dialog.h"

namespace options {

using namespace settings;

INT_PTR CALLBACK InternetProcedure(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return FALSE;
    const UINT event = HIWORD(wParam);
    const bool isCheck = LOWORD(wParam) == frmOptions_Check17;
    if (isCheck ? event == BN_CLICKED : event == EN_CHANGE) MarkChanged(Page::Internet);
    return TRUE;
}

void LoadInternet(HWND page) {
    win::SetChecked(page, frmOptions_Check17, ReadFlag(kOnlyDownloadWhenConnected));
    const ProxyLogin login = ReadProxyLogin();
    win::SetControlText(page, frmOptions_Text1, login.userName);
    win::SetControlText(page, frmOptions_Text2, login.password);
}

void ApplyInternet(HWND page) {
    WriteFlag(kOnlyDownloadWhenConnected, win::IsChecked(page, frmOptions_Check17));
    SaveProxyUserName(win::ControlText(page, frmOptions_Text1));
    SaveProxyPassword(win::ControlText(page, frmOptions_Text2));
}

}  // namespace options
