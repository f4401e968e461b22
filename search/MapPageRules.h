#pragma once
#include <optional>
#include <string>
#include <string_view>

// The text that the map page is made of, and the text by which the program moves the map.
namespace search {

// The template with the document's text in place of every "[XML]". The text stands in a script
// string there: its double quotes are escaped, its CR LF pairs go.
std::string MapPage(std::string_view pageTemplate, std::string_view xml);

// A hidden image that cannot load; its error handler centres the map. Nothing when a coordinate has
// a character that would end the script string or the markup around it: the feed is not trusted.
std::optional<std::string> CenterMarkup(std::string_view latitude, std::string_view longitude);

// The same for the map's overall view.
std::string OverallViewMarkup();

}  // namespace search
