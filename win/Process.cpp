#include "win/Process.h"

#include "win/CodePage.h"

namespace win {

void HardenProcess() {
    HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
    SetErrorMode(SEM_FAILCRITICALERRORS);
    SetDllDirectoryW(L"");
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

std::string Environment(const char* name) {
    const std::wstring wideName = ToWide(name);
    std::wstring value;
    for (DWORD size = 256;;) {
        value.resize(size);
        const DWORD length = GetEnvironmentVariableW(wideName.c_str(), value.data(), size);
        if (length < size) {
            value.resize(length);
            return FromWide(value);
        }
        size = length;
    }
}

void SetEnvironment(const char* name, const std::string& value) {
    SetEnvironmentVariableW(ToWide(name).c_str(), value.empty() ? nullptr : ToWide(value).c_str());
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
