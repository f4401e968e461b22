#pragma once
#include <gtest/gtest.h>
#include <windows.h>
#include <psapi.h>

namespace tests {

struct Handles {
    DWORD gdi;
    DWORD user;
    DWORD kernel;
    SIZE_T privateBytes;
};

inline Handles CountHandles() {
    Handles counts{};
    PROCESS_MEMORY_COUNTERS_EX memory{};
    memory.cb = sizeof memory;
    counts.gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    counts.user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    GetProcessHandleCount(GetCurrentProcess(), &counts.kernel);
    if (GetProcessMemoryInfo(GetCurrentProcess(),
                             reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory))
        counts.privateBytes = memory.PrivateUsage;
    return counts;
}

// Private memory may grow by what the heap keeps at hand, no more.
inline void ExpectSameHandles(const Handles& before, const Handles& after) {
    constexpr SIZE_T heapSlack = 512 * 1024;
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.user, before.user);
    EXPECT_LE(after.kernel, before.kernel);
    EXPECT_LE(after.privateBytes, before.privateBytes + heapSlack);
}

}  // namespace tests
