#include "downloader/nws/Alerts.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "downloader/feed/AlertList.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Paragraphs.h"
#include "downloader/feed/Severity.h"
#include "downloader/nws/EventIdentity.h"
#include "downloader/nws/Messages.h"
#include "downloader/nws/Tier.h"

namespace nws {
namespace {

bool Contains(const std::vector<std::string_view>& sorted, std::string_view text) {
    return std::binary_search(sorted.begin(), sorted.end(), text);
}

// Returns the sorted identifiers of the messages that later ones replace. Copies of one message
// reference the same identifiers.
std::vector<std::string_view> ReplacedIdentifiers(const std::vector<Message>& messages) {
    std::vector<std::string_view> replaced;
    for (const Message& message : messages)
        if (IsActual(message))
            for (const std::string_view identifier : message.replaced)
                if (identifier != message.identifier) replaced.push_back(identifier);
    std::sort(replaced.begin(), replaced.end());
    return replaced;
}

// A polygon farther away than this from the centre of a place does not concern it. In kilometres.
constexpr double kLongestReach = 40;

// Whether the message concerns the place: its polygon comes near enough, or, without one, it names
// a zone of the place. One that names no area at all concerns every place.
bool Concerns(const Message& message, const AlertPlace& place) {
    const double distance = feed::DistanceTo(message.polygons, place.centre);
    if (std::isfinite(distance)) return distance <= std::min(place.reach, kLongestReach);
    return message.zones.empty() ||
           std::any_of(message.zones.begin(), message.zones.end(), [&](std::string_view zone) {
               return std::binary_search(place.zones.begin(), place.zones.end(), zone);
           });
}

std::vector<feed::RankedAlert> RankAlerts(const std::vector<Message>& messages,
                                          const std::vector<feed::KnownEvent>& events,
                                          const AlertPlace& place, std::int64_t now) {
    const auto replaced = ReplacedIdentifiers(messages);
    std::vector<feed::RankedAlert> alerts;
    for (std::size_t at = 0; at < messages.size(); ++at) {
        const Message& message = messages[at];
        if (IsActual(message) && !Contains(replaced, message.identifier) &&
            Concerns(message, place))
            alerts.push_back({at, events[at].identity, Title(message),
                              feed::ParseTime(message.sent).value_or(INT64_MIN),
                              IsInForce(message, now),
                              feed::SeverityRank(message.severity, message.urgency)});
    }
    return alerts;
}

// Returns the texts of the message, paragraph by paragraph.
std::string Body(const Message& message) {
    std::string body;
    if (message.headline.find(message.event) == std::string_view::npos &&
        message.description.find(message.event) == std::string_view::npos)
        body = message.event;
    for (const std::string_view part :
         {message.headline, message.area, message.description, message.instruction})
        feed::AppendParagraphs(body, part);
    feed::AppendSeverity(body, message.severity, message.urgency, message.certainty);
    return body;
}

}  // namespace

std::optional<std::string> BuildAlertDocument(std::string json, const AlertPlace& place,
                                              feed::AlertMemory& memory, std::int64_t now) {
    const std::size_t size = json.size();
    const auto messages = ReadMessages(json);
    if (!messages) return std::nullopt;
    const auto events = IdentifyEvents(*messages, memory, now);
    auto alerts = RankAlerts(*messages, events, place, now);
    feed::KeepOnePerEvent(alerts);
    feed::PutWorstFirst(alerts);
    feed::AlertDocument document(alerts.empty() ? 0 : size);
    for (const feed::RankedAlert& alert : alerts)
        document.Add(AlertIdentifier(events[alert.message]), alert.title,
                     Body((*messages)[alert.message]));
    return document.Finish();
}

}  // namespace nws
