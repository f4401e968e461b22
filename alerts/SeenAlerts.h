#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The list of the alerts seen so far: their identifiers as one text, joined by kBar. An alert that
// is not in the list is new.
namespace alerts {

inline constexpr std::string_view kBar = "\xC2\xA6";  // the broken bar, U+00A6

// Returns the identifier with its line breaks as spaces. An INI file returns the stored list that
// way: with line breaks the alert would be new again after each start.
std::string OneLine(std::string_view identifier);

// Whether the whole identifier is in the list.
bool IsSeen(std::string_view seen, std::string_view identifier);

// Appends the identifier to the list.
void AddSeen(std::string& seen, std::string_view identifier);

// Appends those identifiers that are not in the list yet, in order. Returns how many they are, at
// most 32767.
std::int16_t AddUnseen(std::string& seen, const std::vector<std::string>& identifiers);

// Returns the list as it is at the end of a cycle, before the new alerts are added: a list of more
// than 500 characters loses its first 249, even if that cuts an identifier in two.
std::string TrimSeen(std::string_view seen);

// Returns the newest whole identifiers that together, with the bars between them, have at most
// `longest` characters.
std::string_view FitSeen(std::string_view seen, std::size_t longest);

}  // namespace alerts
