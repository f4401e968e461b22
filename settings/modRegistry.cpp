#include "settings/modRegistry.h"

#include <algorithm>

#include "win/Handle.h"
#include "win/MessageLoop.h"

namespace settings {
namespace {

HKEY RootKey(std::uint32_t root) {
    // Predefined keys are 32-bit numbers that a 64-bit handle would sign-extend.
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(root)));
}

// Registry text may or may not end in a zero.
std::string TextOf(const std::string& data, DWORD length) {
    std::string text = data.substr(0, length);
    while (!text.empty() && text.back() == '\0') text.pop_back();
    return text;
}

win::RegistryKey OpenForReading(const std::string& path) {
    win::RegistryKey key;
    RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, key.Receive());
    return key;
}

}  // namespace

void RegistrySetValue(std::uint32_t root, const std::string& subkey, const std::string& name,
                      const std::string& data, std::uint32_t type) {
    win::RegistryKey key;
    if (RegCreateKeyA(RootKey(root), subkey.c_str(), key.Receive()) != ERROR_SUCCESS) return;
    RegSetValueExA(key.Get(), name.c_str(), 0, type, reinterpret_cast<const BYTE*>(data.data()),
                   static_cast<DWORD>(data.size()));
}

void RegistryDeleteValue(std::uint32_t root, const std::string& subkey, const std::string& name) {
    win::RegistryKey key;
    if (RegOpenKeyA(RootKey(root), subkey.c_str(), key.Receive()) == ERROR_SUCCESS)
        RegDeleteValueA(key.Get(), name.c_str());
}

std::string RegistryReadValue(std::uint32_t root, const std::string& subkey,
                              const std::string& name) {
    win::RegistryKey key;
    if (RegOpenKeyExA(RootKey(root), subkey.c_str(), 0, KEY_QUERY_VALUE, key.Receive()) !=
        ERROR_SUCCESS)
        return {};
    std::string result;
    for (DWORD index = 0;; ++index) {
        win::PumpPendingMessages();
        char valueName[255];
        char data[255];
        DWORD nameLength = sizeof valueName;
        DWORD dataLength = sizeof data;
        DWORD type = 0;
        if (RegEnumValueA(key.Get(), index, valueName, &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(data), &dataLength) != ERROR_SUCCESS)
            return result;
        if (std::string_view(valueName, nameLength) == name && dataLength > 0)
            result.assign(data, dataLength - 1);
    }
}

std::string ReadRegistryText(const std::string& path, const std::string& name) {
    const win::RegistryKey key = OpenForReading(path);
    if (!key) return {};
    std::string data(256, '\0');
    for (;;) {
        DWORD length = static_cast<DWORD>(data.size());
        // Expands the variables in a text of the type REG_EXPAND_SZ.
        const LSTATUS status = RegGetValueA(key.Get(), nullptr, name.c_str(), RRF_RT_REG_SZ,
                                            nullptr, data.data(), &length);
        if (status == ERROR_SUCCESS) return TextOf(data, length);
        if (status != ERROR_MORE_DATA) return {};
        data.resize(std::max<std::size_t>(length, data.size() * 2));
    }
}

KeyValues ReadRegistryTexts(const std::string& path) {
    KeyValues values;
    const win::RegistryKey key = OpenForReading(path);
    DWORD longestName = 0;
    DWORD longestData = 0;
    if (!key ||
        RegQueryInfoKeyA(key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         &longestName, &longestData, nullptr, nullptr) != ERROR_SUCCESS)
        return values;
    std::string name(longestName * 4 + 1, '\0');  // a character may take four bytes
    std::string data(longestData * 4 + 1, '\0');
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = static_cast<DWORD>(name.size());
        DWORD length = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueA(key.Get(), index, name.data(), &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(data.data()), &length) != ERROR_SUCCESS)
            return values;
        const std::string valueName = name.substr(0, nameLength);
        if (type == REG_SZ) values.emplace_back(valueName, TextOf(data, length));
        if (type == REG_EXPAND_SZ)
            values.emplace_back(valueName, ReadRegistryText(path, valueName));
    }
}

void WriteRegistryTexts(const std::string& path, const KeyValues& values) {
    win::RegistryKey key;
    if (RegCreateKeyA(HKEY_CURRENT_USER, path.c_str(), key.Receive()) != ERROR_SUCCESS) return;
    for (const auto& [name, value] : values)
        RegSetValueExA(key.Get(), name.c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>(value.size()) + 1);
}

}  // namespace settings
