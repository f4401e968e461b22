#pragma once
#include <optional>
#include <string>
#include <string_view>

// The text of the map page, and the markup by which the program moves its map.
namespace search {

// Returns the template with the feed's document in place of every "[XML]". The document becomes
// part of a script string: its double quotes are escaped and its CR LF pairs are removed.
std::string MakeMapPage(std::string_view pageTemplate, std::string_view xml);

// Returns a hidden image that fails to load and whose error handler centres the map. The feed is
// not trusted: returns nullopt when a coordinate contains a character that could end the script
// string or the markup around it.
std::optional<std::string> MakeCenterMarkup(std::string_view latitude, std::string_view longitude);

// Returns the same kind of image for the map's overall view.
std::string MakeOverallViewMarkup();

}  // namespace search
