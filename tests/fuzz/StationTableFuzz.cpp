#include "search/StationTableRules.h"
#include "tests/fuzz/Rows.h"

// Whatever the elements hold, every row that is listed is there, and a line is made whole or not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto table = search::ReadStations(fuzz::MakeRows(data, size));
    if (!table) return 0;
    for (const bool byZipCode : {false, true}) {
        const auto rows = search::ListRows(*table, byZipCode);
        fuzz::Require(!rows || rows->size() == table->identifiers.size());
    }
    for (std::size_t i = 0; i <= table->identifiers.size(); ++i) {
        const auto line = search::StationLineOf(*table, i);
        fuzz::Require(!line || line->find(std::string(100, ' ')) != std::string::npos);
    }
    return 0;
}
