#include "downloader/fpas/Endpoints.h"

#include <algorithm>

#include "downloader/feed/Json.h"
#include "win/Text.h"

namespace fpas {
namespace {

// Returns "&min_NAME=...&max_NAME=...": a hundredth of a degree on both sides of the coordinate,
// cut at the poles and the 180th meridian.
std::string FormatRange(const std::string& name, int coordinate, int limit) {
    constexpr int kReach = feed::kUnitsPerDegree / 100;
    const int most = limit * feed::kUnitsPerDegree;
    const int middle = std::clamp(coordinate, -most, most);
    return "&min_" + name + "=" + feed::FormatDegrees(std::max(middle - kReach, -most)) + "&max_" +
           name + "=" + feed::FormatDegrees(std::min(middle + kReach, most));
}

// Whether the text is a UUID: groups of 8, 4, 4, 4 and 12 hexadecimal digits.
bool IsUuid(std::string_view text) {
    constexpr std::string_view kForm = "00000000-0000-0000-0000-000000000000";
    constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";
    if (text.size() != kForm.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (kForm[i] == '-' ? text[i] != '-' : kHexDigits.find(text[i]) == std::string_view::npos)
            return false;
    return true;
}

}  // namespace

std::string AreaAddress(const std::string& origin, const feed::Place& place) {
    const std::string query = FormatRange("lat", place.latitude, 90) +  //
                              FormatRange("lon", place.longitude, 180);
    return origin + "/alert/area?" + query.substr(1);
}

std::string DocumentAddress(const std::string& origin, const std::string& identifier) {
    return origin + "/alert/" + identifier;
}

std::optional<std::vector<std::string>> ReadIdentifiers(std::string json) {
    using Kind = feed::JsonItem::Kind;
    std::vector<std::string> identifiers;
    bool isList = false;
    bool isValid = true;
    const bool isComplete = feed::ReadJson(std::move(json), [&](const feed::JsonItem& item) {
        if (item.path.empty() && item.kind == Kind::BeginArray) {
            isList = true;
        } else if (item.path != "[]" || item.kind != Kind::Text || !IsUuid(item.text)) {
            isValid = false;
        } else if (std::ranges::find(identifiers, item.text) == identifiers.end()) {
            identifiers.emplace_back(item.text);
        }
    });
    if (!isComplete || !isList || !isValid) return std::nullopt;
    return identifiers;
}

}  // namespace fpas
