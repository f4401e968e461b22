#pragma once
#include <optional>
#include <string>
#include <string_view>

// The values that the start-up reads from text: arguments, settings and a registry value.
namespace app {

// The arguments' choice of the settings store. The switches count anywhere in the text.
struct StoreSwitches {
    bool useIni = false;       // "-i" (also as part of "-id"): use the INI file
    bool defaultUser = false;  // "-id": for the user name "Default"
};
StoreSwitches ReadStoreSwitches(std::string_view arguments);

// Returns the stored run count plus one. Returns nullopt if the count must stay: at 32767, the
// largest 16-bit number, and for text that is not such a number, also the empty text.
std::optional<std::string> NextRunCount(std::string_view storedCount);

// Returns the interval of the click timer in milliseconds, 1 to 65535; nullopt for other text.
std::optional<unsigned> ClickInterval(std::string_view doubleClickSpeed);

}  // namespace app
