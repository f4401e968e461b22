#include "alerts/SeenAlerts.h"

#include <algorithm>
#include <set>

#include "win/Text.h"

namespace alerts {

std::string OneLine(std::string_view identifier) {
    std::string line = win::ReplaceAll(identifier, "\r\n", " ");
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

bool IsSeen(std::string_view seen, std::string_view identifier) {
    std::string entry;
    entry.append(kBar).append(identifier).append(kBar);
    // The list has no bars at its ends: its first, last and only entries are compared without them.
    const std::string_view wanted(entry);
    return seen == identifier || seen.find(wanted) != std::string_view::npos ||
           seen.starts_with(wanted.substr(kBar.size())) ||
           seen.ends_with(wanted.substr(0, wanted.size() - kBar.size()));
}

void AddSeen(std::string& seen, std::string_view identifier) {
    if (!seen.empty()) seen.append(kBar);
    seen.append(identifier);
}

std::int16_t AddUnseen(std::string& seen, const std::vector<std::string>& identifiers) {
    // A set of the entries: searching the text for each identifier would take quadratic time.
    const std::vector<std::string> entries = win::Split(seen, kBar);
    std::set<std::string> known(entries.begin(), entries.end());
    std::int16_t added = 0;
    for (const std::string& identifier : identifiers) {
        const bool isEntry = !identifier.empty() && identifier.find(kBar) == std::string::npos;
        if (isEntry ? known.contains(identifier) : IsSeen(seen, identifier)) continue;
        AddSeen(seen, identifier);
        for (std::string& entry : win::Split(identifier, kBar)) known.insert(std::move(entry));
        added = win::AddInt16(added, 1);
    }
    return added;
}

std::string TrimSeen(std::string_view seen) {
    constexpr std::size_t kLongest = 500;
    constexpr std::size_t kDropped = 249;
    return std::string(win::CountChars(seen) > kLongest ? win::WithoutFirstChars(seen, kDropped)
                                                        : seen);
}

std::string_view FitSeen(std::string_view seen, std::size_t longest) {
    const std::size_t length = win::CountChars(seen);
    if (length <= longest) return seen;
    // The search starts one bar before the part that fits: a bar there precedes a whole identifier.
    const std::string_view end =
        win::WithoutFirstChars(seen, length - std::min(length, longest + 1));
    const std::size_t first = end.find(kBar);
    return first == std::string_view::npos ? std::string_view() : end.substr(first + kBar.size());
}

}  // namespace alerts
