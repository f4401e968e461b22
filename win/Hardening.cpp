#include "win/Hardening.h"

#include <windows.h>

namespace win {

void HardenProcess() {
    HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
    SetErrorMode(SEM_FAILCRITICALERRORS);
    SetDllDirectoryA("");
    // Windows 7 has it only with an update of 2011, so it is asked for by name.
    using SetDirectories = BOOL(WINAPI*)(DWORD);
    constexpr DWORD searchSystem32 = 0x800;
    const HMODULE kernel = GetModuleHandleA("kernel32.dll");
    const auto setDirectories = reinterpret_cast<SetDirectories>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "SetDefaultDllDirectories")));
    if (setDirectories) setDirectories(searchSystem32);
}

}  // namespace win
