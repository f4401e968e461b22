#include "win/Shell.h"

#include <shellapi.h>

#include "win/Files.h"

namespace win {

void OpenInBrowser(HWND owner, const std::string& address) {
    ShellExecuteA(owner, "Open", address.c_str(), nullptr, ExecutableFolder().c_str(),
                  SW_SHOWNORMAL);
}

}  // namespace win
