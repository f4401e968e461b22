#include "win/NamedMutex.h"

namespace win {

NamedMutex MakeNamedMutex(const char* name) {
    NamedMutex mutex;
    mutex.handle.Reset(CreateMutexA(nullptr, FALSE, name));
    // Read at once: whatever runs in between may change it.
    const DWORD error = GetLastError();
    mutex.existed =
        error == ERROR_ALREADY_EXISTS || (!mutex.handle && error == ERROR_ACCESS_DENIED);
    return mutex;
}

}  // namespace win
