#pragma once
#include <string>

#include "win/Handle.h"

// The running process: its protection, its environment, and what other processes see of it.
namespace win {

// Protects the process; called before anything else. It ends on a corrupted heap, loads libraries
// from the system folder only, and shows no system box for a missing disk.
void HardenProcess();

// Returns the value of an environment variable; empty when it is not set.
std::string Environment(const char* name);

// Sets an environment variable for this process and those it starts; an empty value removes it.
void SetEnvironment(const char* name, const std::string& value);

struct NamedMutex {
    KernelHandle handle;
    bool existed = false;  // another process, perhaps one with more rights, had created it
};

// Creates the mutex or opens the existing one. The handle is empty on failure.
NamedMutex MakeNamedMutex(const char* name);

}  // namespace win
