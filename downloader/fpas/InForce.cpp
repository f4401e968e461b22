#include "downloader/fpas/InForce.h"

#include <algorithm>
#include <initializer_list>
#include <set>
#include <utility>

#include "downloader/feed/IsoTime.h"
#include "win/Text.h"

namespace fpas {
namespace {

// Removes the first word from the text and returns it; empty at the end.
std::string_view TakeWord(std::string_view& text, std::string_view separators) {
    text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(separators));
    text.remove_prefix(word.size());
    return word;
}

bool HasWord(std::string_view text, std::string_view word, std::string_view separators) {
    while (!text.empty())
        if (win::EqualIgnoringCase(TakeWord(text, separators), word)) return true;
    return false;
}

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, text) != words.end();
}

// The members of MeteoAlarm also send "1; green; Minor": there is no danger.
bool IsGreen(const Info& info) {
    return HasWord(info.awarenessLevel, "green", "; ") || info.awarenessLevel.starts_with("1;");
}

// A block that names no category, although the standard requires one, could be about anything.
bool HasOurCategory(const Info& info) {
    constexpr std::string_view kOurs[] = {"Met", "Geo", "Fire", "Env"};
    return info.categories.empty() ||
           std::any_of(std::begin(kOurs), std::end(kOurs), [&](std::string_view category) {
               return HasWord(info.categories, category, " ");
           });
}

// Returns when the block ends; INT64_MAX if that is not known or cannot be read. Many senders state
// no end for what they expect to cancel, and some never cancel: such a block ends a day after its
// onset or after it was sent, whichever is later.
std::int64_t EndOf(const Info& info, const Alert& alert) {
    constexpr std::int64_t kDay = 86'400;
    if (!info.expires.empty()) return feed::ParseTime(info.expires).value_or(INT64_MAX);
    const auto onset = feed::ParseTime(info.onset);
    const auto sent = feed::ParseTime(alert.sent);
    if (!onset && !sent) return INT64_MAX;
    return std::max(onset.value_or(INT64_MIN), sent.value_or(INT64_MIN)) + kDay;
}

bool IsSameTime(std::string_view left, std::string_view right) {
    const auto time = feed::ParseTime(left);
    return left == right || (time && time == feed::ParseTime(right));
}

bool IsLater(std::string_view left, std::string_view right) {
    const auto time = feed::ParseTime(right);
    return time && feed::ParseTime(left).value_or(INT64_MIN) > *time;
}

// Whether the reference in one alert means another. Some senders write a wrong time, so that it
// only counts where several alerts have the identifier, and some alerts refer to themselves.
bool Means(const Reference& reference, const Alert& from, const Alert& alert, bool isOnly) {
    const bool isItself = alert.identifier == from.identifier && IsSameTime(alert.sent, from.sent);
    return !isItself && win::EqualIgnoringCase(reference.sender, alert.sender) &&
           (isOnly ? !IsLater(alert.sent, from.sent) : IsSameTime(reference.sent, alert.sent));
}

}  // namespace

bool IsPublic(const Alert& alert) {
    return !IsOneOf(alert.status, {"Exercise", "System", "Test", "Draft"}) &&
           !IsOneOf(alert.scope, {"Restricted", "Private"});
}

bool IsComplete(const Alert& alert) {
    return !alert.identifier.empty() && !alert.sender.empty() && alert.status == "Actual" &&
           alert.scope == "Public" &&
           IsOneOf(alert.type, {"Alert", "Update", "Cancel", "Ack", "Error"}) &&
           !(IsAnnouncement(alert) && alert.infos.empty());
}

bool IsAnnouncement(const Alert& alert) {
    return alert.type == "Alert" || alert.type == "Update";
}

bool IsInForce(const Info& info, const Alert& alert, std::int64_t now) {
    return EndOf(info, alert) > now && !HasWord(info.responses, "AllClear", " ") &&
           info.urgency != "Past" && HasOurCategory(info) && !IsGreen(info);
}

std::vector<Reference> ReferencesOf(const Alert& alert) {
    constexpr std::string_view kWhite = " \t\r\n";
    std::vector<Reference> references;
    std::string_view text = alert.references;
    for (;;) {
        const std::string_view entry = TakeWord(text, kWhite);
        if (entry.empty()) return references;
        const std::size_t first = entry.find(',');
        const std::size_t last = entry.rfind(',');
        if (first != last)
            references.push_back({entry.substr(0, first), entry.substr(first + 1, last - first - 1),
                                  entry.substr(last + 1)});
    }
}

std::vector<bool> FindReplaced(const std::vector<const Alert*>& alerts) {
    std::set<std::pair<std::size_t, std::size_t>> replacements;  // an alert and one it replaces
    for (std::size_t from = 0; from < alerts.size(); ++from) {
        const Alert* const alert = alerts[from];
        if (!alert || (alert->type != "Update" && alert->type != "Cancel")) continue;
        for (const Reference& reference : ReferencesOf(*alert)) {
            const auto isNamed = [&](const Alert* other) {
                return other && other->identifier == reference.identifier;
            };
            const auto count = std::count_if(alerts.begin(), alerts.end(), isNamed);
            for (std::size_t at = 0; count > 0 && at < alerts.size(); ++at)
                if (isNamed(alerts[at]) && Means(reference, *alert, *alerts[at], count == 1))
                    replacements.insert({from, at});
        }
    }
    std::vector<bool> replaced(alerts.size());
    // Alerts that name each other, such as one in several languages, must not all disappear.
    for (const auto& [from, at] : replacements)
        if (!replacements.contains({at, from})) replaced[at] = true;
    return replaced;
}

}  // namespace fpas
