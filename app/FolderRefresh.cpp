#include "app/FolderRefresh.h"

#include "settings/ProgramState.h"
#include "win/Files.h"

namespace app {
namespace {

enum class Outdated { Replace, CopyOver };

void Refresh(const std::string& name, Outdated outdated) {
    const std::string source = settings::State().programFolder + name;
    const std::string copy = settings::State().dataFolder + name;
    if (!win::FolderExists(source)) return;
    if (win::FolderExists(copy)) {
        if (win::LastModified(source) <= win::LastModified(copy)) return;
        if (outdated == Outdated::Replace) win::DeleteFolder(copy);
    }
    win::CopyFolder(source, copy);
}

}  // namespace

void RefreshDataFolder() {
    Refresh("\\HTML", Outdated::Replace);
    Refresh("\\Sounds", Outdated::CopyOver);
}

}  // namespace app
