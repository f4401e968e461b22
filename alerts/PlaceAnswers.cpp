#include "alerts/PlaceAnswers.h"

#include <map>
#include <utility>

#include "win/NeverDestroyed.h"

namespace alerts {
namespace {

// All answers are of one feed: those of another say nothing about this one's alerts.
struct Answers {
    std::string feed;
    std::map<std::string, PlaceAnswer> byCode;
};

Answers& AnswersOf(std::string_view feed) {
    static Answers& answers = win::NeverDestroyed<Answers>();
    if (answers.feed != feed) answers = {std::string(feed), {}};
    return answers;
}

}  // namespace

void RecordAnswer(const std::string& code, std::string_view feed, PlaceAnswer answer) {
    AnswersOf(feed).byCode[code] = std::move(answer);
}

void RecordFailure(const std::string& code, std::string_view feed) {
    AnswersOf(feed).byCode[code].lastFailed = true;
}

PlaceAnswer FindAnswer(const std::string& code, std::string_view feed) {
    const auto& byCode = AnswersOf(feed).byCode;
    const auto found = byCode.find(code);
    return found == byCode.end() ? PlaceAnswer() : found->second;
}

}  // namespace alerts
