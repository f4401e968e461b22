#pragma once
#include <string>

// Temporary files.
namespace win {

// The temporary folder with its trailing backslash; empty when the system names none.
std::string GetTempFolder();

// The full path of a new empty file named by the first three characters of the prefix, a
// hexadecimal number and ".tmp"; empty when it cannot be made.
std::string MakeTempFileName(const std::string& prefix);

// Deletes every file of the temporary folder that begins with the prefix and ends in ".tmp".
void DeleteTempFiles(const std::string& prefix);

}  // namespace win
