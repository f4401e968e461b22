#include "downloader/Arguments.h"

#include "win/Text.h"

namespace downloader {

std::optional<Job> ParseArgument(std::string_view argument) {
    const std::size_t last = argument.rfind('|');
    if (last == std::string_view::npos || last == 0) return std::nullopt;
    const std::size_t first = argument.rfind('|', last - 1);
    if (first == std::string_view::npos) return std::nullopt;
    Job job{std::string(argument.substr(0, first)),
            std::string(argument.substr(first + 1, last - first - 1)),
            std::string(argument.substr(last + 1))};
    if (job.url.empty() || job.dataFile.empty() || job.statusFile.empty() ||
        win::EqualIgnoringCase(job.dataFile, job.statusFile))
        return std::nullopt;
    return job;
}

int ParseTimeLimit(std::string_view text) {
    constexpr int kLongestLimit = 60;
    const auto seconds = win::ParseNumber(text, kLongestLimit).value_or(0);
    return seconds > 0 ? static_cast<int>(seconds) : kLongestLimit;
}

}  // namespace downloader
