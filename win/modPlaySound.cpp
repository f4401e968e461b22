#include "win/modPlaySound.h"

#include <windows.h>
#include <mmsystem.h>

namespace win {

void PlayAlertSound(const std::string& path, std::int16_t loop) {
    sndPlaySoundA(nullptr, 0);
    if (loop == kPlayLooped) sndPlaySoundA(path.c_str(), SND_ASYNC | SND_NODEFAULT | SND_LOOP);
    if (loop == kPlayOnce) sndPlaySoundA(path.c_str(), SND_ASYNC | SND_NODEFAULT | SND_NOSTOP);
}

}  // namespace win
