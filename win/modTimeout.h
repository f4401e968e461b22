#pragma once
#include <cstdint>

// Two ways of waiting while the user interface stays alive.
namespace win {

// For waits of a fixed length; none is needed at present, only the tests call it.
// Lets messages run until the clock (seconds since midnight) stands `seconds` past the start, which
// is rounded to a whole second: a tiny wait ends at once or takes up to half a second. A wait that
// spans midnight lasts until the same clock value the next day; that is how it is meant.
void WaitSeconds(double seconds);

// `count` times ten 1-millisecond sleeps, each followed by letting messages run. Below 1, and where
// ten times the count leaves 16 bits, it returns at once.
void PauseTicks(std::int16_t count);

}  // namespace win
