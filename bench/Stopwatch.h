#pragma once
#include <windows.h>

namespace bench {

// Returns the system's performance counter in milliseconds.
inline double Milliseconds() {
    LARGE_INTEGER now;
    LARGE_INTEGER perSecond;
    QueryPerformanceFrequency(&perSecond);
    QueryPerformanceCounter(&now);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

}  // namespace bench
