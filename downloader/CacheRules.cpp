#include "downloader/CacheRules.h"

#include <algorithm>
#include <cstdlib>

#include "downloader/HashRules.h"
#include "win/Text.h"

namespace downloader {
namespace {

constexpr std::string_view kMark = "skyvane-answer-1";
constexpr int kSlots = 64;

// Takes the text up to the next line break off the front; nothing without one.
std::optional<std::string_view> TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return line;
}

std::int64_t Number(std::string_view digits) {
    return std::strtoll(std::string(digits).c_str(), nullptr, 10);
}

// The directives of the header in lower case, without blanks.
std::vector<std::string> Directives(std::string_view cacheControl) {
    return win::Split(win::ReplaceAll(win::AsciiLower(cacheControl), " ", ""), ",");
}

}  // namespace

std::int64_t SecondsToKeep(std::string_view cacheControl, std::int64_t longest) {
    constexpr std::string_view kMaxAge = "max-age=";
    if (ForbidsKeeping(cacheControl)) return 0;
    for (const std::string& directive : Directives(cacheControl))
        if (directive.starts_with(kMaxAge))
            return std::clamp<std::int64_t>(Number(directive.substr(kMaxAge.size())), 0, longest);
    return 0;
}

bool ForbidsKeeping(std::string_view cacheControl) {
    for (const std::string& directive : Directives(cacheControl))
        if (directive == "no-store" || directive.starts_with("no-cache")) return true;
    return false;
}

std::string CacheFileName(std::string_view key) {
    const std::string digits = HashText(key).substr(14);
    const long slot = std::strtol(digits.c_str(), nullptr, 16) % kSlots;
    return "SkyvaneAlerts." + win::Decimal(slot) + ".cache";
}

std::string PackEntry(std::string_view key, std::int64_t now, std::int64_t seconds,
                      std::string_view answer) {
    std::string entry(kMark);
    for (const std::string& line :
         {win::Decimal(now), win::Decimal(seconds), HashText(answer), std::string(key)})
        entry.append("\n").append(line);
    return entry.append("\n").append(answer);
}

std::optional<std::string> UnpackEntry(std::string_view entry, std::string_view key,
                                       std::int64_t now) {
    const auto mark = TakeLine(entry);
    const auto made = TakeLine(entry);
    const auto seconds = TakeLine(entry);
    const auto hash = TakeLine(entry);
    const auto entryKey = TakeLine(entry);
    if (mark != kMark || !entryKey || entryKey != key || hash != HashText(entry))
        return std::nullopt;
    const std::int64_t since = Number(*made);
    if (since < 0 || since > now || now - since >= Number(*seconds)) return std::nullopt;
    return std::string(entry);
}

}  // namespace downloader
