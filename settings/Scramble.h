#pragma once
#include <optional>
#include <string>
#include <string_view>

// Keeps the proxy's user name and password from being read at a glance. It has no key: each
// character is shifted by its position.
namespace settings {

// Adds to each character's Western ANSI code its position, counted from 1. Returns nullopt if a
// character has no such code or a sum exceeds 255.
std::optional<std::string> Scramble(std::string_view text);

// Reverses Scramble; returns nullopt if Scramble cannot have produced the text.
std::optional<std::string> Unscramble(std::string_view text);

}  // namespace settings
