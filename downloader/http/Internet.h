#pragma once
#include <windows.h>
#include <winhttp.h>

#include "win/Handle.h"

namespace http {

struct InternetTraits {
    using Type = HINTERNET;
    static Type Empty() { return nullptr; }
    static void Close(Type handle) { WinHttpCloseHandle(handle); }
};
// A WinHTTP session, connection or request.
using Internet = win::UniqueHandle<InternetTraits>;

struct GlobalTextTraits {
    using Type = LPWSTR;
    static Type Empty() { return nullptr; }
    static void Close(Type text) { GlobalFree(text); }
};
// A string allocated by WinHTTP for its caller.
using GlobalText = win::UniqueHandle<GlobalTextTraits>;

}  // namespace http
