#include "downloader/feed/AlertMemory.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <vector>

#include "downloader/http/TextHash.h"
#include "win/Text.h"

namespace feed {
namespace {

constexpr std::string_view kHeader = "skyvane-events-1";
constexpr std::size_t kIdentityLength = 7;
constexpr std::int64_t kDay = 86400;
constexpr int kLastYear = 9999;

bool IsIdentity(std::string_view text) {
    return text.size() == kIdentityLength && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
           });
}

// Removes the first word of the line and returns it.
std::string_view TakeWord(std::string_view& line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

bool ReadHash(std::string_view text, std::uint64_t& hash) {
    constexpr int kBase = 16;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), hash, kBase);
    return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

std::string ShortIdentity(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::uint64_t hash = http::HashOf(text);
    std::string identity(kIdentityLength, '0');
    for (char& c : identity) {
        c = kDigits[hash % kDigits.size()];
        hash /= kDigits.size();
    }
    return identity;
}

std::string ShortIdentity(const std::string& identity, std::string_view detail) {
    return ShortIdentity((identity + "\n").append(detail));
}

AlertMemory::AlertMemory(std::string_view text) {
    const bool isOurs = win::TakeLine(text) == kHeader;
    const std::string_view hashOfEntries = win::TakeLine(text);
    if (!isOurs || hashOfEntries != http::HexDigits(http::HashOf(text))) return;
    while (!text.empty() && entries_.size() < kMostEntries) {
        std::string_view line = win::TakeLine(text);
        const std::string_view key = TakeWord(line);
        const std::string_view identity = TakeWord(line);
        const auto year = win::ParseNumber(TakeWord(line), kLastYear);
        const auto tier = win::ParseNumber(TakeWord(line), kHighestTier);
        const auto time = win::ParseNumber(line, INT64_MAX);
        std::uint64_t hash = 0;
        if (ReadHash(key, hash) && IsIdentity(identity) && year && tier && time)
            entries_[hash] = {
                {std::string(identity), static_cast<int>(*year), static_cast<int>(*tier)}, *time};
    }
}

const KnownEvent* AlertMemory::Find(std::string_view key) const {
    const auto found = entries_.find(http::HashOf(key));
    return found == entries_.end() ? nullptr : &found->second.event;
}

void AlertMemory::Remember(std::string_view key, const KnownEvent& event, std::int64_t now) {
    Entry& entry = entries_[http::HashOf(key)];
    const bool isSame = entry.event.identity == event.identity && entry.event.year == event.year &&
                        entry.event.tier == event.tier;
    // Most runs find all that they would remember: the file need not be written for its times.
    if (isSame && entry.time <= now && now - entry.time < kDay) return;
    entry = {event, now};
    isChanged_ = true;
}

void AlertMemory::Merge(const AlertMemory& other) {
    for (const auto& [hash, entry] : other.entries_) {
        Entry& own = entries_[hash];
        if (own.time < entry.time) own = entry;
    }
}

std::string AlertMemory::Text(std::int64_t now) const {
    std::vector<std::pair<std::int64_t, std::string>> lines;  // with their times
    for (const auto& [hash, entry] : entries_) {
        if (now - entry.time > kLongestTime || entry.time - now > kDay) continue;
        lines.emplace_back(entry.time, http::HexDigits(hash) + " " + entry.event.identity + " " +
                                           win::Decimal(entry.event.year) + " " +
                                           win::Decimal(entry.event.tier) + " " +
                                           win::Decimal(entry.time) + "\n");
    }
    std::sort(lines.begin(), lines.end(), std::greater<>());
    if (lines.size() > kMostEntries) lines.resize(kMostEntries);
    std::string entries;
    for (const auto& [time, line] : lines) entries += line;
    return std::string(kHeader) + "\n" + http::HexDigits(http::HashOf(entries)) + "\n" + entries;
}

}  // namespace feed
