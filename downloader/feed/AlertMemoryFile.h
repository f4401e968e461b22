#pragma once
#include <cstdint>

#include "downloader/feed/AlertMemory.h"

// The file of the alert memory, in the temporary folder next to the cached answers.
namespace feed {

// Returns what the file holds; an empty memory when it cannot be read.
AlertMemory LoadAlertMemory();

// Adds the memory to the file, which is replaced whole, if Remember has changed it. `now` is in
// seconds since 1970. Several copies of the program may call this at once; failures are ignored.
void SaveAlertMemory(AlertMemory memory, std::int64_t now);

}  // namespace feed
