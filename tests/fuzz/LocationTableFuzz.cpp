#include "search/LocationTable.h"
#include "tests/fuzz/Elements.h"

// Whatever the elements contain, the table stays within its bounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto elements = fuzz::MakeElements(data, size);
    const search::LocationTable table = search::ReadLocations(elements);
    const auto& locations = table.locations;
    fuzz::Require(locations.size() <= 52 && locations.size() <= elements.size());
    fuzz::Require(!table.failed || locations.empty());
    fuzz::Require(locations.size() < 52 || locations[51].city.empty());
    fuzz::Require(search::MakeChooserRows(locations).size() <= locations.size());
    for (const search::Location& location : locations) search::FindPlace(location);
    for (std::size_t i = 0; i <= locations.size(); ++i) search::FindChosenPlace(locations, i);
    return 0;
}
