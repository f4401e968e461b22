#include "downloader/fpas/Events.h"

#include <algorithm>
#include <set>
#include <utility>

#include "downloader/feed/AlertList.h"
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

// The choice's events and onset times.
std::string EventKey(const Choice& choice) {
    std::string key;
    for (const Info* const block : choice.blocks)
        key.append(block->event).append("\n").append(block->onset).append("\n\n");
    return key;
}

// Whether alerts for one area, which continue the same one by their references or identifiers, have
// divided it into several events. Only texts in one language show that.
bool HaveDivided(const Choice& left, const Choice& right) {
    return win::EqualIgnoringCase(left.blocks.front()->language, right.blocks.front()->language) &&
           EventKey(left) != EventKey(right);
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
          textKeys_(alerts.size()),
          wasKnown_(alerts.size()) {
        std::vector<std::int64_t> sent;
        sent.reserve(alerts.size());
        for (const Alert* const alert : alerts) sent.push_back(alert ? SentTime(*alert) : 0);
        for (const std::size_t at : feed::StableOrder(sent))
            if (alerts[at]) Find(at);
    }

    const std::string& Identity(std::size_t alert) const { return identities_[alert]; }

    // Equal for alerts that are the same in everything.
    std::string Key(std::size_t at) const {
        return IdentifierKey(alerts_[at]->sender, alerts_[at]->identifier) + textKeys_[at];
    }

    // Whether the event was known before this answer.
    bool WasKnown(std::size_t alert) const { return wasKnown_[alert]; }

    void Remember(std::size_t at, const std::string& identity) {
        const Alert& alert = *alerts_[at];
        const feed::KnownEvent event{identity, 0, 0};
        identities_[at] = identity;
        memory_.Remember(IdentifierKey(alert.sender, alert.identifier), event, now_);
        // Some senders use an identifier for several alerts at a time.
        memory_.Remember(Key(at), event, now_);
        if (!alert.infos.empty()) memory_.Remember(textKeys_[at], event, now_);
    }

  private:
    void Find(std::size_t at) {
        const Alert& alert = *alerts_[at];
        const std::string& textKey = textKeys_[at] = TextKey(alert);
        const feed::KnownEvent* known = memory_.Find(Key(at));
        if (!known) known = memory_.Find(IdentifierKey(alert.sender, alert.identifier));
        for (const Reference& reference : ReferencesOf(alert))
            if (!known) known = memory_.Find(IdentifierKey(reference.sender, reference.identifier));
        if (!known) known = memory_.Find(textKey);
        const std::string identity = known ? known->identity : feed::ShortIdentity(textKey);
        if (!known) fresh_.push_back(identity);
        wasKnown_[at] = std::find(fresh_.begin(), fresh_.end(), identity) == fresh_.end();
        Remember(at, identity);
    }

    const std::vector<const Alert*>& alerts_;
    AlertMemory& memory_;
    std::int64_t now_;
    std::vector<std::string> identities_;
    std::vector<std::string> textKeys_;
    std::vector<bool> wasKnown_;
    std::vector<std::string> fresh_;  // identities that are new in this answer
};

// The choices that are one event in several languages, by index, the earliest first.
struct Siblings {
    std::string key;
    std::vector<std::size_t> choices;
};

// Groups the choices. Of two in one language each belongs to another event, although they agree in
// everything else.
std::vector<Siblings> FindSiblings(const std::vector<const Alert*>& alerts,
                                   const std::vector<Choice>& choices) {
    std::vector<std::int64_t> sent;
    sent.reserve(choices.size());
    for (const Choice& choice : choices) sent.push_back(SentTime(*alerts[choice.alert]));
    std::vector<Siblings> groups;
    for (const std::size_t at : feed::StableOrder(sent)) {
        std::string key = SiblingKey(*alerts[choices[at].alert], choices[at]);
        const auto isSameLanguage = [&](std::size_t other) {
            return win::EqualIgnoringCase(choices[other].blocks.front()->language,
                                          choices[at].blocks.front()->language);
        };
        const auto found = std::find_if(groups.begin(), groups.end(), [&](const Siblings& group) {
            return group.key == key &&
                   std::none_of(group.choices.begin(), group.choices.end(), isSameLanguage);
        });
        if (found == groups.end())
            groups.push_back({std::move(key), {at}});
        else
            found->choices.push_back(at);
    }
    return groups;
}

}  // namespace

void IdentifyEvents(const std::vector<const Alert*>& alerts, std::vector<Choice>& choices,
                    feed::AlertMemory& memory, std::int64_t now) {
    Chains chains(alerts, memory, now);
    // A server may list an alert twice.
    std::set<std::string> seen;
    std::erase_if(choices, [&](const Choice& choice) {
        return !seen.insert(chains.Key(choice.alert)).second;
    });
    std::vector<Choice> kept;
    for (const Siblings& group : FindSiblings(alerts, choices)) {
        std::size_t best = group.choices.front();
        const auto known =
            std::find_if(group.choices.begin(), group.choices.end(),
                         [&](std::size_t at) { return chains.WasKnown(choices[at].alert); });
        std::string identity =
            chains.Identity(choices[known == group.choices.end() ? best : *known].alert);
        for (const std::size_t at : group.choices)
            if (choices[at].languageRank > choices[best].languageRank) best = at;
        const std::string area = AreaKey(choices[best]);
        const auto isElsewhere = [&](const Choice& other) {
            return other.identity == identity && AreaKey(other) != area;
        };
        if (std::any_of(kept.begin(), kept.end(), isElsewhere))
            identity = feed::ShortIdentity(identity, area);
        for (const std::size_t at : group.choices) chains.Remember(choices[at].alert, identity);
        const auto isOther = [&](const Choice& other) {
            return other.identity == identity && HaveDivided(other, choices[best]);
        };
        if (std::any_of(kept.begin(), kept.end(), isOther))
            identity = feed::ShortIdentity(identity, EventKey(choices[best]));
        choices[best].identity = identity;
        kept.push_back(std::move(choices[best]));
    }
    choices = std::move(kept);
}

}  // namespace fpas
