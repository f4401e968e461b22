#include "win/modTimeout.h"

#include <windows.h>

#include <cmath>

#include "win/MessageLoop.h"

namespace win {
namespace {

double SecondsSinceMidnight() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
}

}  // namespace

void WaitSeconds(double seconds) {
    const double start = std::nearbyint(SecondsSinceMidnight());
    while (SecondsSinceMidnight() - start < seconds) PumpOrWait(1);
}

void PauseTicks(std::int16_t count) {
    const int sleeps = count * 10;
    if (sleeps > INT16_MAX) return;
    for (int i = 0; i < sleeps; ++i) {
        Sleep(1);
        PumpPendingMessages();
    }
}

}  // namespace win
