#pragma once
#include <optional>
#include <string>
#include <vector>

#include "win/XmlAttribute.h"

// The locations that the feed found for a name, and the place of each.
namespace search {

struct Location {
    std::string city;
    std::string region;  // state or country
    std::string type;    // "0": known by ZIP code; "1": known by city code
    std::string code;
};

struct LocationTable {
    // At most 52 entries. Reading stops when the 52nd slot is opened, which therefore stays empty.
    std::vector<Location> locations;
    // A value belonged before the first slot. The search then ends without a result.
    bool failed = false;
};

// Reads the feed's location elements into a table. A location of type "1" releases its slot as soon
// as its type is read: its remaining attributes overwrite the previous slot, and the next location
// reuses its slot and keeps the values that it does not overwrite.
LocationTable ReadLocations(const std::vector<win::XmlAttributes>& elements);

// Returns the chooser's rows: one for each location of type "0", in table order.
std::vector<std::string> MakeChooserRows(const std::vector<Location>& locations);

// The code that stations are looked up for.
struct Place {
    std::string code;
    bool isZipCode = true;  // false: a city code
};

// Returns the place of a location. Type "0" means a ZIP code, "1" a city code; any other type is
// read as a number or as "True" or "False" and means a ZIP code when it is true. Returns nullopt
// for a type that is none of these.
std::optional<Place> FindPlace(const Location& location);

// Returns the place for a chooser row, which is counted from 0 and taken as an index into all
// locations. Only the first character of the type and code together counts as the type. Returns
// nullopt for a type that FindPlace does not know and for a row outside the table.
std::optional<Place> FindChosenPlace(const std::vector<Location>& locations, std::size_t row);

}  // namespace search
