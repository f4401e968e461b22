#include "win/Process.h"

namespace win {

void HardenProcess() {
    HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
    SetErrorMode(SEM_FAILCRITICALERRORS);
    SetDllDirectoryA("");
    // Windows 7 lacks this function without an update of 2011, so it is looked up by name.
    using SetDirectories = BOOL(WINAPI*)(DWORD);
    constexpr DWORD kSearchSystem32 = 0x800;
    const HMODULE kernel = GetModuleHandleA("kernel32.dll");
    const auto setDirectories = reinterpret_cast<SetDirectories>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "SetDefaultDllDirectories")));
    if (setDirectories) setDirectories(kSearchSystem32);
}

std::string Environment(const char* name) {
    std::string value;
    for (DWORD size = 256;;) {
        value.resize(size);
        const DWORD length = GetEnvironmentVariableA(name, value.data(), size);
        if (length < size) {
            value.resize(length);
            return value;
        }
        size = length;
    }
}

NamedMutex MakeNamedMutex(const char* name) {
    NamedMutex mutex;
    mutex.handle.Reset(CreateMutexA(nullptr, FALSE, name));
    const DWORD error = GetLastError();
    mutex.existed =
        error == ERROR_ALREADY_EXISTS || (!mutex.handle && error == ERROR_ACCESS_DENIED);
    return mutex;
}

}  // namespace win
