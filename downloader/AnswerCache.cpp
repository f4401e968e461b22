#include "downloader/AnswerCache.h"

#include <windows.h>

#include "downloader/CacheRules.h"
#include "win/Files.h"

namespace downloader {
namespace {

constexpr std::size_t kLongestAnswer = 256 * 1024;
constexpr std::uint64_t kLongestFile = kLongestAnswer + 1024;

// The file for a key; empty when there is no temporary folder.
std::string CacheFile(std::string_view key) {
    char folder[MAX_PATH + 1];
    const DWORD length = GetTempPathA(sizeof folder, folder);
    if (length == 0 || length >= sizeof folder) return {};
    return std::string(folder, length) + CacheFileName(key);
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

std::optional<std::string> FindAnswer(std::string_view key) {
    const auto entry = win::ReadWholeFile(CacheFile(key), kLongestFile);
    return entry ? UnpackEntry(*entry, key, SecondsNow()) : std::nullopt;
}

void KeepAnswer(std::string_view key, std::int64_t seconds, std::string_view answer) {
    const std::string file = CacheFile(key);
    if (file.empty() || seconds <= 0 || answer.size() > kLongestAnswer) return;
    win::ReplaceFileWhole(file, PackEntry(key, SecondsNow(), seconds, answer));
}

}  // namespace downloader
