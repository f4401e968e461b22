#pragma once
#include <optional>
#include <string>
#include <string_view>

// What the search asks the feed for.
namespace search {

// The place that the stations are looked up for.
struct Place {
    std::string code;
    bool byZipCode = true;  // false: the code is a city code
};

// What stands behind the feed's partner in the request for the locations of a name, which is taken
// as typed; only its blanks are escaped.
std::string LocationQuery(std::string_view text);

// The same for the stations of a place.
std::string StationQuery(const Place& place);

// Whether a location's type means a place known by ZIP code: "0" yes, "1" no. Any other type is
// read as a truth value, "0" and "1" being turned round; nothing when it is none.
std::optional<bool> IsByZipCode(std::string_view type);

// A type character with the code behind it, taken apart; nothing when it is not of that form.
std::optional<Place> PlaceOf(std::string_view selectedLocation);

}  // namespace search
