#include "settings/IniOpenSave.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "settings/modRegistry.h"
#include "win/Files.h"
#include "win/Messages.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"
#include "win/TextRules.h"

namespace settings {

std::int16_t UseIni = kUseRegistryStore;
std::string& IniUserName = win::NeverDestroyed<std::string>();

namespace {

constexpr char kStoreVariable[] = "SKYVANE_ALERTS_INI_USER";

// The per-user registry area for program settings, with this program's name below it.
std::string RegistryPath(std::string_view section) {
    return std::string("Software\\VB and VBA Program Settings\\")
        .append(win::kProgramName)
        .append("\\")
        .append(section);
}

std::string DefaultIniPath() {
    return win::ExecutableFolder() + "\\" + IniUserName + ".ini";
}

// A value that was cut in the middle of a character loses the torn rest.
std::string WithoutTornEnd(std::string value) {
    if (value.size() < kIniValueLimit - 3) return value;
    while (!value.empty() && value.back() == '\0') value.pop_back();
    if (win::IsUtf8(value)) return value;
    for (std::size_t cut = 1; cut <= 3; ++cut)
        if (win::IsUtf8(std::string_view(value).substr(0, value.size() - cut)))
            return value.substr(0, value.size() - cut);
    return value;
}

// The INI file's text; nothing when it is not plain text that the text rules can edit.
std::optional<std::string> ReadIniText() {
    const std::string path = DefaultIniPath();
    if (!win::FileExists(path)) return std::string();
    // Alerts gather in the file, up to 32,767 of them.
    constexpr std::uint64_t longest = 256u << 20;
    std::optional<std::string> text = win::ReadWholeFile(path, longest);
    const bool isWide = text && (text->starts_with("\xFF\xFE") || text->starts_with("\xFE\xFF"));
    return isWide ? std::nullopt : text;
}

// A section as the system reads it, for a file that is not plain text.
std::string SectionFromSystem(std::string_view section) {
    std::string lines(32767, '\0');
    const DWORD length =
        GetPrivateProfileSectionA(std::string(section).c_str(), lines.data(),
                                  static_cast<DWORD>(lines.size()), DefaultIniPath().c_str());
    lines.resize(length);
    std::replace(lines.begin(), lines.end(), '\0', '\n');
    return std::string("[").append(section).append("]\n").append(lines);
}

// What the INI file is still to be given: the values of one section.
std::string& heldSection = win::NeverDestroyed<std::string>();
KeyValues& heldValues = win::NeverDestroyed<KeyValues>();

bool IsHeld(std::string_view section) {
    return !heldValues.empty() && win::EqualIgnoringCase(section, heldSection);
}

// A held value, as it will read once it is in the file.
std::optional<std::string> HeldValue(std::string_view section, std::string_view key) {
    if (!IsHeld(section)) return std::nullopt;
    const auto last = std::find_if(heldValues.rbegin(), heldValues.rend(), [&](const auto& value) {
        return win::EqualIgnoringCase(value.first, key);
    });
    if (last == heldValues.rend()) return std::nullopt;
    return ReadIniSection(MergeIniSection("", section, {*last}), section).front().second;
}

}  // namespace

std::string ReadSetting(std::string_view section, std::string_view key) {
    if (const auto held = HeldValue(section, key)) return *held;
    std::string ownKey(key);
    if (UseIni == kUseIniStore) return IniReadValue(section, ownKey, "");
    if (UseIni == kUseRegistryStore) return ReadRegistryText(RegistryPath(section), ownKey);
    return {};
}

std::string ReadSetting(const Setting& setting) {
    return ReadSetting(setting.section, setting.key);
}

void WriteSetting(std::string_view section, std::string_view key, std::string_view value) {
    if (IsHeld(section)) StoreHeldSettings();  // the order counts
    if (UseIni == kUseIniStore)
        IniWriteValue(section, key, value, "");
    else if (UseIni == kUseRegistryStore)
        WriteRegistryTexts(RegistryPath(section), {{std::string(key), std::string(value)}});
}

void WriteSetting(const Setting& setting, std::string_view value) {
    WriteSetting(setting.section, setting.key, value);
}

void DeleteSettingSection(std::string_view section) {
    RegDeleteTreeA(HKEY_CURRENT_USER, RegistryPath(section).c_str());
}

void HoldSettings(std::string_view section, const KeyValues& values) {
    if (UseIni == kUseRegistryStore) WriteRegistryTexts(RegistryPath(section), values);
    if (UseIni != kUseIniStore) return;
    if (!IsHeld(section)) StoreHeldSettings();
    heldSection = section;
    heldValues.insert(heldValues.end(), values.begin(), values.end());
}

void StoreHeldSettings() {
    const KeyValues values = std::exchange(heldValues, {});
    if (values.empty()) return;
    const std::optional<std::string> text = ReadIniText();
    if (text &&
        win::ReplaceFileWhole(DefaultIniPath(), MergeIniSection(*text, heldSection, values)))
        return;
    for (const auto& [key, value] : values) IniWriteValue(heldSection, key, value, "");
}

std::map<std::string, std::string> ReadSection(std::string_view section) {
    if (IsHeld(section)) StoreHeldSettings();
    KeyValues values;
    if (UseIni == kUseRegistryStore) {
        values = ReadRegistryTexts(RegistryPath(section));
    } else if (UseIni == kUseIniStore) {
        const std::optional<std::string> text = ReadIniText();
        values = ReadIniSection(text ? *text : SectionFromSystem(section), section);
    }
    std::map<std::string, std::string> result;
    for (auto& [key, value] : values) result.emplace(win::AsciiLower(key), std::move(value));
    return result;
}

std::string IniReadValue(std::string_view section, std::string& key, const std::string& file) {
    key = win::ToLower(key);
    char buffer[kIniValueLimit + 1] = {};
    const DWORD length =
        GetPrivateProfileStringA(std::string(section).c_str(), key.c_str(), "", buffer,
                                 sizeof buffer, (file.empty() ? DefaultIniPath() : file).c_str());
    return WithoutTornEnd(std::string(buffer, length));
}

void IniWriteValue(std::string_view section, std::string_view key, std::string_view value,
                   const std::string& file) {
    WritePrivateProfileStringA(std::string(section).c_str(), win::AsciiUpper(key).c_str(),
                               IniSafeValue(value).c_str(),
                               (file.empty() ? DefaultIniPath() : file).c_str());
}

std::string ValueOr(const std::string& value, std::string_view defaultValue) {
    return value.empty() ? std::string(defaultValue) : value;
}

void ExportStoreChoice() {
    SetEnvironmentVariableA(kStoreVariable, UseIni == kUseIniStore ? IniUserName.c_str() : nullptr);
}

void ImportStoreChoice() {
    IniUserName = win::Environment(kStoreVariable);
    UseIni = IniUserName.empty() ? kUseRegistryStore : kUseIniStore;
}

}  // namespace settings
