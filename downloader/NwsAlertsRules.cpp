#include "downloader/NwsAlertsRules.h"

#include <algorithm>
#include <vector>

#include "downloader/NwsMessageRules.h"
#include "downloader/NwsTimeRules.h"
#include "downloader/NwsXmlRules.h"
#include "win/NeverDestroyed.h"

namespace downloader {
namespace {

// A message as a candidate for the one that stands for its event.
struct Candidate {
    const Message* message;
    std::string id;
    std::int64_t sent;
    bool isInForce;
    int gravity;
};

bool Contains(const std::vector<std::string_view>& sorted, std::string_view text) {
    return std::binary_search(sorted.begin(), sorted.end(), text);
}

// The identifiers of the messages that others replace, sorted. Copies of one message name the same.
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
                                  ParseMoment(message.sent).value_or(INT64_MIN),
                                  IsInForce(message, now), Gravity(message)});
    return candidates;
}

// Leaves for each event its newest message alone, and that only while the event is in force. Where
// one message continues the event and one sent with it ends it, each for a part of the area, the
// event goes on.
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

void PutWorstFirst(std::vector<Candidate>& candidates) {
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& left, const Candidate& right) {
                         if (left.gravity != right.gravity) return left.gravity > right.gravity;
                         return left.sent > right.sent;
                     });
}

const std::string& Title(const Message& message) {
    static std::string& unnamed = win::NeverDestroyed<std::string>("Weather alert");
    if (!message.event.empty()) return message.event;
    return message.headline.empty() ? unnamed : message.headline;
}

// Moves each alert whose title ends another's ("Flood Warning", "Flash Flood Warning") before that
// one: the menu leaves out a caption that is a part of an earlier one, and the place follows the
// title. The order is kept otherwise, and in lists so long that comparing all titles would take
// seconds; no real one is.
void PutEndsOfTitlesFirst(std::vector<Candidate>& candidates) {
    constexpr std::size_t longestList = 2000;
    if (candidates.size() > longestList) return;
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
    AppendXmlElement(xml, "id", candidate.id);
    AppendXmlElement(xml, "title", Title(*candidate.message));
    AppendXmlElement(xml, "html-msg-body", Body(*candidate.message));
    xml += "</aws:alert>\n";
}

}  // namespace

std::optional<std::string> AlertsXml(std::string_view json, std::int64_t now) {
    const auto messages = ReadMessages(json);
    if (!messages) return std::nullopt;
    std::vector<Candidate> candidates = FindCandidates(*messages, now);
    KeepOnePerEvent(candidates);
    PutWorstFirst(candidates);
    PutEndsOfTitlesFirst(candidates);
    std::string xml(kXmlHead);
    xml += "<aws:alerts>\n";
    for (const Candidate& candidate : candidates) AppendAlert(xml, candidate);
    xml += "</aws:alerts>";
    return xml.append(kXmlTail);
}

}  // namespace downloader
