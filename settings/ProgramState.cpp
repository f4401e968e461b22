#include "settings/ProgramState.h"

namespace settings {

ProgramState& State() {
    static ProgramState state;
    return state;
}

}  // namespace settings
