#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The texts, identifiers and addresses behind the built items of the tray menu.
namespace tray {

// Command identifiers: the fixed items stand below kFixedItemsEnd, station i is kFirstStation + i.
inline constexpr unsigned kFixedItemsEnd = 200;
inline constexpr unsigned kAddStation = 8000;
inline constexpr unsigned kFirstStation = 8001;
inline constexpr unsigned kStationSeparator = 9999;

// An alert item's caption: the title and the station's name, cut to 40 characters and "...)".
std::string AlertCaption(std::string_view title, std::string_view stationName);

// Whether the caption stands anywhere in the list of captions so far; if not, it is added.
bool TakeCaption(std::string& seenCaptions, std::string_view caption, std::string_view bar);

// A caption as a menu shows it: "&" is no access key, control characters are blanks.
std::string MenuText(std::string_view caption);

// Whether a number can be an alert item's identifier: even its low word, all that a command message
// may carry, is no fixed item, no station and no other alert's low word.
bool IsUsableAlertIdentifier(std::uint32_t identifier, std::size_t stationCount,
                             const std::vector<std::uint32_t>& taken);

// Adds an alert item to the map of identifiers and station codes: "identifier(code)", joined by
// ",".
void AddToAlertMap(std::string& map, std::uint32_t identifier, std::string_view code);

// The station code of a chosen alert item, found by its identifier or by the low word of it;
// nothing for any other item.
std::optional<std::string> FindInAlertMap(std::string_view map, std::uint32_t chosen);

// The weather site's pages for an alert's station code, for a station line (empty when the line has
// no hidden fields), and the national map, centred on the first station line when that has a code.
std::string AlertAddress(std::string_view weatherHost, std::string_view code);
std::string StationAddress(std::string_view weatherHost, std::string_view stationLine);
std::string NationalMapAddress(std::string_view weatherHost, std::string_view firstStationLine);

// The maker's page for bug reports.
std::string BugReportAddress(std::string_view makerHost, std::string_view version);

}  // namespace tray
