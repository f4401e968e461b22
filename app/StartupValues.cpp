#include "app/StartupValues.h"

#include <cmath>

#include "win/Text.h"

namespace app {

StoreSwitches ReadStoreSwitches(std::string_view arguments) {
    return {arguments.find("-i") != std::string_view::npos,
            arguments.find("-id") != std::string_view::npos};
}

std::optional<std::string> NextRunCount(std::string_view storedCount) {
    if (!win::IsNumeric(storedCount)) return std::nullopt;
    const double next = std::nearbyint(win::LeadingNumber(storedCount)) + 1;
    if (next < -32767 || next > 32767) return std::nullopt;
    return win::Decimal(static_cast<long long>(next));
}

std::optional<unsigned> ClickInterval(std::string_view doubleClickSpeed) {
    if (!win::IsNumeric(doubleClickSpeed)) return std::nullopt;
    const double milliseconds = std::nearbyint(win::LeadingNumber(doubleClickSpeed));
    if (milliseconds < 1 || milliseconds > 65535) return std::nullopt;
    return static_cast<unsigned>(milliseconds);
}

}  // namespace app
