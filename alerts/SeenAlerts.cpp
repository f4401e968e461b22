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

bool IsSeen(std::string_view seen, std::string_view identifier, std::string_view bar) {
    std::string entry;
    entry.append(bar).append(identifier).append(bar);
    // The list has no bars at its ends: its first, last and only entries are compared without them.
    const std::string_view wanted(entry);
    return seen == identifier || seen.find(wanted) != std::string_view::npos ||
           seen.starts_with(wanted.substr(bar.size())) ||
           seen.ends_with(wanted.substr(0, wanted.size() - bar.size()));
}

void AddSeen(std::string& seen, std::string_view identifier, std::string_view bar) {
    if (!seen.empty()) seen.append(bar);
    seen.append(identifier);
}

std::int16_t AddUnseen(std::string& seen, const std::vector<std::string>& identifiers,
                       std::string_view bar) {
    // A set of the entries: searching the text for each identifier would take quadratic time.
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
    constexpr std::size_t kLongest = 500;
    constexpr std::size_t kDropped = 249;
    return std::string(win::CountChars(seen) > kLongest ? win::WithoutFirstChars(seen, kDropped)
                                                        : seen);
}

std::string_view FitSeen(std::string_view seen, std::size_t longest, std::string_view bar) {
    const std::size_t length = win::CountChars(seen);
    if (length <= longest) return seen;
    // The search starts one bar before the part that fits: a bar there precedes a whole identifier.
    const std::size_t barLength = win::CountChars(bar);
    const std::string_view end =
        win::WithoutFirstChars(seen, length - std::min(length, longest + barLength));
    const std::size_t first = end.find(bar);
    return first == std::string_view::npos ? std::string_view() : end.substr(first + bar.size());
}

}  // namespace alerts
