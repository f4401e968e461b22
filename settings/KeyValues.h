#pragma once
#include <string>
#include <utility>
#include <vector>

namespace settings {

// The keys and values of one section of the settings store.
using KeyValues = std::vector<std::pair<std::string, std::string>>;

}  // namespace settings
