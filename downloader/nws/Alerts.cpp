#include "downloader/nws/Alerts.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Paragraphs.h"
#include "downloader/nws/EventIdentity.h"
#include "downloader/nws/Messages.h"
#include "downloader/nws/Tier.h"

namespace nws {
namespace {

// A message that may represent its event.
struct Candidate {
    const Message* message;
    feed::KnownEvent event;
    std::string title;
    std::int64_t sent;
    bool isInForce;
    int severityRank;
};

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

// Whether the message concerns the place: its polygon comes near enough, or, without one, it names
// a zone of the place. One that names no area at all concerns everybody.
bool Concerns(const Message& message, const AlertPlace& place) {
    const double distance = DistanceTo(message.polygons, place.centre);
    if (std::isfinite(distance)) return distance <= std::min(place.reach, kLongestReach);
    return message.zones.empty() ||
           std::any_of(message.zones.begin(), message.zones.end(), [&](std::string_view zone) {
               return std::binary_search(place.zones.begin(), place.zones.end(), zone);
           });
}

std::vector<Candidate> FindCandidates(const std::vector<Message>& messages, const AlertPlace& place,
                                      feed::AlertMemory& memory, std::int64_t now) {
    const auto replaced = ReplacedIdentifiers(messages);
    const auto events = IdentifyEvents(messages, memory, now);
    std::vector<Candidate> candidates;
    for (std::size_t at = 0; at < messages.size(); ++at) {
        const Message& message = messages[at];
        if (IsActual(message) && !Contains(replaced, message.identifier) &&
            Concerns(message, place))
            candidates.push_back({&message, events[at], Title(message),
                                  feed::ParseTime(message.sent).value_or(INT64_MIN),
                                  IsInForce(message, now), SeverityRank(message)});
    }
    return candidates;
}

// Keeps only the newest message of each event, and only while the event is in force. When one
// message continues the event and another one sent at the same time ends it, each for part of the
// area, the event continues.
void KeepOnePerEvent(std::vector<Candidate>& candidates) {
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& left, const Candidate& right) {
                         if (left.event.identity != right.event.identity)
                             return left.event.identity < right.event.identity;
                         if (left.sent != right.sent) return left.sent > right.sent;
                         if (left.isInForce != right.isInForce) return left.isInForce;
                         return left.severityRank > right.severityRank;
                     });
    const auto sameEvent = [](const Candidate& left, const Candidate& right) {
        return left.event.identity == right.event.identity;
    };
    candidates.erase(std::unique(candidates.begin(), candidates.end(), sameEvent),
                     candidates.end());
    std::erase_if(candidates, [](const Candidate& candidate) { return !candidate.isInForce; });
}

void SortBySeverity(std::vector<Candidate>& candidates) {
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& left, const Candidate& right) {
                         if (left.severityRank != right.severityRank)
                             return left.severityRank > right.severityRank;
                         return left.sent > right.sent;
                     });
}

// Moves each alert whose title is the end of another's ("Flood Warning", "Flash Flood Warning")
// before that one: the menu omits a caption that is part of an earlier caption, and in a caption
// the place follows the title. The order is otherwise kept. Lists so long that comparing all titles
// would take seconds stay as they are; real lists are much shorter.
void PutTitleEndingsFirst(std::vector<Candidate>& candidates) {
    constexpr std::size_t kLongestList = 2000;
    if (candidates.size() > kLongestList) return;
    std::vector<Candidate> ordered;
    for (const Candidate& candidate : candidates) {
        const auto longer = std::find_if(ordered.begin(), ordered.end(), [&](const Candidate& o) {
            return o.title.size() > candidate.title.size() && o.title.ends_with(candidate.title);
        });
        ordered.insert(longer, candidate);
    }
    candidates = std::move(ordered);
}

std::string_view OrUnknown(std::string_view text) {
    return text.empty() ? "Unknown" : text;
}

// Returns the texts of the message, paragraph by paragraph. The last one lets the word filter find
// alerts by their severity.
std::string Body(const Message& message) {
    std::string body;
    if (message.headline.find(message.event) == std::string_view::npos &&
        message.description.find(message.event) == std::string_view::npos)
        body = message.event;
    for (const std::string_view part :
         {message.headline, message.area, message.description, message.instruction})
        feed::AppendParagraphs(body, part);
    body.append(body.empty() ? "" : "\n\n")
        .append("Severity: ")
        .append(OrUnknown(message.severity));
    body.append(". Urgency: ").append(OrUnknown(message.urgency));
    return body.append(". Certainty: ").append(OrUnknown(message.certainty)).append(".");
}

}  // namespace

std::optional<std::string> BuildAlertDocument(std::string json, const AlertPlace& place,
                                              feed::AlertMemory& memory, std::int64_t now) {
    const std::size_t size = json.size();
    const auto messages = ReadMessages(json);
    if (!messages) return std::nullopt;
    std::vector<Candidate> candidates = FindCandidates(*messages, place, memory, now);
    KeepOnePerEvent(candidates);
    SortBySeverity(candidates);
    PutTitleEndingsFirst(candidates);
    feed::AlertDocument document(candidates.empty() ? 0 : size);
    for (const Candidate& candidate : candidates)
        document.Add(AlertIdentifier(candidate.event), candidate.title, Body(*candidate.message));
    return document.Finish();
}

}  // namespace nws
