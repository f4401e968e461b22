#include "settings/IniFile.h"

#include <windows.h>

#include <algorithm>

#include "win/Files.h"
#include "win/Handle.h"
#include "win/MessageLoop.h"
#include "win/Text.h"

namespace settings {
namespace {

constexpr ULONGLONG kStartPatience = 30'000;  // milliseconds
constexpr ULONGLONG kLaterPatience = 3'000;
ULONGLONG patienceLeft = kStartPatience;
bool wasRead = false;

enum class Wait { RunMessages, Sleep, None };

// The file opened for reading, so that nobody can lock it meanwhile.
struct OpenedIni {
    win::FileHandle handle = {};
    bool missing = false;
    bool inUse = false;
    bool IsReadable() const { return handle || missing; }
};

OpenedIni Open(const std::string& path) {
    OpenedIni file{win::FileHandle(CreateFileA(
        path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))};
    if (!file.handle) {
        const DWORD error = GetLastError();
        file.missing = win::IsMissingError(error);
        file.inUse = error == ERROR_SHARING_VIOLATION;
    }
    return file;
}

OpenedIni OpenPatiently(const std::string& path, Wait wait) {
    constexpr DWORD pause = 20;
    for (;;) {
        OpenedIni file = Open(path);
        if (file.IsReadable()) {
            wasRead = true;
            patienceLeft = kLaterPatience;
        }
        if (file.IsReadable() || wait == Wait::None || patienceLeft == 0) return file;
        const ULONGLONG start = GetTickCount64();
        if (wait == Wait::RunMessages)
            win::PumpOrWait(pause);
        else
            Sleep(pause);
        if (!file.inUse || wasRead)
            patienceLeft -= std::min(patienceLeft, GetTickCount64() - start);
    }
}

enum class Form { PlainText, ForTheSystem, Unreadable };

struct IniText {
    Form form;
    std::string text = {};
};

IniText ReadIniText(const std::string& path, Wait wait) {
    const OpenedIni file = OpenPatiently(path, wait);
    if (file.missing) return {Form::PlainText};
    // Alerts gather in the file, up to 32,767 of them.
    constexpr std::uint64_t longest = 256u << 20;
    std::optional<std::string> text;
    if (file.handle) text = win::ReadWholeFile(path, longest);
    if (!text) return {Form::Unreadable};
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF"})
        if (text->starts_with(mark)) return {Form::ForTheSystem};
    return {Form::PlainText, std::move(*text)};
}

// A value of which only a part fitted into the buffer may end in a part of a character.
std::string WithoutTornEnd(std::string value) {
    while (!value.empty() && value.back() == '\0') value.pop_back();
    for (std::size_t cut = 0; cut <= std::min<std::size_t>(3, value.size()); ++cut)
        if (win::IsUtf8(std::string_view(value).substr(0, value.size() - cut)))
            return value.substr(0, value.size() - cut);
    return value;
}

// A section as the system reads it, for a file that is not plain text.
std::string SectionFromSystem(const std::string& path, std::string_view section) {
    std::string lines(32767, '\0');
    lines.resize(GetPrivateProfileSectionA(std::string(section).c_str(), lines.data(),
                                           static_cast<DWORD>(lines.size()), path.c_str()));
    std::replace(lines.begin(), lines.end(), '\0', '\n');
    return std::string("[").append(section).append("]\n").append(lines);
}

}  // namespace

std::optional<std::string> ReadIniValue(const std::string& path, std::string_view section,
                                        std::string_view key, Patience patience) {
    const OpenedIni file =
        OpenPatiently(path, patience == Patience::Wait ? Wait::RunMessages : Wait::None);
    if (!file.IsReadable()) return std::nullopt;
    constexpr std::size_t longestCharacter = 4;
    char buffer[kIniValueLimit * longestCharacter + 1] = {};
    const DWORD length =
        GetPrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(), "", buffer,
                                 sizeof buffer, path.c_str());
    return std::string(win::FirstChars(WithoutTornEnd({buffer, length}), kIniValueLimit));
}

std::optional<KeyValues> ReadIniFileSection(const std::string& path, std::string_view section) {
    const IniText file = ReadIniText(path, Wait::RunMessages);
    if (file.form == Form::Unreadable) return std::nullopt;
    return ReadIniSection(
        file.form == Form::PlainText ? file.text : SectionFromSystem(path, section), section);
}

bool WriteIniValues(const std::string& path, std::string_view section, const KeyValues& values) {
    const IniText file = ReadIniText(path, Wait::Sleep);
    if (file.form == Form::PlainText) {
        const std::string merged = MergeIniSection(file.text, section, values);
        return merged == file.text || win::WriteFileAtomically(path, merged);
    }
    if (file.form == Form::Unreadable) return false;
    bool stored = true;
    for (const auto& [key, value] : values)
        stored =
            WritePrivateProfileStringA(std::string(section).c_str(), win::AsciiUpper(key).c_str(),
                                       IniSafeValue(value).c_str(), path.c_str()) &&
            stored;
    return stored;
}

}  // namespace settings
