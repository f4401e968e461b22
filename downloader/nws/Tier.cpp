#include "downloader/nws/Tier.h"

#include <algorithm>

#include "downloader/feed/AlertList.h"

namespace nws {
namespace {

struct TierTitle {
    std::string_view event;
    Tier tier;
    std::string_view title;
};
constexpr TierTitle kTierTitles[] = {
    {"Tornado Warning", Tier::Highest, "Tornado Emergency"},
    {"Tornado Warning", Tier::Considerable, "Tornado Warning (Considerable)"},
    {"Tornado Warning", Tier::Observed, "Tornado Warning (Observed)"},
    {"Severe Thunderstorm Warning", Tier::Highest, "Thunderstorm (Destructive)"},
    {"Severe Thunderstorm Warning", Tier::Considerable, "Thunderstorm (Considerable)"},
    {"Flash Flood Warning", Tier::Highest, "Flash Flood Emergency"},
    {"Flash Flood Warning", Tier::Considerable, "Flash Flood (Considerable)"},
};

}  // namespace

Tier TierOf(const Message& message) {
    Tier tier = Tier::None;
    for (const std::string_view threat : message.threats) {
        if (threat == "CATASTROPHIC" || threat == "DESTRUCTIVE") tier = Tier::Highest;
        if (threat == "CONSIDERABLE") tier = std::max(tier, Tier::Considerable);
        if (threat == "OBSERVED") tier = std::max(tier, Tier::Observed);
    }
    return tier;
}

std::string Title(const Message& message) {
    const Tier tier = TierOf(message);
    for (const TierTitle& title : kTierTitles)
        if (title.event == message.event && title.tier == tier) return std::string(title.title);
    if (!message.event.empty()) return feed::ShortTitle(message.event);
    return message.headline.empty() ? "Weather alert" : feed::ShortTitle(message.headline);
}

}  // namespace nws
