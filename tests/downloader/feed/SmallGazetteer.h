#pragma once
#include <string>
#include <vector>

#include "downloader/http/TextHash.h"

namespace feed {

// Returns the little-endian bytes of a number.
inline std::string Number(std::int64_t number, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

// Returns a small gazetteer, each table sorted as tools/make-places does.
inline std::string SmallGazetteer() {
    using Records = std::vector<std::string>;
    std::string texts;
    const auto add = [&](const char* text) {
        const std::string offset = Number(static_cast<int>(texts.size()), 3);
        texts.append(text).push_back('\0');
        return offset;
    };
    const auto town = [&](const char* name, int population, int zipCode, int state) {
        return add(name) + Number(population, 2) + Number(zipCode, 2) + Number(state, 1);
    };
    const auto zipCode = [](int code, int town) {
        return Number(code, 3) + Number(town, 2) + Number(401234, 3) + Number(-891000 - town, 3) +
               Number(25, 1);
    };
    const auto city = [&](const char* name, int population, int region, bool isShown, int number) {
        return add(name) + Number(population, 2) + Number(region | (isShown ? 0x8000 : 0), 2) +
               Number(number, 3) + Number(473667, 3) + Number(-85500, 3);
    };
    const auto otherName = [](const char* folded, int city) {
        return Number(static_cast<std::uint32_t>(http::HashOf(folded)), 4) + Number(city, 2);
    };
    const Records tables[] = {
        {"IL" + add("Illinois"), "MO" + add("Missouri"), "NY" + add("New York"),
         "PR" + add("Puerto Rico")},
        {town("Mayagüez", 0, 0, 3), town("New York", 8000, 1, 2), town("O'Fallon", 80, 5, 1),
         town("St. Louis", 300, 4, 1), town("Springfield", 160, 6, 1),
         town("Springfield", 110, 3, 0), town("Springfield Center", 0, 2, 2),
         town("Winston-Salem", 0, 7, 0)},
        {zipCode(680, 0), zipCode(10001, 1), zipCode(13468, 6), zipCode(62701, 5),
         zipCode(63101, 3), zipCode(63366, 2), zipCode(65801, 4), zipCode(99999, 7)},
        {"CA" + add("Canada") + add(""), "CH" + add("Switzerland") + add(""),
         "GB" + add("United Kingdom") + add("UK")},
        {add("Ontario") + Number(0, 1), add("Zürich") + Number(1, 1),
         add("England") + Number(2, 1)},
        {city("London", 7556, 2, false, 2643743), city("London", 346, 0, true, 6058560),
         city("Springfield", 130, 2, false, 8), city("Zug", 2, 1, false, 5),
         city("Zürich", 341, 1, false, 2657896), city("Zürich (Kreis 3)", 46, 1, false, 6295532)},
        {otherName("londres", 0)},
    };
    std::string counts, records;
    for (const Records& table : tables) {
        counts += Number(static_cast<int>(table.size()), 4);
        for (const std::string& record : table) records += record;
    }
    return "SVPLACE3" + counts + Number(static_cast<int>(texts.size()), 4) + records + texts;
}

}  // namespace feed
