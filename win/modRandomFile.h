#pragma once
#include <string>

// Temporary files.
namespace win {

// Returns the temporary folder with a trailing backslash; empty on failure.
std::string GetTempFolder();

// Creates an empty file named by the first three characters of the prefix, a hexadecimal number and
// ".tmp". Returns its full path; empty on failure.
std::string MakeTempFileName(const std::string& prefix);

// Deletes every temporary file whose name starts with the prefix and ends in ".tmp".
void DeleteTempFiles(const std::string& prefix);

}  // namespace win
