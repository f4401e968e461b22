#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "settings/KeyValues.h"

// The registry: the three routines for values outside the settings store, which take a predefined
// root key, and the store's own text values below HKEY_CURRENT_USER. Errors are ignored throughout.
namespace settings {

inline constexpr std::uint32_t kCurrentUser = 0x80000001;
inline constexpr std::uint32_t kRegistryText = 1;  // REG_SZ

// Writes the value, making the key when needed; the data goes without a terminating zero.
void RegistrySetValue(std::uint32_t root, const std::string& subkey, const std::string& name,
                      const std::string& data, std::uint32_t type);

// Deletes the value.
void RegistryDeleteValue(std::uint32_t root, const std::string& subkey, const std::string& name);

// The data of the value whose name matches exactly, case included; empty when there is none. Lets
// messages run between values. The walk ends at the first value of more than 255 bytes.
std::string RegistryReadValue(std::uint32_t root, const std::string& subkey,
                              const std::string& name);

// A text value, with the variables in it expanded if it is of the type REG_EXPAND_SZ; the empty
// text if there is none.
std::string ReadRegistryText(const std::string& path, const std::string& name);

// Every text value of the key.
KeyValues ReadRegistryTexts(const std::string& path);

// Writes text values, making the key when needed.
void WriteRegistryTexts(const std::string& path, const KeyValues& values);

}  // namespace settings
