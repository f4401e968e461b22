#include "win/Shell.h"

#include <shellapi.h>

#include "win/Com.h"
#include "win/Files.h"
#include "win/Text.h"

namespace win {

void OpenInBrowser(HWND owner, const std::string& address) {
    EnsureCom();
    // Addresses contain text of feeds and files: a quote would end the browser's argument.
    ShellExecuteA(owner, "Open", ReplaceAll(address, "\"", "%22").c_str(), nullptr,
                  ExecutableFolder().c_str(), SW_SHOWNORMAL);
}

}  // namespace win
