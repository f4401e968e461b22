#include "downloader/feed/Severity.h"

#include <algorithm>
#include <iterator>

namespace feed {
namespace {

// Returns the rank of `word` in the list: the first word ranks highest, an unknown word is 0.
template <std::size_t size>
int Rank(const std::string_view (&words)[size], std::string_view word) {
    return static_cast<int>(std::end(words) - std::find(words, std::end(words), word));
}

std::string_view OrUnknown(std::string_view text) {
    return text.empty() ? "Unknown" : text;
}

}  // namespace

int SeverityRank(std::string_view severity, std::string_view urgency) {
    constexpr std::string_view kSeverities[] = {"Extreme", "Severe", "Moderate", "Minor"};
    constexpr std::string_view kUrgencies[] = {"Immediate", "Expected", "Future", "Unknown",
                                               "Past"};
    return Rank(kSeverities, severity) * 10 + Rank(kUrgencies, urgency);
}

void AppendSeverity(std::string& body, std::string_view severity, std::string_view urgency,
                    std::string_view certainty) {
    body.append(body.empty() ? "" : "\n\n").append("Severity: ").append(OrUnknown(severity));
    body.append(". Urgency: ").append(OrUnknown(urgency));
    body.append(". Certainty: ").append(OrUnknown(certainty)).append(".");
}

}  // namespace feed
