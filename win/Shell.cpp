#include "win/Shell.h"

#include <shellapi.h>

#include "win/CodePage.h"
#include "win/Com.h"
#include "win/Files.h"
#include "win/Text.h"

namespace win {

void OpenInBrowser(HWND owner, const std::string& address) {
    EnsureCom();
    // Addresses contain text of feeds and files: a quote would end the browser's argument.
    ShellExecuteA(owner, "Open", ToAnsi(ReplaceAll(address, "\"", "%22")).c_str(), nullptr,
                  ToAnsiPath(ExecutableFolder()).c_str(), SW_SHOWNORMAL);
}

bool OpenDocument(HWND owner, const std::string& path) {
    EnsureCom();
    const std::wstring wide = ToWide(path);
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_FLAG_NO_UI;
    info.hwnd = owner;
    info.lpVerb = L"Open";
    info.lpFile = wide.c_str();
    info.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&info);
}

}  // namespace win
