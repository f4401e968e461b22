#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Files and folders. Nothing here reports an error beyond its result: the program goes on.
namespace win {

// Whether the error (of GetLastError) says that there is no such file, and not merely that it
// cannot be reached now.
bool IsMissingError(unsigned long error);

// Whether there is certainly no file or folder of this name.
bool IsFileMissing(const std::string& path);

bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);

// True when the file is at least 1 byte long; false for a missing file.
bool FileHasContent(const std::string& path);

// What no file that the program reads comes near.
inline constexpr std::uint64_t kLongestFile = std::uint64_t{64} * 1024 * 1024;

// The whole file, or nothing when it cannot be read or is longer than `limit` bytes.
std::optional<std::string> ReadWholeFile(const std::string& path,
                                         std::uint64_t limit = kLongestFile);

// Writes the whole text to an open file, given as its Windows handle. False when it cannot be done.
bool WriteAll(void* file, std::string_view text);

// Writes the text to a file beside `path` and puts it in place whole: a reader, or a crash, sees
// the old file or the new one. False, with the old file untouched, when it cannot be done.
bool WriteFileAtomically(const std::string& path, std::string_view text);

// Writes a file that can be made again at any time: in place, and without waiting for the disk.
bool OverwriteFile(const std::string& path, std::string_view text);

// Deletes the file; a missing one is no error.
void DeleteFileQuietly(const std::string& path);

// The names (without folder) of the files that match the pattern, in directory order.
std::vector<std::string> FindFileNames(const std::string& pattern);

// Whether the program can write files in the folder. The one that it tries this with does not stay.
bool IsFolderWritable(const std::string& path);

// Makes one level of folder; one that exists is no error.
void MakeFolder(const std::string& path);

// Copies the folder with all that is in it, over what is there. Links to folders are left out.
void CopyFolder(const std::string& from, const std::string& to);

// Deletes the folder with all that is in it. Links are removed, not followed.
void DeleteFolder(const std::string& path);

// The last-modified time in 100 ns units since 1601, 0 for a missing file or folder.
std::uint64_t LastModified(const std::string& path);

// The folder of the running executable, without a trailing backslash.
std::string ExecutableFolder();

}  // namespace win
