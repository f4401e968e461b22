#pragma once
#include <string_view>

namespace app {

// The ordered start-up, from the choice of the settings store to the named mutex. A step that fails
// is passed over. The tray window must be loaded.
void StartUp(std::string_view arguments);

}  // namespace app
