#pragma once
#include "win/Handle.h"

namespace win {

struct NamedMutex {
    KernelHandle handle;
    bool existed = false;  // some process holds it already, perhaps one with more rights
};

// Makes the mutex, or opens the one that is there.
NamedMutex MakeNamedMutex(const char* name);

}  // namespace win
