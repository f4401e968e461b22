#include "tray/TrayTip.h"

#include "win/Text.h"

namespace tray {
namespace {

// The text after the date and a space. A short date may itself contain spaces.
std::string_view TimePart(std::string_view text, std::string_view date) {
    const std::size_t start = text.starts_with(date) ? date.size() : 0;
    const std::size_t space = text.find(' ', start);
    return space == std::string_view::npos ? text : text.substr(space + 1);
}

}  // namespace

std::string TrayTip(std::string_view lastUpdated, std::string_view dateOfUpdate,
                    std::string_view today) {
    if (lastUpdated.empty()) return {};
    const std::string when = dateOfUpdate == today ? std::string(TimePart(lastUpdated, today))
                                                   : win::ReplaceAll(lastUpdated, " ", " @ ");
    return "Skyvane Alerts (Last Updated: " + when + ")";
}

}  // namespace tray
