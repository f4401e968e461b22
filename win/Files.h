#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Files and folders. Errors show in the results only.
namespace win {

// Whether an error of GetLastError means that the file does not exist, rather than that it cannot
// be opened now.
bool IsMissingError(unsigned long error);

// Whether there is certainly no file or folder of this name; false in case of doubt.
bool IsFileMissing(const std::string& path);

bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);

// Whether the file exists and is not empty.
bool FileHasContent(const std::string& path);

// The size limit, in bytes, for all files without one of their own.
inline constexpr std::uint64_t kLongestFile = std::uint64_t{64} * 1024 * 1024;

// Returns the whole file; nullopt if it cannot be read or is longer than `limit` bytes.
std::optional<std::string> ReadWholeFile(const std::string& path,
                                         std::uint64_t limit = kLongestFile);

// Writes the whole text to an open file, given by its handle. Returns whether that succeeded.
bool WriteAll(void* file, std::string_view text);

// Writes the text to a new file and renames that to `path`, so that readers, and a crash, leave
// either the old or the new file. Returns false, with the old file unchanged, on failure.
bool WriteFileAtomically(const std::string& path, std::string_view text);

// Writes a file in place, without waiting for the disk: for files that can be created again at any
// time. Returns whether that succeeded.
bool OverwriteFile(const std::string& path, std::string_view text);

// Deletes the file; failures are ignored.
void DeleteFileQuietly(const std::string& path);

// Returns the names, without folders, of the files that match the pattern, in directory order.
std::vector<std::string> FindFileNames(const std::string& pattern);

struct FileEntry {
    std::string name;            // without its folder
    std::uint64_t size = 0;      // bytes
    std::uint64_t modified = 0;  // in units of 100 ns since 1601
};

// Returns the files that match the pattern, in directory order.
std::vector<FileEntry> FindFiles(const std::string& pattern);

// Whether the program can write files in the folder; creates and deletes one to find out.
bool IsFolderWritable(const std::string& path);

// Creates one level of folder; failures are ignored.
void MakeFolder(const std::string& path);

// Copies the folder and its contents, replacing existing files. Links to folders are skipped.
void CopyFolder(const std::string& from, const std::string& to);

// Deletes the folder and its contents. Links are removed, not followed.
void DeleteFolder(const std::string& path);

// Returns the last-modified time in units of 100 ns since 1601; 0 for a missing file or folder.
std::uint64_t LastModified(const std::string& path);

// Returns the folder of the running executable, without a trailing backslash.
std::string ExecutableFolder();

}  // namespace win
