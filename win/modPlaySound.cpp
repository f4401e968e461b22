#include "win/modPlaySound.h"

#include "win/CodePage.h"
#include "win/LateFunctions.h"

namespace win {

void PlayAlertSound(const std::string& path, std::int16_t loop) {
    const std::string ansiPath = ToAnsiPath(path);
    late::sndPlaySoundA(nullptr, 0);
    if (loop == kPlayLooped)
        late::sndPlaySoundA(ansiPath.c_str(), SND_ASYNC | SND_NODEFAULT | SND_LOOP);
    if (loop == kPlayOnce)
        late::sndPlaySoundA(ansiPath.c_str(), SND_ASYNC | SND_NODEFAULT | SND_NOSTOP);
}

}  // namespace win
