#include "settings/ProgramState.h"

#include "win/NeverDestroyed.h"

namespace settings {

ProgramState& State() {
    static ProgramState& state = win::NeverDestroyed<ProgramState>();
    return state;
}

}  // namespace settings
