#include "search/MapPage.h"

#include <algorithm>

#include "win/Text.h"

namespace search {
namespace {

bool IsHarmless(std::string_view coordinate) {
    return std::all_of(coordinate.begin(), coordinate.end(), [](char c) {
        return static_cast<unsigned char>(c) >= ' ' &&
               std::string_view("'\"\\<>&").find(c) == std::string_view::npos;
    });
}

}  // namespace

std::string MakeMapPage(std::string_view pageTemplate, std::string_view xml) {
    const std::string text = win::ReplaceAll(win::ReplaceAll(xml, "\r\n", ""), "\"", "\\\"");
    return win::ReplaceAll(pageTemplate, "[XML]", text);
}

std::optional<std::string> MakeCenterMarkup(std::string_view latitude, std::string_view longitude) {
    if (!IsHarmless(latitude) || !IsHarmless(longitude)) return std::nullopt;
    return std::string("<IMG onerror = \"setMapCenter('")
        .append(latitude)
        .append("','")
        .append(longitude)
        .append("');\" src=\"#\" STYLE=\"display:none;\" >");
}

std::string MakeOverallViewMarkup() {
    return "<IMG onerror = \"setMapCenter();\" src=\"#\" STYLE=\"display:none;\" >";
}

}  // namespace search
