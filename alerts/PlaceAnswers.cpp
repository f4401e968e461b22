#include "alerts/PlaceAnswers.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "settings/FeedContract.h"
#include "win/NeverDestroyed.h"

namespace alerts {
namespace {

constexpr std::string_view kNotices[] = {settings::kNotCoveredTitle, settings::kUnavailableTitle,
                                         settings::kMoreAlertsTitle};

struct Entry {
    PlaceAnswer answer;
    std::uint64_t failureTick = 0;  // of the latest request that failed
};

// All answers are of one feed: those of another say nothing about this one's alerts.
struct Answers {
    std::string feed;
    std::map<std::string, Entry> byCode;
};

Answers& AnswersOf(std::string_view feed) {
    static Answers& answers = win::NeverDestroyed<Answers>();
    if (answers.feed != feed) answers = {std::string(feed), {}};
    return answers;
}

}  // namespace

bool IsNotice(std::string_view title) {
    return std::ranges::find(kNotices, title) != std::end(kNotices);
}

bool IsExemptFromFilter(std::string_view title) {
    return IsNotice(title) || title == settings::kUnreadableTitle;
}

void RecordAnswer(const std::string& code, std::string_view feed, PlaceAnswer answer) {
    Entry& entry = AnswersOf(feed).byCode[code];
    if (answer.tick < entry.answer.tick) return;
    answer.lastFailed |= answer.tick < entry.failureTick;
    entry.answer = std::move(answer);
}

void RecordFailure(const std::string& code, std::string_view feed, std::uint64_t tick) {
    Entry& entry = AnswersOf(feed).byCode[code];
    entry.failureTick = std::max(entry.failureTick, tick);
    entry.answer.lastFailed |= tick >= entry.answer.tick;
}

PlaceAnswer FindAnswer(const std::string& code, std::string_view feed) {
    const auto& byCode = AnswersOf(feed).byCode;
    const auto found = byCode.find(code);
    return found == byCode.end() ? PlaceAnswer() : found->second.answer;
}

}  // namespace alerts
