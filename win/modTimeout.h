#pragma once
#include <cstdint>

// Waits that handle messages.
namespace win {

// Waits until the clock, in seconds since midnight, is `seconds` past the start, which is rounded
// to a whole second: a short wait returns at once or takes up to half a second longer. A wait
// across midnight deliberately lasts until the same time of the next day.
void WaitSeconds(double seconds);

// Sleeps for `count` times ten milliseconds and handles messages after each millisecond. Returns at
// once if `count` is below 1 or ten times its value exceeds 16 bits.
void PauseTicks(std::int16_t count);

}  // namespace win
