#pragma once
#include <string>
#include <string_view>

#include "downloader/Arguments.h"

// The two files that carry the result. The caller waits for the status without a time limit, so
// every way in which this program can end goes through EndWith.
namespace downloader {

// Creates or empties the status file and then the data file, so that no stale result remains. A
// status file that cannot be opened is retried for as long as the parent process lives, or for 5
// seconds when the parent is unknown. Returns kSuccess or the status to end with.
int OpenResultFiles(const Job& job);

// Writes the body to the data file (or deletes that file unless the status is kSuccess), then
// writes the status in one call and ends the process with the status as its exit code. When the
// status cannot be written, deletes the data file and retries for as long as OpenResultFiles does.
// Of several threads only the first call counts; the others wait for the process to end.
[[noreturn]] void EndWith(int status, std::string_view body = {});

// Sets a document that EndWith, StartWatchdog and a crash report as a success in place of a
// failure, except failures of the gazetteer and the result files. It must be set before the other
// thread starts.
void SetSubstitute(std::string document);

// Ends the process with kOverallTimeout if it is still running after so many seconds.
void StartWatchdog(int seconds);

}  // namespace downloader
