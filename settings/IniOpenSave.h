#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "settings/SettingKeys.h"
#include "settings/IniText.h"

// The settings store: text values by section and key, in a per-user INI file in the program folder
// or in the per-user registry area. The choice is made once, at start; no other room knows which.
namespace settings {

// These two are the only valid values; with any other, reads give the empty text and
// writes do nothing.
inline constexpr std::int16_t kUseIniStore = -1;
inline constexpr std::int16_t kUseRegistryStore = 0;
extern std::int16_t UseIni;
// Names the INI file; empty in registry mode. Set by start-up.
extern std::string& IniUserName;

// The value, or the empty text if there is none or the store cannot be read. An INI value has 749
// characters at most. While another program holds the INI file, a setting has its last known value;
// for one that was never read, messages run while the file is waited for.
std::string ReadSetting(std::string_view section, std::string_view key);
std::string ReadSetting(const Setting& setting);

// The same, but nothing if the store cannot be read: for a reader to whom an absent value means
// more than a default.
std::optional<std::string> TryReadSetting(std::string_view section, std::string_view key);
std::optional<std::string> TryReadSetting(const Setting& setting);

// How many reads have found an unreadable store so far: a reader of many settings compares.
std::size_t CountFailedReads();

// The most characters that the store keeps of a value.
std::size_t LongestValue();

// Writes the value. It is lost silently if it cannot be written, or if the INI file could not be
// read when the setting was last asked for.
void WriteSetting(std::string_view section, std::string_view key, std::string_view value);
void WriteSetting(const Setting& setting, std::string_view value);

// Removes the whole section from the registry; in INI mode too, so an INI file keeps its old keys.
// The asymmetry is deliberate.
void DeleteSettingSection(std::string_view section);

// Many values of one section, with the result of writing them one by one. The registry and readers
// get them at once; an INI file gets them when StoreHeldSettings is called or another section is
// held, so that it is rewritten once for a whole cycle. Values that cannot be written then stay
// held.
void HoldSettings(std::string_view section, const KeyValues& values);
void StoreHeldSettings();

// All values of a section by lower-case key, as ReadSetting returns them; nothing if the store
// cannot be read.
std::optional<std::map<std::string, std::string>> ReadSection(std::string_view section);

// One value of an INI file; an empty file name means the program's own. `key` is changed to lower
// case. The empty text if the value, section or file is missing or the file cannot be read.
std::string IniReadValue(std::string_view section, std::string& key, const std::string& file);

// Writes one value, cut at 749 characters, under the key in upper case; reading relies on the
// profile functions ignoring case. The file stays as it is if the value cannot be written.
void IniWriteValue(std::string_view section, std::string_view key, std::string_view value,
                   const std::string& file);

// "True" alone is true.
inline bool IsTrue(std::string_view value) {
    return value == kTrue;
}
inline const char* BooleanText(bool value) {
    return value ? kTrue : kFalse;
}

// The value, or the reader's default when it is empty.
std::string ValueOr(const std::string& value, std::string_view defaultValue);

// Tells the downloader, through the environment that it inherits, which store is in use.
void ExportStoreChoice();
// Takes up, in the downloader, the choice that the main program exported.
void ImportStoreChoice();

}  // namespace settings
