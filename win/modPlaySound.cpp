#include "win/modPlaySound.h"

#include "win/LateFunctions.h"

namespace win {

void PlayAlertSound(const std::string& path, std::int16_t loop) {
    late::sndPlaySoundA(nullptr, 0);
    if (loop == kPlayLooped)
        late::sndPlaySoundA(path.c_str(), SND_ASYNC | SND_NODEFAULT | SND_LOOP);
    if (loop == kPlayOnce)
        late::sndPlaySoundA(path.c_str(), SND_ASYNC | SND_NODEFAULT | SND_NOSTOP);
}

}  // namespace win
