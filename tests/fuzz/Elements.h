#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "win/XmlAttribute.h"

// Reads fuzzer input as a feed's elements: one per line, attributes separated by ";", names and
// texts separated by "=".
namespace fuzz {

inline std::string_view CutAt(std::string_view& rest, char separator) {
    const std::size_t found = rest.find(separator);
    const std::string_view piece = rest.substr(0, found);
    rest = found == std::string_view::npos ? std::string_view() : rest.substr(found + 1);
    return piece;
}

inline std::vector<win::XmlAttributes> MakeElements(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    std::vector<win::XmlAttributes> elements;
    while (!input.empty()) {
        std::string_view line = CutAt(input, '\n');
        elements.emplace_back();
        while (!line.empty()) {
            std::string_view attribute = CutAt(line, ';');
            const std::string_view name = CutAt(attribute, '=');
            elements.back().push_back({std::string(name), std::string(attribute)});
        }
    }
    return elements;
}

inline void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace fuzz
