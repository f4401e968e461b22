#include "alerts/AlertFeedRules.h"

#include <algorithm>
#include <set>

#include "win/Text.h"

namespace alerts {

std::string TidyBody(std::string_view body) {
    std::string tidy;
    tidy.reserve(body.size());
    for (const char c : win::TrimBlanks(body))
        if (c != ' ' || tidy.back() != ' ') tidy += c;
    return tidy;
}

bool KeepsAlert(std::string_view lowerBody, const std::vector<std::string>& lowerWords,
                bool showOnly) {
    const auto occurs = [&](const std::string& word) {
        return lowerBody.find(word) != std::string_view::npos;
    };
    return showOnly ? std::all_of(lowerWords.begin(), lowerWords.end(), occurs)
                    : std::none_of(lowerWords.begin(), lowerWords.end(), occurs);
}

std::string OneLine(std::string_view identifier) {
    std::string line = win::ReplaceAll(identifier, "\r\n", " ");
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

bool IsSeen(std::string_view seen, std::string_view identifier, std::string_view bar) {
    std::string wanted;
    wanted.append(bar).append(identifier).append(bar);
    // The list has no bars at its ends: its first, last and only entry are looked at without them.
    const std::string_view inner(wanted);
    return seen == identifier || seen.find(inner) != std::string_view::npos ||
           seen.starts_with(inner.substr(bar.size())) ||
           seen.ends_with(inner.substr(0, inner.size() - bar.size()));
}

void AddSeen(std::string& seen, std::string_view identifier, std::string_view bar) {
    if (!seen.empty()) seen.append(bar);
    seen.append(identifier);
}

std::int16_t AddUnseen(std::string& seen, const std::vector<std::string>& identifiers,
                       std::string_view bar) {
    // Looked up by entry: a search through the text for each would make long feeds cost more than
    // their length.
    const std::vector<std::string> entries = win::Split(seen, bar);
    std::set<std::string> known(entries.begin(), entries.end());
    std::int16_t added = 0;
    for (const std::string& identifier : identifiers) {
        const bool isEntry = !identifier.empty() && identifier.find(bar) == std::string::npos;
        if (isEntry ? known.contains(identifier) : IsSeen(seen, identifier, bar)) continue;
        AddSeen(seen, identifier, bar);
        for (std::string& entry : win::Split(identifier, bar)) known.insert(std::move(entry));
        added = win::AddInt16(added, 1);
    }
    return added;
}

std::string TrimSeen(std::string_view seen) {
    constexpr std::size_t longest = 500;
    constexpr std::size_t dropped = 249;
    return std::string(win::CountChars(seen) > longest ? win::WithoutFirstChars(seen, dropped)
                                                       : seen);
}

std::string_view FitSeen(std::string_view seen, std::size_t longest, std::string_view bar) {
    const std::size_t length = win::CountChars(seen);
    if (length <= longest) return seen;
    // Looking from the bar before the part that fits: an identifier that begins there is whole.
    const std::size_t barLength = win::CountChars(bar);
    const std::string_view fits =
        win::WithoutFirstChars(seen, length - std::min(length, longest + barLength));
    const std::size_t first = fits.find(bar);
    return first == std::string_view::npos ? std::string_view() : fits.substr(first + bar.size());
}

bool IsDone(std::string_view done, std::string_view code) {
    return (std::string(done) + ",").find("," + std::string(code) + ",") != std::string::npos;
}

bool IsSuccess(std::string_view statusText) {
    return win::LeadingNumber(statusText) == 0;
}

std::string DownloadArgument(std::string_view address, std::string_view dataFile,
                             std::string_view statusFile) {
    return std::string(address).append("|").append(dataFile).append("|").append(statusFile);
}

std::string FailureMessage(std::string_view weatherHost) {
    // The line about "Skyvane Live" names the maker's other product, on purpose.
    return win::Join({"Skyvane Alerts was not able to retrieve the severe alerts.", "",
                      "Please verify the following:", "", "1) You're connected to the Internet.",
                      "", "2) Your software (e.g. firewall software, security software) is not",
                      "     blocking Internet access to Skyvane Live.", "",
                      "3) Your computer and/or network is not preventing you from",
                      std::string("     viewing ").append(weatherHost).append(".")},
                     "\r\n");
}

}  // namespace alerts
