#include "downloader/nws/EventIdentity.h"

#include <algorithm>
#include <map>

#include "downloader/feed/AlertList.h"
#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Paragraphs.h"
#include "downloader/nws/Tier.h"
#include "downloader/nws/Vtec.h"
#include "win/Text.h"

namespace nws {
namespace {

using feed::AlertMemory;
using feed::KnownEvent;

// What the message says, without regard to how its lines are broken.
std::string TextKey(const Message& message) {
    std::string key(message.event);
    key.append("\n").append(message.senderName).append("\n");
    const std::size_t head = key.size();
    feed::AppendWithoutSpaces(key, message.description);
    feed::AppendWithoutSpaces(key, message.instruction);
    if (key.size() == head)
        for (const std::string_view text :
             {message.headline, message.area, message.headline.empty() ? message.sent : ""})
            feed::AppendWithoutSpaces(key, text);
    return key;
}

std::string EventOfYear(const Vtec& vtec, int year) {
    return std::string(vtec.event) + "." + win::Decimal(year);
}

// The numbers of events begin anew each year. Messages that come later no longer name the year in
// which the event began; the messages before them do, as far as they are remembered.
KnownEvent EventOfVtec(const Vtec& vtec, const Message& message, const AlertMemory& memory) {
    const auto recall = [&](std::string_view identifier) -> const KnownEvent* {
        const KnownEvent* const known = memory.Find(identifier);
        const bool isSame =
            known && known->identity == feed::ShortIdentity(EventOfYear(vtec, known->year));
        return isSame ? known : nullptr;
    };
    if (const KnownEvent* const known = recall(message.identifier)) return *known;
    for (const std::string_view replaced : message.replaced)
        if (const KnownEvent* const known = recall(replaced)) return *known;
    const int year = FirstYear(vtec, FirstSentYear(message));  // of what is known of the event
    return {feed::ShortIdentity(EventOfYear(vtec, year)), year, 0};
}

// An update inherits the event of a message that it replaces. A message that replaces none may
// repeat another's text, and is the same alert then.
KnownEvent EventOfText(const Message& message, const AlertMemory& memory) {
    const auto recall = [&](std::string_view key) -> const KnownEvent* {
        const KnownEvent* const known = key.empty() ? nullptr : memory.Find(key);
        return known && known->year == 0 ? known : nullptr;
    };
    if (const KnownEvent* const known = recall(message.identifier)) return *known;
    for (const std::string_view replaced : message.replaced)
        if (const KnownEvent* const known = recall(replaced)) return *known;
    const std::string text = TextKey(message);
    if (const KnownEvent* const known = recall(text)) return *known;
    return {feed::ShortIdentity(text), 0, 0};
}

std::vector<std::size_t> ByTime(const std::vector<Message>& messages) {
    std::vector<std::int64_t> sent;
    sent.reserve(messages.size());
    for (const Message& message : messages)
        sent.push_back(feed::ParseTime(message.sent).value_or(INT64_MIN));
    return feed::StableOrder(sent);
}

}  // namespace

std::vector<KnownEvent> IdentifyEvents(const std::vector<Message>& messages, AlertMemory& memory,
                                       std::int64_t now) {
    std::vector<KnownEvent> events(messages.size());
    std::map<std::string, int> tiers;
    // An answer may hold messages that name one another: the earlier ones are remembered first.
    for (const std::size_t at : ByTime(messages)) {
        const Message& message = messages[at];
        if (!IsActual(message)) continue;
        KnownEvent& event = events[at];
        event = message.vtec ? EventOfVtec(*message.vtec, message, memory)
                             : EventOfText(message, memory);
        const KnownEvent* const known = memory.Find(event.identity);
        int& tier = tiers[event.identity];
        tier = std::max({tier, event.tier, known ? known->tier : 0,
                         IsEnd(message) ? 0 : static_cast<int>(TierOf(message))});
        event.tier = tier;
        memory.Remember(event.identity, event, now);
        if (!message.identifier.empty()) memory.Remember(message.identifier, event, now);
        if (!message.vtec) memory.Remember(TextKey(message), event, now);
    }
    for (KnownEvent& event : events) event.tier = tiers[event.identity];
    return events;
}

std::string AlertIdentifier(const KnownEvent& event) {
    if (event.tier == 0) return event.identity;
    return feed::ShortIdentity(event.identity + "/" + win::Decimal(event.tier));
}

}  // namespace nws
