#pragma once
#include <cstdint>
#include <string>

namespace win {

// The values of PlayAlertSound's loop flag.
inline constexpr std::int16_t kPlayLooped = -1;
inline constexpr std::int16_t kPlayOnce = 0;

// Stops any sound and starts playing the file: repeatedly until the next call (kPlayLooped) or once
// (kPlayOnce). Any other flag plays nothing. Failures are ignored.
void PlayAlertSound(const std::string& path, std::int16_t loop);

}  // namespace win
