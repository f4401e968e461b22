#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "settings/KeyValues.h"
#include "settings/SettingKeys.h"

// The settings store: text values by section and key, either in a per-user INI file in the program
// folder or in the registry. The choice is made once, at start; callers do not depend on it.
namespace settings {

// The only valid values of UseIni. With any other value, reads return the empty text and writes do
// nothing.
inline constexpr std::int16_t kUseIniStore = -1;
inline constexpr std::int16_t kUseRegistryStore = 0;
extern std::int16_t UseIni;
// The user name that names the INI file; empty in registry mode. Set at start.
extern std::string& IniUserName;

// Returns the value, or the empty text if there is none or the store cannot be read. An INI value
// has at most 749 characters. While another program locks the INI file, a setting keeps its last
// known value; the first read of a setting waits for the file and handles messages meanwhile.
std::string ReadSetting(std::string_view section, std::string_view key);

// The same, but `defaultValue` instead of the empty text.
std::string ReadSetting(const Setting& setting, std::string_view defaultValue = {});

// Whether the value is "True"; any other text, and no value, is false.
bool ReadFlag(const Setting& setting);

// The same, but nullopt if the store cannot be read, for callers that must distinguish a missing
// value from an unreadable one.
std::optional<std::string> TryReadSetting(std::string_view section, std::string_view key);
std::optional<std::string> TryReadSetting(const Setting& setting);

// The number of reads so far that found the store unreadable. Compare it before and after reading
// many settings.
std::size_t CountFailedReads();

// The number of characters of a value that the store keeps at most.
std::size_t LongestValue();

// Writes the value. Failures are ignored. Nothing is written if the INI file was unreadable when
// the setting was last read: that would overwrite an unknown value.
void WriteSetting(std::string_view section, std::string_view key, std::string_view value);
void WriteSetting(const Setting& setting, std::string_view value);

// Writes "True" or "False".
void WriteFlag(const Setting& setting, bool value);

// Removes the section from the registry, in INI mode too: an INI file keeps its old keys. The
// asymmetry is deliberate.
void DeleteSettingSection(std::string_view section);

// Writes several values to the section kAlerts, as if each were written individually. Readers see
// them immediately, but the INI file is updated only by StoreHeldSettings, so that a whole
// retrieval cycle rewrites it once. Values that cannot be stored yet stay held.
void HoldAlertSettings(const KeyValues& values);
void StoreHeldSettings();

// Returns all values of a section by lower-case key, as ReadSetting returns them; nullopt if the
// store cannot be read.
std::optional<std::map<std::string, std::string>> ReadSection(std::string_view section);

// Returns one value of an INI file; an empty file name means the program's own. Changes `key` to
// lower case. Returns the empty text if the value, section or file is missing or the file cannot be
// read.
std::string IniReadValue(std::string_view section, std::string& key, const std::string& file);

// Writes one value, cut to 749 characters, under the key in upper case; the profile functions
// ignore case when they read. The file stays unchanged on failure.
void IniWriteValue(std::string_view section, std::string_view key, std::string_view value,
                   const std::string& file);

// Passes the choice of store to the downloader through the environment.
void ExportStoreChoice();
// Adopts, in the downloader, the choice that the main program exported.
void ImportStoreChoice();

}  // namespace settings
