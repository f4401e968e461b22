#include "settings/Folders.h"

#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Process.h"

namespace settings {
namespace {

enum class IfOutdated { Replace, CopyOver };

void Refresh(const std::string& name, IfOutdated action) {
    const std::string source = State().programFolder + name;
    const std::string copy = State().dataFolder + name;
    if (!win::FolderExists(source)) return;
    if (win::FolderExists(copy)) {
        if (win::LastModified(source) <= win::LastModified(copy)) return;
        if (action == IfOutdated::Replace) win::DeleteFolder(copy);
    }
    win::CopyFolder(source, copy);
}

}  // namespace

void ChooseDataFolder(bool inProgramFolder) {
    ProgramState& state = State();
    state.storeFilesInProgramFolder = inProgramFolder;
    if (!inProgramFolder) {
        state.dataFolder = win::Environment("APPDATA") + "\\SkyvaneAlerts";
        return;
    }
    const std::string users = state.programFolder + "\\Users";
    if (!win::FolderExists(users)) win::MakeFolder(users);
    state.dataFolder =
        users + "\\" + (IniUserName.empty() ? win::Environment("Username") : IniUserName);
}

void MakeDataFolder() {
    if (!win::FolderExists(State().dataFolder)) win::MakeFolder(State().dataFolder);
}

void RefreshDataFolder() {
    Refresh("\\HTML", IfOutdated::Replace);
    Refresh("\\Sounds", IfOutdated::CopyOver);
}

std::string SoundPath(std::string_view name) {
    return std::string(State().programFolder).append("\\Sounds\\").append(name);
}

}  // namespace settings
