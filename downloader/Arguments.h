#pragma once
#include <optional>
#include <string>
#include <string_view>

// The command line and the environment of dl.exe.
namespace downloader {

struct Job {
    std::string url;
    std::string dataFile;
    std::string statusFile;
};

// Parses URL|data file|status file. The last two fields are the files; the URL may contain bars.
// Returns nullopt when a field is missing or empty, or when both files are the same.
std::optional<Job> ParseArgument(std::string_view argument);

// Parses the overall time limit in seconds. Returns 60 unless `text` is a whole number from 1 to
// 60.
int ParseTimeLimit(std::string_view text);

}  // namespace downloader
