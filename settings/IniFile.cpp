#include "settings/IniFile.h"

#include <windows.h>

#include <algorithm>

#include "win/CodePage.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/MessageLoop.h"
#include "win/Text.h"

namespace settings {
namespace {

constexpr ULONGLONG kFirstWaitLimit = 30'000;  // milliseconds
constexpr ULONGLONG kWaitLimit = 3'000;
ULONGLONG waitLeft = kFirstWaitLimit;
bool wasRead = false;

// The file, opened for reading so that no other program can lock it meanwhile.
struct OpenedIni {
    win::FileHandle handle = {};
    bool missing = false;
    bool inUse = false;
    bool IsReadable() const { return handle || missing; }
};

OpenedIni Open(const std::string& path) {
    OpenedIni file{
        win::FileHandle(CreateFileW(win::ToWide(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))};
    if (!file.handle) {
        const DWORD error = GetLastError();
        file.missing = win::IsMissingError(error);
        file.inUse = error == ERROR_SHARING_VIOLATION;
    }
    return file;
}

OpenedIni OpenOrWait(const std::string& path, Wait wait) {
    constexpr DWORD kPause = 20;
    for (;;) {
        OpenedIni file = Open(path);
        if (file.IsReadable()) {
            wasRead = true;
            waitLeft = kWaitLimit;
        }
        if (file.IsReadable() || wait == Wait::None || waitLeft == 0) return file;
        const ULONGLONG start = GetTickCount64();
        if (wait == Wait::HandleMessages)
            win::PumpOrWait(kPause);
        else
            Sleep(kPause);
        if (!file.inUse || wasRead) waitLeft -= std::min(waitLeft, GetTickCount64() - start);
    }
}

enum class Form { PlainText, OtherEncoding, Unreadable };

struct Contents {
    Form form;
    std::string text = {};
};

Contents ReadContents(const std::string& path, Wait wait) {
    const OpenedIni file = OpenOrWait(path, wait);
    if (file.missing) return {Form::PlainText};
    // The file holds up to 32,767 alerts.
    constexpr std::uint64_t kSizeLimit = 256u << 20;
    std::optional<std::string> text;
    if (file.handle) text = win::ReadWholeFile(path, kSizeLimit);
    if (!text) return {Form::Unreadable};
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF"})
        if (text->starts_with(mark)) return {Form::OtherEncoding};
    return {Form::PlainText, std::move(*text)};
}

// Removes a partial character, which a value cut by the buffer may end in.
std::string DropPartialCharacter(std::string value) {
    while (!value.empty() && value.back() == '\0') value.pop_back();
    for (std::size_t cut = 0; cut <= std::min<std::size_t>(3, value.size()); ++cut)
        if (win::IsUtf8(std::string_view(value).substr(0, value.size() - cut)))
            return value.substr(0, value.size() - cut);
    return value;
}

// A section as the system reads it, for a file in another encoding.
std::string ReadSectionBySystem(const std::string& path, std::string_view section) {
    std::string lines(32767, '\0');
    lines.resize(GetPrivateProfileSectionA(std::string(section).c_str(), lines.data(),
                                           static_cast<DWORD>(lines.size()),
                                           win::ToAnsiPath(path).c_str()));
    std::replace(lines.begin(), lines.end(), '\0', '\n');
    return std::string("[").append(section).append("]\n").append(lines);
}

}  // namespace

std::optional<std::string> ReadIniValue(const std::string& path, std::string_view section,
                                        std::string_view key, Wait wait) {
    const OpenedIni file = OpenOrWait(path, wait);
    if (!file.IsReadable()) return std::nullopt;
    constexpr std::size_t kLongestCharacter = 4;
    char buffer[kIniValueLimit * kLongestCharacter + 1] = {};
    const DWORD length =
        GetPrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(), "", buffer,
                                 sizeof buffer, win::ToAnsiPath(path).c_str());
    return std::string(win::FirstChars(DropPartialCharacter({buffer, length}), kIniValueLimit));
}

std::optional<KeyValues> ReadIniFileSection(const std::string& path, std::string_view section) {
    const Contents file = ReadContents(path, Wait::HandleMessages);
    if (file.form == Form::Unreadable) return std::nullopt;
    return ReadIniSection(
        file.form == Form::PlainText ? file.text : ReadSectionBySystem(path, section), section);
}

bool WriteIniValues(const std::string& path, std::string_view section, const KeyValues& values) {
    const Contents file = ReadContents(path, Wait::Sleep);
    if (file.form == Form::PlainText) {
        const std::string merged = MergeIniSection(file.text, section, values);
        return merged == file.text || win::WriteFileAtomically(path, merged);
    }
    if (file.form == Form::Unreadable) return false;
    bool stored = true;
    for (const auto& [key, value] : values)
        stored = WritePrivateProfileStringA(
                     std::string(section).c_str(), win::AsciiUpper(key).c_str(),
                     win::ToAnsi(IniSafeValue(value)).c_str(), win::ToAnsiPath(path).c_str()) &&
                 stored;
    return stored;
}

}  // namespace settings
