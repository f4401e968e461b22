#pragma once
#include <optional>
#include <string>
#include <string_view>

// The light scrambling that keeps the proxy's user name and password from being read at a glance.
// It has no key: position alone decides the shift.
namespace settings {

// Each character's Western ANSI code raised by its position, counting from 1. Nothing when a
// character has no such code or its sum is above 255.
std::optional<std::string> Scramble(std::string_view text);

// The inverse; nothing when a character could not have come from Scramble.
std::optional<std::string> Unscramble(std::string_view text);

}  // namespace settings
