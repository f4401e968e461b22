#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The captions and command identifiers of the tray menu's alert items, and the map from an item to
// its station code.
namespace tray {

// The command identifiers of all other items: fixed items are below kFixedItemsEnd, station i is
// kFirstStation + i.
inline constexpr unsigned kFixedItemsEnd = 200;
inline constexpr unsigned kAddStation = 8000;
inline constexpr unsigned kFirstStation = 8001;
inline constexpr unsigned kStationSeparator = 9999;

// Returns an alert item's caption: "title (station)", or its first 40 characters and "...)" if it
// is longer.
std::string AlertCaption(std::string_view title, std::string_view stationName);

// Adds the caption, after a bar, to the text of all captions so far. Returns false, without adding
// it, if that text contains it anywhere, even as a part of another caption: such an alert gets no
// item.
bool AddCaption(std::string& seenCaptions, std::string_view caption);

// Returns the caption as menu item text: "&" does not mark an access key, control characters become
// spaces.
std::string MenuText(std::string_view caption);

// Whether a number can be an alert item's identifier. A command message may carry only the low
// word: it must differ from those of all fixed items, stations and `taken` identifiers.
bool IsUsableAlertIdentifier(std::uint32_t identifier, std::size_t stationCount,
                             const std::vector<std::uint32_t>& taken);

// Appends "identifier(code)" to the map; entries are joined by ",".
void AddToAlertMap(std::string& map, std::uint32_t identifier, std::string_view code);

// Returns the station code of the alert item with this identifier, or else of the last one with
// this low word; nullopt for any other item.
std::optional<std::string> FindInAlertMap(std::string_view map, std::uint32_t chosen);

}  // namespace tray
