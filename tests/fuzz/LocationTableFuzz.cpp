#include "search/LocationTableRules.h"
#include "tests/fuzz/Rows.h"

// Whatever the elements hold, the table keeps its bounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto rows = fuzz::MakeRows(data, size);
    const search::LocationTable table = search::ReadLocations(rows);
    fuzz::Require(table.locations.size() <= 52 && table.locations.size() <= rows.size());
    fuzz::Require(!table.failed || table.locations.empty());
    fuzz::Require(table.locations.size() < 52 || table.locations[51].city.empty());
    fuzz::Require(search::ChooserRows(table.locations).size() <= table.locations.size());
    for (std::size_t i = 0; i <= table.locations.size(); ++i)
        search::SelectedLocation(table.locations, i);
    return 0;
}
