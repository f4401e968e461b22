#pragma once
#include <cstdint>
#include <string>

namespace win {

// Values of the loop flag of PlayAlertSound.
inline constexpr std::int16_t kPlayLooped = -1;
inline constexpr std::int16_t kPlayOnce = 0;

// Stops any sound that plays, then plays the file without waiting: again and again until the next
// call (kPlayLooped) or once (kPlayOnce). Any other flag plays nothing. A file that cannot be
// played is silent.
void PlayAlertSound(const std::string& path, std::int16_t loop);

}  // namespace win
