#include "alerts/WordFilter.h"

#include <algorithm>

namespace alerts {

bool WordFilter::Keeps(std::string_view lowerBody) const {
    const auto occurs = [&](const std::string& word) {
        return lowerBody.find(word) != std::string_view::npos;
    };
    return showOnly ? std::ranges::all_of(lowerWords, occurs)
                    : std::ranges::none_of(lowerWords, occurs);
}

}  // namespace alerts
