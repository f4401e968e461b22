#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Answers kept for a while in files.
namespace downloader {

// How long an answer may be kept by its Cache-Control header, in seconds: its max-age, at most
// `longest`; 0 where it may not be kept or the header tells nothing.
std::int64_t SecondsToKeep(std::string_view cacheControl, std::int64_t longest);

// Whether the header forbids keeping the answer.
bool ForbidsKeeping(std::string_view cacheControl);

// The file name for a key. There are 64 names, so that the files stay few whatever is asked for; a
// later answer takes the place of an earlier one.
std::string CacheFileName(std::string_view key);

// A kept answer as the file's text. Times are in seconds since 1970.
std::string PackEntry(std::string_view key, std::int64_t now, std::int64_t seconds,
                      std::string_view answer);

// The answer in a file's text; nothing when it is for another key, too old, or from the future.
std::optional<std::string> UnpackEntry(std::string_view entry, std::string_view key,
                                       std::int64_t now);

}  // namespace downloader
