#include "win/Files.h"

#include <utility>

#include "win/CodePage.h"
#include "win/Handle.h"

namespace win {
namespace {

DWORD Attributes(const std::string& path) {
    return GetFileAttributesW(ToWide(path).c_str());
}

std::uint64_t Join64(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32) | low;
}

// Retries while a virus scanner or a backup may have the file open. Replacing an open file may also
// fail with "access denied".
template <class Attempt>
bool RetryWhileLocked(Attempt attempt, int triesLeft = 5) {
    constexpr DWORD kMilliseconds = 10;
    for (;; --triesLeft) {
        if (attempt()) return true;
        const DWORD error = GetLastError();
        if (triesLeft == 0 || (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED))
            return false;
        Sleep(kMilliseconds);
    }
}

// Opens the file, sharing all access with other programs.
FileHandle OpenShared(const std::string& path, DWORD access, DWORD disposition, DWORD flags) {
    FileHandle file;
    RetryWhileLocked([&] {
        file.Reset(CreateFileW(ToWide(path).c_str(), access,
                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                               disposition, flags, nullptr));
        return static_cast<bool>(file);
    });
    return file;
}

// Calls `visit(name, entry)` for every entry except "." and "..".
template <class Visit>
void ForEachEntry(const std::string& pattern, Visit visit) {
    WIN32_FIND_DATAW entry;
    const FindHandle find(FindFirstFileW(ToWide(pattern).c_str(), &entry));
    if (!find) return;
    do {
        const std::string name = FromWide(entry.cFileName);
        if (name != "." && name != "..") visit(name, entry);
    } while (FindNextFileW(find.Get(), &entry));
}

bool IsRealFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) && !(attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

}  // namespace

bool IsMissingError(unsigned long error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

bool IsFileMissing(const std::string& path) {
    return Attributes(path) == INVALID_FILE_ATTRIBUTES && IsMissingError(GetLastError());
}

bool FileExists(const std::string& path) {
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool FolderExists(const std::string& path) {
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool FileHasContent(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    return GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data) &&
           Join64(data.nFileSizeHigh, data.nFileSizeLow) > 0;
}

std::optional<std::string> ReadWholeFile(const std::string& path, std::uint64_t limit) {
    const FileHandle file =
        OpenShared(path, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.Get(), &size)) return std::nullopt;
    if (static_cast<std::uint64_t>(size.QuadPart) > limit) return std::nullopt;
    std::string text(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    if (!ReadFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &read, nullptr))
        return std::nullopt;
    text.resize(read);
    return text;
}

bool WriteAll(void* file, std::string_view text) {
    DWORD written = 0;
    return WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
           written == text.size();
}

bool WriteFileAtomically(const std::string& path, std::string_view text) {
    if (const DWORD attributes = Attributes(path);
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
        return false;
    const std::string newPath = path + ".new";
    const auto replace = [&] {
        return MoveFileExW(ToWide(newPath).c_str(), ToWide(path).c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    };
    // Half a second, because a failed write loses data.
    constexpr int kRetries = 50;
    FileHandle file(CreateFileW(ToWide(newPath).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;  // the file may be another process's
    const bool isWritten = WriteAll(file.Get(), text) && FlushFileBuffers(file.Get());
    file.Reset();
    if (isWritten && RetryWhileLocked(replace, kRetries)) return true;
    DeleteFileW(ToWide(newPath).c_str());
    return false;
}

bool OverwriteFile(const std::string& path, std::string_view text) {
    // Truncated at the end: emptying the file first costs more than writing it.
    const FileHandle file = OpenShared(path, GENERIC_WRITE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    return WriteAll(file.Get(), text) && SetEndOfFile(file.Get());
}

void DeleteFileQuietly(const std::string& path) {
    DeleteFileW(ToWide(path).c_str());
}

std::vector<FileEntry> FindFiles(const std::string& pattern) {
    std::vector<FileEntry> files;
    ForEachEntry(pattern, [&](const std::string& name, const WIN32_FIND_DATAW& entry) {
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) return;
        files.push_back(
            {name, Join64(entry.nFileSizeHigh, entry.nFileSizeLow),
             Join64(entry.ftLastWriteTime.dwHighDateTime, entry.ftLastWriteTime.dwLowDateTime)});
    });
    return files;
}

std::vector<std::string> FindFileNames(const std::string& pattern) {
    std::vector<std::string> names;
    for (FileEntry& file : FindFiles(pattern)) names.push_back(std::move(file.name));
    return names;
}

bool IsFolderWritable(const std::string& path) {
    // OPEN_ALWAYS: another copy of the program may be testing the same folder.
    return static_cast<bool>(
        OpenShared(path + "\\writable.tmp", GENERIC_WRITE, OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE));
}

void MakeFolder(const std::string& path) {
    CreateDirectoryW(ToWide(path).c_str(), nullptr);
}

static void CopyOneFile(const std::string& from, const std::string& to) {
    // A copy of a read-only file must be replaceable.
    if (CopyFileW(ToWide(from).c_str(), ToWide(to).c_str(), FALSE))
        SetFileAttributesW(ToWide(to).c_str(), FILE_ATTRIBUTE_NORMAL);
}

void CopyFolder(const std::string& from, const std::string& to) {
    MakeFolder(to);
    ForEachEntry(from + "\\*", [&](const std::string& name, const WIN32_FIND_DATAW& data) {
        const DWORD attributes = data.dwFileAttributes;
        const std::string source = from + "\\" + name;
        const std::string target = to + "\\" + name;
        if (IsRealFolder(attributes))
            CopyFolder(source, target);
        else if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
            CopyOneFile(source, target);
    });
}

void DeleteFolder(const std::string& path) {
    if (Attributes(path) & FILE_ATTRIBUTE_REPARSE_POINT) {  // also a path that does not exist
        RemoveDirectoryW(ToWide(path).c_str());
        return;
    }
    ForEachEntry(path + "\\*", [&](const std::string& name, const WIN32_FIND_DATAW& data) {
        const DWORD attributes = data.dwFileAttributes;
        const std::string entry = path + "\\" + name;
        if (IsRealFolder(attributes)) {
            DeleteFolder(entry);
        } else if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
            RemoveDirectoryW(ToWide(entry).c_str());
        } else {
            SetFileAttributesW(ToWide(entry).c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(ToWide(entry).c_str());
        }
    });
    RemoveDirectoryW(ToWide(path).c_str());
}

std::uint64_t LastModified(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data)) return 0;
    return Join64(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime);
}

std::string ExecutableFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    const std::size_t slash = path.find_last_of(L'\\');
    return slash == std::wstring::npos ? std::string() : FromWide(path.substr(0, slash));
}

}  // namespace win
