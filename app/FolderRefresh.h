#pragma once

namespace app {

// Copies the program folder's HTML and Sounds folders into the data folder if they are newer than
// the copies there. The old HTML folder is deleted first; in Sounds the user's own files stay.
void RefreshDataFolder();

}  // namespace app
