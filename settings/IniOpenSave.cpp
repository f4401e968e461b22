#include "settings/IniOpenSave.h"

#include <windows.h>

#include <algorithm>
#include <set>

#include "settings/IniFile.h"
#include "settings/modRegistry.h"
#include "settings/Product.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/NeverDestroyed.h"
#include "win/Process.h"
#include "win/Text.h"

namespace settings {

std::int16_t UseIni = kUseRegistryStore;
std::string& IniUserName = win::NeverDestroyed<std::string>();

namespace {

constexpr char kStoreVariable[] = "SKYVANE_ALERTS_INI_USER";

// The per-user registry area for program settings, with this program's name below it.
std::string RegistryPath(std::string_view section) {
    return std::string("Software\\VB and VBA Program Settings\\")
        .append(SKYVANE_NAME)
        .append("\\")
        .append(section);
}

std::string DefaultIniPath() {
    return win::ExecutableFolder() + "\\" + IniUserName + ".ini";
}

// Values of the section kAlerts that are not yet in the INI file.
KeyValues& heldValues = win::NeverDestroyed<KeyValues>();

bool IsHeld(std::string_view section) {
    return !heldValues.empty() && win::EqualIgnoringCase(section, kAlerts);
}

// The last value of each key, in any order.
KeyValues LastOfEachKey(const KeyValues& values) {
    std::map<std::string, std::string> last;
    for (const auto& [key, value] : values) last.insert_or_assign(win::AsciiUpper(key), value);
    return {last.begin(), last.end()};
}

// Each INI setting as last read or written. Serves reads while another program locks the file.
std::map<std::string, std::string>& lastKnown =
    win::NeverDestroyed<std::map<std::string, std::string>>();
// Settings whose last read failed. They are not written: an unknown value must not be overwritten.
std::set<std::string>& unread = win::NeverDestroyed<std::set<std::string>>();
std::size_t failedReads = 0;

std::string FullName(std::string_view section, std::string_view key) {
    return win::AsciiLower(
        std::string(IniUserName).append("\n").append(section).append("\n").append(key));
}

// A held value as it will read once it is in the file.
std::optional<std::string> HeldValue(std::string_view section, std::string_view key) {
    if (!IsHeld(section)) return std::nullopt;
    const auto last = std::find_if(heldValues.rbegin(), heldValues.rend(), [&](const auto& value) {
        return win::EqualIgnoringCase(value.first, key);
    });
    if (last == heldValues.rend()) return std::nullopt;
    return CutIniValue(last->second);
}

}  // namespace

std::optional<std::string> TryReadSetting(std::string_view section, std::string_view key) {
    if (auto held = HeldValue(section, key)) return held;
    if (UseIni == kUseRegistryStore)
        return ReadRegistryText(RegistryPath(section), std::string(key));
    if (UseIni != kUseIniStore) return std::string();
    const std::string name = FullName(section, key);
    const auto known = lastKnown.find(name);
    auto value = ReadIniValue(DefaultIniPath(), section, win::ToLower(key),
                              known == lastKnown.end() ? Wait::HandleMessages : Wait::None);
    if (value) {
        unread.erase(name);
        lastKnown.insert_or_assign(name, *value);
        return value;
    }
    if (known != lastKnown.end()) return known->second;
    unread.insert(name);
    ++failedReads;
    return std::nullopt;
}

std::size_t CountFailedReads() {
    return failedReads;
}

std::optional<std::string> TryReadSetting(const Setting& setting) {
    return TryReadSetting(setting.section, setting.key);
}

std::string ReadSetting(std::string_view section, std::string_view key) {
    return TryReadSetting(section, key).value_or(std::string());
}

std::string ReadSetting(const Setting& setting, std::string_view defaultValue) {
    std::string value = ReadSetting(setting.section, setting.key);
    return value.empty() ? std::string(defaultValue) : value;
}

bool ReadFlag(const Setting& setting) {
    return ReadSetting(setting) == kTrue;
}

void WriteSetting(std::string_view section, std::string_view key, std::string_view value) {
    if (IsHeld(section)) StoreHeldSettings();  // keep the order of writes
    if (UseIni == kUseRegistryStore)
        WriteRegistryTexts(RegistryPath(section), {{std::string(key), std::string(value)}});
    if (UseIni != kUseIniStore || unread.contains(FullName(section, key))) return;
    lastKnown.insert_or_assign(FullName(section, key), CutIniValue(value));
    IniWriteValue(section, key, value, "");
}

void WriteSetting(const Setting& setting, std::string_view value) {
    WriteSetting(setting.section, setting.key, value);
}

void WriteFlag(const Setting& setting, bool value) {
    WriteSetting(setting, value ? kTrue : kFalse);
}

void DeleteSettingSection(std::string_view section) {
    DeleteRegistryTexts(RegistryPath(section));
}

void HoldAlertSettings(const KeyValues& values) {
    if (UseIni == kUseRegistryStore) WriteRegistryTexts(RegistryPath(kAlerts), values);
    if (UseIni != kUseIniStore) return;
    heldValues.insert(heldValues.end(), values.begin(), values.end());
}

void StoreHeldSettings() {
    if (heldValues.empty() || WriteIniValues(DefaultIniPath(), kAlerts, heldValues))
        heldValues.clear();
    else
        heldValues = LastOfEachKey(heldValues);
}

std::optional<std::map<std::string, std::string>> ReadSection(std::string_view section) {
    std::optional<KeyValues> values{std::in_place};
    if (UseIni == kUseRegistryStore) values = ReadRegistryTexts(RegistryPath(section));
    if (UseIni == kUseIniStore) values = ReadIniFileSection(DefaultIniPath(), section);
    if (!values) return std::nullopt;
    std::map<std::string, std::string> result;
    for (auto& [key, value] : *values) result.emplace(win::AsciiLower(key), std::move(value));
    if (IsHeld(section))
        for (const auto& [key, value] : heldValues)
            result.insert_or_assign(win::AsciiLower(key), CutIniValue(value));
    return result;
}

std::size_t LongestValue() {
    return UseIni == kUseIniStore ? kIniValueLimit : std::string::npos;
}

std::string IniReadValue(std::string_view section, std::string& key, const std::string& file) {
    key = win::ToLower(key);
    return ReadIniValue(file.empty() ? DefaultIniPath() : file, section, key, Wait::HandleMessages)
        .value_or(std::string());
}

void IniWriteValue(std::string_view section, std::string_view key, std::string_view value,
                   const std::string& file) {
    WriteIniValues(file.empty() ? DefaultIniPath() : file, section,
                   {{std::string(key), std::string(value)}});
}

void ExportStoreChoice() {
    win::SetEnvironment(kStoreVariable, UseIni == kUseIniStore ? IniUserName : std::string());
}

void ImportStoreChoice() {
    IniUserName = win::Environment(kStoreVariable);
    UseIni = IniUserName.empty() ? kUseRegistryStore : kUseIniStore;
}

}  // namespace settings
