#include "win/LateFunction.h"

#include <windows.h>

#include <exception>

namespace win {

void* FindLateFunction(const char* library, const char* name) {
    // The library's bare name lets the manifest choose its version (comctl32). The handle stays
    // open, as an import's does.
    const HMODULE module = LoadLibraryExA(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    void* const function = reinterpret_cast<void*>(module ? GetProcAddress(module, name) : nullptr);
    if (!function) std::terminate();
    return function;
}

}  // namespace win
