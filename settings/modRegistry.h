#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "settings/KeyValues.h"

// The registry: three routines for values outside the settings store, which take a predefined root
// key, and the store's text values below HKEY_CURRENT_USER. Failures are ignored.
namespace settings {

inline constexpr std::uint32_t kCurrentUser = 0x80000001;
inline constexpr std::uint32_t kRegistryText = 1;  // REG_SZ

// Writes the value, without a terminating zero; creates the key if needed.
void RegistrySetValue(std::uint32_t root, const std::string& subkey, const std::string& name,
                      const std::string& data, std::uint32_t type);

// Deletes the value.
void RegistryDeleteValue(std::uint32_t root, const std::string& subkey, const std::string& name);

// Returns the data of the value with exactly this name; empty if there is none. Handles messages
// between values. Enumeration ends at the first value of more than 255 bytes.
std::string RegistryReadValue(std::uint32_t root, const std::string& subkey,
                              const std::string& name);

// Returns a text value, with its variables expanded if it has the type REG_EXPAND_SZ; empty if
// there is none.
std::string ReadRegistryText(const std::string& path, const std::string& name);

// Returns every text value of the key.
KeyValues ReadRegistryTexts(const std::string& path);

// Writes text values; creates the key if needed.
void WriteRegistryTexts(const std::string& path, const KeyValues& values);

// Deletes the key with everything in it.
void DeleteRegistryTexts(const std::string& path);

}  // namespace settings
