#pragma once
#include <string>
#include <string_view>

// The program's folders, as ProgramState records them.
namespace settings {

// Sets the data folder: this user's folder in "Users" in the program folder, which is created when
// missing, or else the folder in the user's application data.
void ChooseDataFolder(bool inProgramFolder);

// Creates the data folder, one level only, unless it exists.
void MakeDataFolder();

// Copies the program folder's HTML and Sounds folders into the data folder if they are newer than
// the copies there. The old HTML folder is deleted first; in Sounds the user's own files stay.
void RefreshDataFolder();

// Returns the path of a sound in the program folder.
std::string SoundPath(std::string_view name);

}  // namespace settings
