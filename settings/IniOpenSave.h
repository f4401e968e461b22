#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "settings/Catalogue.h"
#include "settings/IniTextRules.h"

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

// The value, or the empty text when there is none. An INI value is cut to 749 bytes.
std::string ReadSetting(std::string_view section, std::string_view key);
std::string ReadSetting(const Setting& setting);

// Writes the value; one that cannot be written is lost silently.
void WriteSetting(std::string_view section, std::string_view key, std::string_view value);
void WriteSetting(const Setting& setting, std::string_view value);

// Removes the whole section from the registry; in INI mode too, so an INI file keeps its old keys.
// The asymmetry is deliberate.
void DeleteSettingSection(std::string_view section);

// Many values of one section, with the result of writing them one by one. The registry and readers
// get them at once; an INI file gets them when StoreHeldSettings is called or the section is used
// otherwise, so that it is rewritten once for a whole cycle.
void HoldSettings(std::string_view section, const KeyValues& values);
void StoreHeldSettings();

// All values of a section by lower-case key, as ReadSetting gives them.
std::map<std::string, std::string> ReadSection(std::string_view section);

// One value of an INI file; an empty file name means the program's own. `key` is changed to lower
// case. A missing value, section or file gives the empty text.
std::string IniReadValue(std::string_view section, std::string& key, const std::string& file);

// Writes one value under the key in upper case; reading relies on the profile functions ignoring
// case.
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
