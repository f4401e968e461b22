#include "downloader/nws/Alerts.h"

#include <algorithm>
#include <vector>

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/IsoTime.h"
#include "downloader/nws/Messages.h"
#include "win/NeverDestroyed.h"

namespace nws {
namespace {

// A message that may represent its event.
struct Candidate {
    const Message* message;
    std::string id;
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
            for (const std::string& identifier : message.replaced)
                if (identifier != message.identifier) replaced.push_back(identifier);
    std::sort(replaced.begin(), replaced.end());
    return replaced;
}

std::vector<Candidate> FindCandidates(const std::vector<Message>& messages, std::int64_t now) {
    const auto replaced = ReplacedIdentifiers(messages);
    std::vector<Candidate> candidates;
    for (const Message& message : messages)
        if (IsActual(message) && !Contains(replaced, message.identifier))
            candidates.push_back({&message, EventId(message),
                                  feed::ParseTime(message.sent).value_or(INT64_MIN),
                                  IsInForce(message, now), SeverityRank(message)});
    return candidates;
}

// Keeps only the newest message of each event, and only while the event is in force. When one
// message continues the event and another one sent at the same time ends it, each for part of the
// area, the event continues.
void KeepOnePerEvent(std::vector<Candidate>& candidates) {
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& left, const Candidate& right) {
                         if (left.id != right.id) return left.id < right.id;
                         if (left.sent != right.sent) return left.sent > right.sent;
                         return left.isInForce && !right.isInForce;
                     });
    const auto sameEvent = [](const Candidate& left, const Candidate& right) {
        return left.id == right.id;
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

const std::string& Title(const Message& message) {
    static std::string& unnamed = win::NeverDestroyed<std::string>("Weather alert");
    if (!message.event.empty()) return message.event;
    return message.headline.empty() ? unnamed : message.headline;
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
        const std::string& title = Title(*candidate.message);
        const auto longer = std::find_if(ordered.begin(), ordered.end(), [&](const Candidate& o) {
            const std::string& other = Title(*o.message);
            return other.size() > title.size() && other.ends_with(title);
        });
        ordered.insert(longer, candidate);
    }
    candidates = std::move(ordered);
}

std::string Body(const Message& message) {
    std::string body;
    for (const std::string* part :
         {&message.headline, &message.area, &message.description, &message.instruction}) {
        if (part->empty()) continue;
        if (!body.empty()) body += "\n\n";
        body += *part;
    }
    // An alert without a body would not be stored.
    return body.find_first_not_of(" \t\r\n") == std::string::npos ? Title(message) : body;
}

void AppendAlert(std::string& xml, const Candidate& candidate) {
    xml += "<aws:alert>";
    feed::AppendXmlElement(xml, "id", candidate.id);
    feed::AppendXmlElement(xml, "title", Title(*candidate.message));
    feed::AppendXmlElement(xml, "html-msg-body", Body(*candidate.message));
    xml += "</aws:alert>\n";
}

}  // namespace

std::optional<std::string> BuildAlertDocument(std::string json, std::int64_t now) {
    const auto messages = ReadMessages(std::move(json));
    if (!messages) return std::nullopt;
    std::vector<Candidate> candidates = FindCandidates(*messages, now);
    KeepOnePerEvent(candidates);
    SortBySeverity(candidates);
    PutTitleEndingsFirst(candidates);
    std::string xml(feed::kXmlHead);
    xml += "<aws:alerts>\n";
    for (const Candidate& candidate : candidates) AppendAlert(xml, candidate);
    xml += "</aws:alerts>";
    return xml.append(feed::kXmlTail);
}

}  // namespace nws
