#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "settings/IniText.h"

// An INI file on disk. An unreadable file, such as one locked by a virus scanner or a backup, never
// counts as empty. The first read waits without limit for a locked file, and 30 s for one that is
// unreadable for another reason. After the first success, readers wait 3 s in all until the next.
namespace settings {

// How a reader waits for an unreadable file.
enum class Wait { HandleMessages, Sleep, None };

// Reads one value by the system's profile functions. Returns the empty text if the value, section
// or file is missing, nullopt if the file cannot be read.
std::optional<std::string> ReadIniValue(const std::string& path, std::string_view section,
                                        std::string_view key, Wait wait);

// Reads all values of a section; handles messages while it waits. Returns none if the section or
// file is missing, nullopt if the file cannot be read.
std::optional<KeyValues> ReadIniFileSection(const std::string& path, std::string_view section);

// Sets values of one section by replacing the file, unless it contains them already. Returns false,
// with the file unchanged, if it cannot be read or replaced. Handles no messages while it waits,
// because its callers are in the middle of a change.
bool WriteIniValues(const std::string& path, std::string_view section, const KeyValues& values);

}  // namespace settings
