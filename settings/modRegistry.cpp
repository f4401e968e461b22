#include "settings/modRegistry.h"

#include <algorithm>

#include "win/CodePage.h"
#include "win/Handle.h"
#include "win/MessageLoop.h"

namespace settings {
namespace {

HKEY RootKey(std::uint32_t root) {
    // Predefined keys are 32-bit numbers that a 64-bit handle would sign-extend.
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(root)));
}

// Registry text may or may not end in a zero.
std::string TextOf(const std::wstring& data, DWORD bytes) {
    std::wstring_view text = std::wstring_view(data).substr(0, bytes / sizeof(wchar_t));
    while (!text.empty() && text.back() == L'\0') text.remove_suffix(1);
    return win::FromWide(text);
}

win::RegistryKey OpenForReading(const std::string& path) {
    win::RegistryKey key;
    RegOpenKeyExW(HKEY_CURRENT_USER, win::ToWide(path).c_str(), 0, KEY_QUERY_VALUE, key.Receive());
    return key;
}

}  // namespace

void RegistrySetValue(std::uint32_t root, const std::string& subkey, const std::string& name,
                      const std::string& data, std::uint32_t type) {
    win::RegistryKey key;
    if (RegCreateKeyA(RootKey(root), win::ToAnsi(subkey).c_str(), key.Receive()) != ERROR_SUCCESS)
        return;
    const std::string ansi = win::ToAnsi(data);
    RegSetValueExA(key.Get(), win::ToAnsi(name).c_str(), 0, type,
                   reinterpret_cast<const BYTE*>(ansi.data()), static_cast<DWORD>(ansi.size()));
}

void RegistryDeleteValue(std::uint32_t root, const std::string& subkey, const std::string& name) {
    win::RegistryKey key;
    if (RegOpenKeyA(RootKey(root), win::ToAnsi(subkey).c_str(), key.Receive()) == ERROR_SUCCESS)
        RegDeleteValueA(key.Get(), win::ToAnsi(name).c_str());
}

std::string RegistryReadValue(std::uint32_t root, const std::string& subkey,
                              const std::string& name) {
    win::RegistryKey key;
    if (RegOpenKeyExA(RootKey(root), win::ToAnsi(subkey).c_str(), 0, KEY_QUERY_VALUE,
                      key.Receive()) != ERROR_SUCCESS)
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
        if (win::FromAnsi({valueName, nameLength}) == name && dataLength > 0)
            result = win::FromAnsi({data, dataLength - 1});
    }
}

std::string ReadRegistryText(const std::string& path, const std::string& name) {
    const win::RegistryKey key = OpenForReading(path);
    if (!key) return {};
    const std::wstring wideName = win::ToWide(name);
    std::wstring data(256, L'\0');
    for (;;) {
        DWORD bytes = static_cast<DWORD>(data.size()) * sizeof(wchar_t);
        // Expands the variables in a text of the type REG_EXPAND_SZ.
        const LSTATUS status = RegGetValueW(key.Get(), nullptr, wideName.c_str(), RRF_RT_REG_SZ,
                                            nullptr, data.data(), &bytes);
        if (status == ERROR_SUCCESS) return TextOf(data, bytes);
        if (status != ERROR_MORE_DATA) return {};
        data.resize(std::max<std::size_t>(bytes / sizeof(wchar_t) + 1, data.size() * 2));
    }
}

KeyValues ReadRegistryTexts(const std::string& path) {
    KeyValues values;
    const win::RegistryKey key = OpenForReading(path);
    DWORD longestName = 0;  // in characters
    DWORD longestData = 0;  // in bytes
    if (!key ||
        RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         &longestName, &longestData, nullptr, nullptr) != ERROR_SUCCESS)
        return values;
    std::wstring name(longestName + 1, L'\0');
    std::wstring data(longestData / sizeof(wchar_t) + 1, L'\0');
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = static_cast<DWORD>(name.size());
        DWORD bytes = static_cast<DWORD>(data.size()) * sizeof(wchar_t);
        DWORD type = 0;
        if (RegEnumValueW(key.Get(), index, name.data(), &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(data.data()), &bytes) != ERROR_SUCCESS)
            return values;
        const std::string valueName = win::FromWide(name.substr(0, nameLength));
        if (type == REG_SZ) values.emplace_back(valueName, TextOf(data, bytes));
        if (type == REG_EXPAND_SZ)
            values.emplace_back(valueName, ReadRegistryText(path, valueName));
    }
}

void WriteRegistryTexts(const std::string& path, const KeyValues& values) {
    win::RegistryKey key;
    if (RegCreateKeyW(HKEY_CURRENT_USER, win::ToWide(path).c_str(), key.Receive()) != ERROR_SUCCESS)
        return;
    for (const auto& [name, value] : values) {
        const std::wstring wide = win::ToWide(value);
        RegSetValueExW(key.Get(), win::ToWide(name).c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(wide.c_str()),
                       static_cast<DWORD>(wide.size() + 1) * sizeof(wchar_t));
    }
}

void DeleteRegistryTexts(const std::string& path) {
    RegDeleteTreeW(HKEY_CURRENT_USER, win::ToWide(path).c_str());
}

}  // namespace settings
