#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace app {

// What the arguments say about the settings store.
struct StoreSwitches {
    bool useIni = false;  // "-i" stands anywhere
    bool defaultUser =
        false;  // "-id" stands anywhere; it holds "-i" and so selects the INI file too
};
StoreSwitches ReadStoreSwitches(std::string_view arguments);

// The stored run count after one more start; nothing when it must stay: at 32767, where a 16-bit
// count ends for good, and for a text that is no such number. The empty text is no count either.
std::optional<std::string> NextRunCount(std::string_view storedCount);

// The click timer's interval in milliseconds; nothing for a text that is no number from 1 to 65535.
std::optional<unsigned> ClickInterval(std::string_view doubleClickSpeed);

}  // namespace app
