#pragma once
#include <gtest/gtest.h>
#include <windows.h>

#include "tests/HandleCounts.h"

namespace tests {

struct Handles {
    int gdi;
    int user;
    int kernel;
    SIZE_T privateBytes;
};

// Returns the private memory of this process in bytes.
inline SIZE_T PrivateMemory() {
    SIZE_T total = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* place = nullptr; VirtualQuery(place, &region, sizeof region);
         place = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) total += region.RegionSize;
    return total;
}

inline Handles CountHandles() {
    return {GdiHandlesInUse(GetCurrentProcess()), UserHandlesInUse(),
            KernelHandlesInUse(GetCurrentProcessId()), PrivateMemory()};
}

// Expects no leaks. Private memory may grow by what the heap keeps in reserve.
inline void ExpectSameHandles(const Handles& before, const Handles& after) {
    constexpr SIZE_T heapSlack = 512 * 1024;
    EXPECT_GT(before.user, 0);
    EXPECT_GT(before.kernel, 0);
    EXPECT_GT(before.privateBytes, SIZE_T{0});
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.user, before.user);
    EXPECT_LE(after.kernel, before.kernel);
    testing::Test::RecordProperty("privateGrowth",
                                  static_cast<int>(after.privateBytes - before.privateBytes));
    EXPECT_LE(after.privateBytes, before.privateBytes + heapSlack);
}

}  // namespace tests
