#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Documents cached in the temporary folder, for later runs of the program. Times are in seconds
// since 1970.
namespace http {

// Returns the current time.
std::int64_t SecondsNow();

// Longer documents are not cached.
inline constexpr std::size_t kLongestCached = 2 * 1024 * 1024;  // bytes

struct CachedDocument {
    std::string text;
    std::int64_t age = 0;  // seconds
};

// Returns the document cached for the key, or nullopt when there is none or it has expired. `slot`
// names the cache file: keys of one slot replace each other. Without it the key belongs to one of
// 1024 slots, however many keys are in use.
std::optional<CachedDocument> FindCached(std::string_view key, std::string_view slot = {});

// Caches a document for so many seconds; failures are ignored.
// Several copies of the program may call this at once.
void StoreCached(std::string_view key, std::int64_t seconds, std::string_view document,
                 std::string_view slot = {});

// A server's answer, and the server's time.
struct TimedAnswer {
    std::string body;
    std::int64_t now = 0;
};

// Like FindCached, for an answer. Its time is the server's present time.
std::optional<TimedAnswer> FindCachedAnswer(std::string_view key, std::string_view slot = {});

// Like StoreCached, for an answer and the server's present time.
void StoreCachedAnswer(std::string_view key, std::int64_t seconds, const TimedAnswer& answer,
                       std::string_view slot = {});

// Deletes the oldest documents of the slots whose names begin with the prefix, until at most so
// many files with so many bytes in all remain.
void TrimCached(std::string_view prefix, std::size_t mostFiles, std::uint64_t mostBytes);

// Returns the text of the cache file for a document stored at `now`.
std::string PackEntry(std::string_view key, std::int64_t now, std::int64_t seconds,
                      std::string_view document);

// Returns the document in the text of a cache file, or nullopt when the file is damaged, belongs to
// another key, has expired or comes from the future.
std::optional<CachedDocument> UnpackEntry(std::string_view entry, std::string_view key,
                                          std::int64_t now);

}  // namespace http
