#pragma once
#include <string>
#include <vector>

// The elements of a feed as its tables read them: each one's attributes in document order.
namespace search {

struct Attribute {
    std::string name;  // without its prefix
    std::string text;
};
using NodeRow = std::vector<Attribute>;

}  // namespace search
