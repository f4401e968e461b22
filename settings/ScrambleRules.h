#pragma once
#include <optional>
#include <string>
#include <string_view>

// The light scrambling that keeps the proxy's user name and password from being read at a glance.
// It has no key: position alone decides the shift.
namespace settings {

// Each character's code raised by its position, counting from 1. Nothing when a character has no
// code up to 255 or its sum has none.
std::optional<std::string> Scramble(std::string_view text);

// The inverse; nothing when a character could not have come from Scramble.
std::optional<std::string> Unscramble(std::string_view text);

}  // namespace settings
