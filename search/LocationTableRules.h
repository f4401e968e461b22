#pragma once
#include <string>
#include <vector>

#include "search/NodeRows.h"

// The table of the locations that the feed found for a name.
namespace search {

struct Location {
    std::string city;
    std::string region;  // the state, or the country
    std::string type;    // "0": known by ZIP code; "1": known by city code
    std::string code;
};

struct LocationTable {
    // At most 52, of which the last is then an empty one: the walk stops at its slot.
    std::vector<Location> locations;
    // The walk wrote before the first slot. The search then ends without a result.
    bool failed = false;
};

// Reads the elements into the table. A location of type "1" gives up its slot as soon as its type
// is read: what its element says after that goes to the slot before, and the next location takes
// the slot over with whatever it does not overwrite.
LocationTable ReadLocations(const std::vector<NodeRow>& rows);

// The texts of the chooser: one for each location of type "0", in their order.
std::vector<std::string> ChooserRows(const std::vector<Location>& locations);

// The type and the code of the location that the chooser's row stands for: the one with the same
// index. Empty when there is none.
std::string SelectedLocation(const std::vector<Location>& locations, std::size_t row);

}  // namespace search
