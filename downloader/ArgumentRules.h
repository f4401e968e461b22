#pragma once
#include <optional>
#include <string>
#include <string_view>

// What the command line asks for, and how the result is written down.
namespace downloader {

struct Job {
    std::string url;
    std::string dataFile;
    std::string statusFile;
};

// Splits URL|data file|status file: the last two fields are the files, whatever bars the URL holds.
// Nothing when a field is missing or empty, or when both files are one.
std::optional<Job> SplitArgument(std::string_view argument);

// The overall limit in seconds: the text's number when it is a whole one from 1 to 60, else 60.
int LimitSeconds(std::string_view text);

// The number that tells a Windows error in the status file; never 0.
int StatusOfSystemError(unsigned long error);

}  // namespace downloader
