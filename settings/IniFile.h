#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "settings/IniText.h"

// An INI file on disk. A file that cannot be read (a virus scanner, a backup or a synchronisation
// holds it) never counts as an empty one. Until it is read for the first time, a file that is in
// use is waited for without a limit, and one that is unreadable for another reason for 30 s; later
// it is 3 s in all until it can be read again.
namespace settings {

// Whether a reader waits for a file that cannot be read.
enum class Patience { Wait, None };

// One value, by the system's profile functions: empty if there is no such value, section or file,
// nothing if the file cannot be read. Messages run while it waits.
std::optional<std::string> ReadIniValue(const std::string& path, std::string_view section,
                                        std::string_view key, Patience patience);

// All values of a section, none if there is no such section or file; nothing if the file cannot be
// read. Messages run while it waits.
std::optional<KeyValues> ReadIniFileSection(const std::string& path, std::string_view section);

// Sets values of one section and replaces the file whole; a file that holds them already stays as
// it is. False if the file cannot be read or replaced: it is unchanged then. Messages do not run,
// because whoever stores is in the middle of something.
bool WriteIniValues(const std::string& path, std::string_view section, const KeyValues& values);

}  // namespace settings
