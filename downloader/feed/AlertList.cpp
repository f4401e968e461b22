#include "downloader/feed/AlertList.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "win/Text.h"

namespace feed {
namespace {

// Lists so long that comparing all titles would take seconds stay as they are; real lists are much
// shorter.
void PutTitleEndingsFirst(std::vector<RankedAlert>& alerts) {
    constexpr std::size_t kLongestList = 2000;
    if (alerts.size() > kLongestList) return;
    std::vector<RankedAlert> ordered;
    for (RankedAlert& alert : alerts) {
        const auto longer =
            std::find_if(ordered.begin(), ordered.end(), [&](const RankedAlert& other) {
                return other.title.size() > alert.title.size() &&
                       other.title.ends_with(alert.title);
            });
        ordered.insert(longer, std::move(alert));
    }
    alerts = std::move(ordered);
}

}  // namespace

void KeepOnePerEvent(std::vector<RankedAlert>& alerts) {
    std::stable_sort(alerts.begin(), alerts.end(),
                     [](const RankedAlert& left, const RankedAlert& right) {
                         if (left.identity != right.identity) return left.identity < right.identity;
                         if (left.sent != right.sent) return left.sent > right.sent;
                         if (left.isInForce != right.isInForce) return left.isInForce;
                         return left.severityRank > right.severityRank;
                     });
    const auto sameEvent = [](const RankedAlert& left, const RankedAlert& right) {
        return left.identity == right.identity;
    };
    alerts.erase(std::unique(alerts.begin(), alerts.end(), sameEvent), alerts.end());
    std::erase_if(alerts, [](const RankedAlert& alert) { return !alert.isInForce; });
}

void PutWorstFirst(std::vector<RankedAlert>& alerts) {
    std::stable_sort(alerts.begin(), alerts.end(),
                     [](const RankedAlert& left, const RankedAlert& right) {
                         if (left.severityRank != right.severityRank)
                             return left.severityRank > right.severityRank;
                         return left.sent > right.sent;
                     });
    PutTitleEndingsFirst(alerts);
}

std::vector<std::size_t> StableOrder(const std::vector<std::int64_t>& numbers) {
    std::vector<std::size_t> order(numbers.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return numbers[left] < numbers[right];
    });
    return order;
}

std::string ShortTitle(std::string_view title) {
    constexpr std::size_t kLongestTitle = 30;
    constexpr std::string_view kMark = "...";
    if (win::CountChars(title) <= kLongestTitle) return std::string(title);
    return std::string(win::FirstChars(title, kLongestTitle - kMark.size())).append(kMark);
}

}  // namespace feed
