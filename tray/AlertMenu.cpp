#include "tray/AlertMenu.h"

#include <algorithm>

#include "alerts/SeenAlerts.h"
#include "win/Text.h"

namespace tray {
namespace {

constexpr std::uint32_t kLowWord = 0xFFFF;

// Removes the number at the start of the text and returns it.
std::uint32_t TakeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        number = number * 10 + static_cast<std::uint32_t>(text.front() - '0');
        text.remove_prefix(1);
    }
    return number;
}

}  // namespace

std::string AlertCaption(std::string_view title, std::string_view stationName) {
    constexpr std::size_t kLongest = 40;
    std::string caption(title);
    caption.append(" (").append(stationName).append(")");
    if (win::CountChars(caption) <= kLongest) return caption;
    return std::string(win::FirstChars(caption, kLongest)) + "...)";
}

bool AddCaption(std::string& seenCaptions, std::string_view caption) {
    if (seenCaptions.find(caption) != std::string::npos) return false;
    seenCaptions.append(alerts::kBar).append(caption);
    return true;
}

std::string MenuText(std::string_view caption) {
    return win::ReplaceControls(win::ReplaceAll(caption, "&", "&&"));
}

bool IsUsableAlertIdentifier(std::uint32_t identifier, std::size_t stationCount,
                             const std::vector<std::uint32_t>& taken) {
    const std::uint32_t low = identifier & kLowWord;
    const bool isFixed = low < kFixedItemsEnd || low == kStationSeparator;
    const bool isStation = low >= kAddStation && low < kFirstStation + stationCount;
    return !isFixed && !isStation && std::none_of(taken.begin(), taken.end(), [low](auto other) {
        return (other & kLowWord) == low;
    });
}

void AddToAlertMap(std::string& map, std::uint32_t identifier, std::string_view code) {
    if (!map.empty()) map += ',';
    map.append(win::Decimal(identifier)).append("(").append(code).append(")");
}

std::optional<std::string> FindInAlertMap(std::string_view map, std::uint32_t chosen) {
    std::optional<std::string> byLowWord;
    while (!map.empty()) {
        const std::uint32_t identifier = TakeNumber(map);
        const std::size_t end = std::min(map.find(')'), map.size());
        const std::string code(map.substr(std::min<std::size_t>(1, map.size()), end - 1));
        if (identifier == chosen) return code;
        if ((identifier & kLowWord) == chosen) byLowWord = code;
        map.remove_prefix(std::min(map.find(',', end), map.size() - 1) + 1);
    }
    return byLowWord;
}

}  // namespace tray
