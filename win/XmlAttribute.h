#pragma once
#include <string>
#include <vector>

namespace win {

// An attribute of an element; its name has no prefix.
struct XmlAttribute {
    std::string name;
    std::string text;
};

// An element's attributes in document order.
using XmlAttributes = std::vector<XmlAttribute>;

}  // namespace win
