#include "settings/DataFolder.h"

#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/CodePage.h"

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

}  // namespace settings
