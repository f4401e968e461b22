#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace alerts {

// The user's word filter. A word matches anywhere in an alert's body, also inside another word.
struct WordFilter {
    std::vector<std::string> lowerWords;  // in lower case
    bool showOnly = false;  // keep the alerts with all words; otherwise drop those with any

    // Whether the alert passes; `lowerBody` is in lower case. Without words every alert passes.
    bool Keeps(std::string_view lowerBody) const;
};

}  // namespace alerts
