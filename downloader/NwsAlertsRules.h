#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace downloader {

// The alert document made of the Weather Service's answer about a place, the worst alert first.
// Left out are messages that are not actual (tests), events that are over at `now` (seconds since
// 1970) or were ended, and earlier messages of an event; an event keeps one short identifier
// through all its messages. Nothing when the answer is not a whole list of alerts: an error page
// must not read as "no alerts".
std::optional<std::string> AlertsXml(std::string_view json, std::int64_t now);

}  // namespace downloader
