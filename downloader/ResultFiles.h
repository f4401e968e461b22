#pragma once
#include <string_view>

#include "downloader/ArgumentRules.h"

// The two files that carry the result. The caller waits without a limit for the status, so every
// way that this program can end leads through EndWith.
namespace downloader {

// Empties the status file and then the data file, so that nothing stale is left. A status file that
// cannot be opened is tried again for as long as the process that started this one lives, or for 5
// seconds when that is not known. 0, or the status to end with.
int OpenResultFiles(const Job& job);

// Writes the body into the data file (or, for any status but 0, deletes the file), then the status
// in one write, and ends the process with the status as its exit code. Where the status cannot be
// written, it deletes the data file and tries again, as long as OpenResultFiles does. Only the
// first call of several threads counts; the others wait for the end.
[[noreturn]] void EndWith(int status, std::string_view body = {});

// Ends the process with kOverallTimeout when it still runs after so many seconds.
void StartWatchdog(int seconds);

}  // namespace downloader
