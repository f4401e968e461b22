#include "downloader/fpas/Events.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Paragraphs.h"
#include "downloader/fpas/InForce.h"
#include "downloader/http/TextHash.h"
#include "win/Text.h"

namespace fpas {
namespace {

using feed::AlertMemory;

std::string IdentifierKey(std::string_view sender, std::string_view identifier) {
    return win::AsciiLower(sender).append(",").append(identifier);
}

std::string AreaKey(const Info& info) {
    std::string key = info.areaKey;
    for (const Area& area : info.areas) key.append("\n").append(area.description);
    return key;
}

std::string AreaKey(const Choice& choice) {
    std::string key;
    for (const Info* const block : choice.blocks) key.append(AreaKey(*block)).append("\n\n");
    return key;
}

// What the alert says, so that one that is issued again without a reference is known. Many senders
// use the same words for every event of a kind: the time when it begins tells them apart or,
// without that, the day.
std::string TextKey(const Alert& alert) {
    constexpr std::size_t kDay = 10;  // characters
    std::string text = alert.sender;
    for (const Info& info : alert.infos) {
        const std::string& day = info.effective.empty() ? alert.sent : info.effective;
        for (const std::string_view part :
             {std::string_view(info.event), std::string_view(info.severity),
              info.onset.empty() ? std::string_view(day).substr(0, kDay) : info.onset})
            text.append("\n").append(part);
        text.append("\n").append(AreaKey(info)).append("\n");
        feed::AppendWithoutSpaces(text, info.description);
        feed::AppendWithoutSpaces(text, info.instruction);
        if (info.description.empty()) feed::AppendWithoutSpaces(text, info.headline);
    }
    return "text " + http::HexDigits(http::HashOf(text));
}

// Equal for alerts about one event in several languages: everything that is not in words, and the
// times to the second. Their identifiers and their times of sending differ.
std::string SiblingKey(const Alert& alert, const Choice& choice) {
    std::string key = win::AsciiLower(alert.sender);
    for (const Info* const block : choice.blocks) {
        const std::string& begin = block->onset.empty() ? block->effective : block->onset;
        for (const std::string_view part :
             {std::string_view(begin.empty() ? alert.sent : begin),
              std::string_view(block->expires), std::string_view(block->severity),
              std::string_view(block->urgency), std::string_view(block->certainty),
              std::string_view(block->categories), std::string_view(block->eventCodes),
              std::string_view(block->awarenessType), std::string_view(block->areaKey)})
            key.append("\n").append(part);
    }
    return key;
}

std::int64_t SentTime(const Alert& alert) {
    return feed::ParseTime(alert.sent).value_or(INT64_MIN);
}

// The events of the alerts, found one after the other, the earliest first: an answer may hold
// alerts that refer to one another.
class Chains {
  public:
    Chains(const std::vector<const Alert*>& alerts, AlertMemory& memory, std::int64_t now)
        : alerts_(alerts),
          memory_(memory),
          now_(now),
          identities_(alerts.size()),
          wasKnown_(alerts.size()) {
        std::vector<std::size_t> order;
        for (std::size_t at = 0; at < alerts.size(); ++at)
            if (alerts[at]) order.push_back(at);
        std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
            return SentTime(*alerts[left]) < SentTime(*alerts[right]);
        });
        for (const std::size_t at : order) Find(at);
    }

    const std::string& Identity(std::size_t alert) const { return identities_[alert]; }

    // Whether the event was known before this answer.
    bool WasKnown(std::size_t alert) const { return wasKnown_[alert]; }

    void Remember(std::size_t at, const std::string& identity) {
        const Alert& alert = *alerts_[at];
        const feed::KnownEvent event{identity, 0, 0};
        identities_[at] = identity;
        const std::string key = IdentifierKey(alert.sender, alert.identifier);
        memory_.Remember(key, event, now_);
        // Some senders use an identifier for several alerts at a time.
        memory_.Remember(key + textKeys_[at], event, now_);
        if (!alert.infos.empty()) memory_.Remember(textKeys_[at], event, now_);
    }

  private:
    void Find(std::size_t at) {
        const Alert& alert = *alerts_[at];
        const std::string& textKey = textKeys_[at] = TextKey(alert);
        const std::string key = IdentifierKey(alert.sender, alert.identifier);
        const feed::KnownEvent* known = memory_.Find(key + textKey);
        if (!known) known = memory_.Find(key);
        for (const Reference& reference : ReferencesOf(alert))
            if (!known) known = memory_.Find(IdentifierKey(reference.sender, reference.identifier));
        if (!known) known = memory_.Find(textKey);
        const std::string identity = known ? known->identity : feed::ShortIdentity(textKey);
        if (!known) fresh_.insert(identity);
        wasKnown_[at] = !fresh_.contains(identity);
        Remember(at, identity);
    }

    const std::vector<const Alert*>& alerts_;
    AlertMemory& memory_;
    std::int64_t now_;
    std::vector<std::string> identities_;
    std::vector<bool> wasKnown_;
    std::map<std::size_t, std::string> textKeys_;
    std::set<std::string> fresh_;  // identities that are new in this answer
};

// Returns lists of choices, by index, that are one event in several languages. Of two choices in
// one language each belongs to another event, although they agree in everything else.
std::vector<std::vector<std::size_t>> FindSiblings(const std::vector<const Alert*>& alerts,
                                                   const std::vector<Choice>& choices) {
    std::map<std::string, std::vector<std::size_t>> byKey;
    std::map<std::string, int> counts;
    for (std::size_t at = 0; at < choices.size(); ++at) {
        const std::string key = SiblingKey(*alerts[choices[at].alert], choices[at]);
        const std::string language = win::AsciiLower(choices[at].blocks.front()->language);
        const int count = counts[key + "\n" + language]++;
        byKey[key + "\n" + win::Decimal(count)].push_back(at);
    }
    std::vector<std::vector<std::size_t>> siblings;
    for (auto& [key, list] : byKey) siblings.push_back(std::move(list));
    // The order in which they were found, which is that of their times.
    std::sort(siblings.begin(), siblings.end());
    return siblings;
}

}  // namespace

void IdentifyEvents(const std::vector<const Alert*>& alerts, std::vector<Choice>& choices,
                    feed::AlertMemory& memory, std::int64_t now) {
    std::stable_sort(choices.begin(), choices.end(), [&](const Choice& left, const Choice& right) {
        return SentTime(*alerts[left.alert]) < SentTime(*alerts[right.alert]);
    });
    Chains chains(alerts, memory, now);
    std::vector<Choice> kept;
    std::map<std::string, std::string> areas;  // by identity
    for (const std::vector<std::size_t>& siblings : FindSiblings(alerts, choices)) {
        const auto known = std::find_if(siblings.begin(), siblings.end(), [&](std::size_t at) {
            return chains.WasKnown(choices[at].alert);
        });
        const std::size_t first = known == siblings.end() ? siblings.front() : *known;
        std::string identity = chains.Identity(choices[first].alert);
        const std::size_t best =
            *std::max_element(siblings.begin(), siblings.end(), [&](std::size_t l, std::size_t r) {
                return choices[l].languageRank < choices[r].languageRank;
            });
        const std::string area = AreaKey(choices[best]);
        const auto other = areas.find(identity);
        if (other != areas.end() && other->second != area)
            identity = feed::ShortIdentity(identity + "\n" + area);
        areas[identity] = area;
        for (const std::size_t at : siblings) chains.Remember(choices[at].alert, identity);
        choices[best].identity = identity;
        kept.push_back(std::move(choices[best]));
    }
    choices = std::move(kept);
}

}  // namespace fpas
