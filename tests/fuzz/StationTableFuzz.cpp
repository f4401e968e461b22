#include "search/StationTable.h"
#include "stations/StationLine.h"
#include "tests/fuzz/Elements.h"

// Whatever the elements contain, every listed row exists and every station line is complete.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto table = search::ReadStations(fuzz::MakeElements(data, size));
    if (!table) return 0;
    for (const bool isZipCode : {false, true}) {
        const auto rows = search::MakeListRows(*table, isZipCode);
        fuzz::Require(!rows || rows->size() == table->identifiers.size());
    }
    for (std::size_t i = 0; i <= table->identifiers.size(); ++i) {
        const auto line = search::FormatStationLine(*table, i);
        fuzz::Require(!line || stations::StationCode(*line).has_value());
    }
    return 0;
}
