#pragma once
#include <windows.h>
#include <winhttp.h>

#include "win/Handle.h"

namespace downloader {

struct InternetTraits {
    using Type = HINTERNET;
    static Type Empty() { return nullptr; }
    static void Close(Type handle) { WinHttpCloseHandle(handle); }
};
using Internet = win::UniqueHandle<InternetTraits>;

// Text that WinHTTP gives away.
struct GlobalTextTraits {
    using Type = LPWSTR;
    static Type Empty() { return nullptr; }
    static void Close(Type text) { GlobalFree(text); }
};
using GlobalText = win::UniqueHandle<GlobalTextTraits>;

}  // namespace downloader
