#include "win/CodePage.h"

#include <windows.h>

#include <algorithm>

namespace win {
namespace {

// Returns an empty text if `flags` has MB_ERR_INVALID_CHARS and the text is invalid.
std::wstring Widen(std::string_view text, UINT codePage, DWORD flags) {
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, flags, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), size, wide.data(), length);
    return wide;
}

std::string Narrow(std::wstring_view text, UINT codePage, DWORD flags) {
    // ASCII, the bulk of every feed, is the same in all code pages.
    if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; }))
        return {text.begin(), text.end()};
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(codePage, flags, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, flags, text.data(), size, narrow.data(), length, nullptr,
                        nullptr);
    return narrow;
}

bool IsProcessUtf8() {
    return GetACP() == CP_UTF8;
}

}  // namespace

std::wstring ToWide(std::string_view text) {
    std::wstring wide = Widen(text, CP_UTF8, MB_ERR_INVALID_CHARS);
    return wide.empty() ? Widen(text, CP_ACP, 0) : wide;
}

std::string FromWide(std::wstring_view text) {
    return Narrow(text, CP_UTF8, 0);
}

std::string ToAnsi(std::string_view text) {
    if (IsProcessUtf8()) return std::string(text);
    // No best-fit characters: "Lodz" would hide that letters were lost.
    return Narrow(ToWide(text), CP_ACP, WC_NO_BEST_FIT_CHARS);
}

std::string FromAnsi(std::string_view text) {
    return IsProcessUtf8() ? std::string(text) : FromWide(Widen(text, CP_ACP, 0));
}

std::string ToAnsiPath(const std::string& path) {
    std::string ansi = ToAnsi(path);
    if (FromAnsi(ansi) == path) return ansi;
    const std::wstring wide = ToWide(path);
    wchar_t shortPath[MAX_PATH];
    const DWORD length = GetShortPathNameW(wide.c_str(), shortPath, MAX_PATH);
    return length > 0 && length < MAX_PATH ? ToAnsi(FromWide(shortPath)) : ansi;
}

std::string ToLower(std::string_view text) {
    std::wstring wide = ToWide(text);
    CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return FromWide(wide);
}

}  // namespace win
