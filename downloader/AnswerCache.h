#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Answers kept in the temporary folder, for this program's next runs.
namespace downloader {

// Now, in seconds since 1970.
std::int64_t SecondsNow();

// The answer kept for the key while it may be used.
std::optional<std::string> FindAnswer(std::string_view key);

// Keeps an answer for so many seconds; longer ones than 256 KB are not kept. Several copies of the
// program may do so at once.
void KeepAnswer(std::string_view key, std::int64_t seconds, std::string_view answer);

}  // namespace downloader
