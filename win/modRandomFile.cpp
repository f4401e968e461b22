#include "win/modRandomFile.h"

#include <windows.h>

#include "win/CodePage.h"
#include "win/Files.h"

namespace win {

std::string GetTempFolder() {
    char folder[512];
    const DWORD length = GetTempPathA(sizeof folder, folder);
    return length > 0 && length < sizeof folder ? FromAnsi({folder, length}) : std::string();
}

std::string MakeTempFileName(const std::string& prefix) {
    const std::string folder = GetTempFolder();
    if (folder.empty()) return {};
    char name[576] = {};
    return GetTempFileNameA(ToAnsi(folder).c_str(), ToAnsi(prefix).c_str(), 0, name)
               ? FromAnsi(name)
               : std::string();
}

void DeleteTempFiles(const std::string& prefix) {
    const std::string folder = GetTempFolder();
    if (folder.empty()) return;
    for (const std::string& name : FindFileNames(folder + prefix + "*.tmp"))
        DeleteFileQuietly(folder + name);
}

}  // namespace win
