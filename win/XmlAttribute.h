#pragma once
#include <string>
#include <vector>

namespace win {

// One attribute of an element, its name without the prefix.
struct XmlAttribute {
    std::string name;
    std::string text;
};

// An element's attributes in document order.
using XmlAttributes = std::vector<XmlAttribute>;

}  // namespace win
