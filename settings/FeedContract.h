#pragma once
#include <string_view>

// What both programs know about the feed documents of the downloader's own sources.
namespace settings {

// Titles of notices: entries of a document that are about a place's alerts, but are none.
inline constexpr std::string_view kNotCoveredTitle = "Place not covered";
inline constexpr std::string_view kUnavailableTitle = "Alerts unavailable";
inline constexpr std::string_view kMoreAlertsTitle = "More alerts than can be read";

// The title of an alert that cannot be read.
inline constexpr std::string_view kUnreadableTitle = "Unreadable alert";

// The code of a place outside the United States is this letter and a number.
inline constexpr char kAbroadLetter = 'g';

constexpr bool IsAbroad(std::string_view code) {
    return code.starts_with(kAbroadLetter);
}

}  // namespace settings
