#pragma once

namespace settings {

// Makes the data folder in effect the program folder's "Users" folder for this user (which is made
// when missing) or the user's own application data.
void ChooseDataFolder(bool inProgramFolder);

// Makes the data folder itself when it is missing; one level only.
void MakeDataFolder();

}  // namespace settings
