#include "settings/Folders.h"

#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Process.h"

namespace settings {

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

std::string SoundPath(std::string_view name) {
    return std::string(State().programFolder).append("\\Sounds\\").append(name);
}

}  // namespace settings
