#include "win/CodePage.h"

#include <windows.h>

#include <algorithm>

namespace win {

std::wstring ToWide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), length);
    return wide;
}

static std::string Narrow(std::wstring_view text, UINT codePage) {
    // ASCII, the bulk of every feed, is the same in all code pages.
    if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; }))
        return {text.begin(), text.end()};
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

std::string FromWide(std::wstring_view text) {
    return Narrow(text, CP_ACP);
}

std::string ToUtf8(std::wstring_view text) {
    return Narrow(text, CP_UTF8);
}

std::string ToLower(std::string_view text) {
    std::wstring wide = ToWide(text);
    CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return FromWide(wide);
}

}  // namespace win
