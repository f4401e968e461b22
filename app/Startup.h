#pragma once
#include <string_view>

namespace app {

// Runs the steps of the start-up in order, from the choice of the settings store to the named mutex
// that other processes look for. A step that fails is skipped. The tray window must exist.
// `arguments` is the command line without the program's name.
void StartUp(std::string_view arguments);

}  // namespace app
