#include "alerts/VersionRules.h"

#include <cstdint>

#include "win/Text.h"

namespace alerts {
namespace {

std::int16_t VersionNumber(std::string_view version) {
    const std::string digits = win::ReplaceAll(version, ".", "");
    return win::IsNumeric(digits) ? win::LeadingInt16(digits) : static_cast<std::int16_t>(0);
}

}  // namespace

bool IsVersionTooLong(std::string_view fileText) {
    constexpr std::size_t tooLong = 21;
    return win::CountChars(win::TrimBlanks(fileText)) >= tooLong;
}

std::string OfferedVersion(std::string_view fileText) {
    std::string version(win::TrimBlanks(fileText));
    while (!version.empty() && (version.back() == '\n' || version.back() == '\r'))
        version.pop_back();
    return std::string(win::TrimBlanks(version));
}

bool IsNewerVersion(std::string_view offered, std::string_view running) {
    return VersionNumber(win::ReplaceAll(offered, "\r\n", "")) > VersionNumber(running);
}

}  // namespace alerts
