#pragma once

namespace app {

// Brings the data folder's copies of the HTML and Sounds folders up to date with the program
// folder's. An outdated HTML folder is replaced; outdated sounds are copied over, so that the
// user's own stay.
void RefreshDataFolder();

}  // namespace app
