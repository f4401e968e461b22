#include "downloader/http/ResponseCache.h"

#include <windows.h>

#include <algorithm>
#include <functional>

#include "downloader/http/TextHash.h"
#include "win/Files.h"
#include "win/Text.h"
#include "win/modRandomFile.h"

namespace http {
namespace {

constexpr std::string_view kMark = "skyvane-answer-1";
constexpr std::uint64_t kLongestFile = kLongestCached + 1024;  // with the lines before it

// Returns the path of the slot's cache file; empty when there is no temporary folder.
std::string FileOfSlot(std::string_view slot) {
    const std::string folder = win::GetTempFolder();
    if (folder.empty()) return {};
    return (folder + "SkyvaneAlerts.").append(slot).append(".cache");
}

std::string CacheFile(std::string_view key, std::string_view slot) {
    constexpr int kSlots = 1024;
    if (!slot.empty()) return FileOfSlot(slot);
    return FileOfSlot(win::Decimal(static_cast<long long>(HashOf(key) % kSlots)));
}

}  // namespace

std::int64_t SecondsNow() {
    constexpr std::int64_t kUnitsInSecond = 10'000'000;
    constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    const ULARGE_INTEGER units{{time.dwLowDateTime, time.dwHighDateTime}};
    return static_cast<std::int64_t>(units.QuadPart) / kUnitsInSecond - kSecondsFrom1601To1970;
}

std::optional<CachedDocument> FindCached(std::string_view key, std::string_view slot) {
    const auto entry = win::ReadWholeFile(CacheFile(key, slot), kLongestFile);
    return entry ? UnpackEntry(*entry, key, SecondsNow()) : std::nullopt;
}

void StoreCached(std::string_view key, std::int64_t seconds, std::string_view document,
                 std::string_view slot) {
    const std::string file = CacheFile(key, slot);
    if (file.empty() || seconds <= 0 || document.size() > kLongestCached) return;
    win::WriteFileAtomically(file, PackEntry(key, SecondsNow(), seconds, document));
}

std::optional<TimedAnswer> FindCachedAnswer(std::string_view key, std::string_view slot) {
    const auto cached = FindCached(key, slot);
    if (!cached) return std::nullopt;
    std::string_view text = cached->text;
    const auto served = win::ParseNumber(win::TakeLine(text), INT64_MAX);
    if (!served) return std::nullopt;
    return TimedAnswer{std::string(text), *served + cached->age};
}

void StoreCachedAnswer(std::string_view key, std::int64_t seconds, const TimedAnswer& answer,
                       std::string_view slot) {
    StoreCached(key, seconds, win::Decimal(answer.now) + "\n" + answer.body, slot);
}

void TrimCached(std::string_view prefix, std::size_t mostFiles, std::uint64_t mostBytes) {
    auto files = win::FindFiles(FileOfSlot(std::string(prefix).append("*")));
    std::ranges::sort(files, std::greater(), &win::FileEntry::modified);
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < files.size(); ++i) {
        bytes += files[i].size;
        if (i >= mostFiles || bytes > mostBytes)
            win::DeleteFileQuietly(win::GetTempFolder() + files[i].name);
    }
}

std::string PackEntry(std::string_view key, std::int64_t now, std::int64_t seconds,
                      std::string_view document) {
    std::string entry(kMark);
    for (const std::string& line :
         {win::Decimal(now), win::Decimal(seconds), HexDigits(HashOf(document)), std::string(key)})
        entry.append("\n").append(line);
    return entry.append("\n").append(document);
}

std::optional<CachedDocument> UnpackEntry(std::string_view entry, std::string_view key,
                                          std::int64_t now) {
    const std::string_view mark = win::TakeLine(entry);
    const auto stored = win::ParseNumber(win::TakeLine(entry), now);
    const auto seconds = win::ParseNumber(win::TakeLine(entry), INT64_MAX);
    const std::string_view hash = win::TakeLine(entry);
    const std::string_view entryKey = win::TakeLine(entry);
    if (mark != kMark || entryKey != key || hash != HexDigits(HashOf(entry))) return std::nullopt;
    if (!stored || !seconds || now - *stored >= *seconds) return std::nullopt;
    return CachedDocument{std::string(entry), now - *stored};
}

}  // namespace http
