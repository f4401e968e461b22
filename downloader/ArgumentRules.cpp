#include "downloader/ArgumentRules.h"

#include "downloader/StatusCodes.h"
#include "win/Text.h"

namespace downloader {
namespace {

constexpr int kLongestLimit = 60;

}  // namespace

std::optional<Job> SplitArgument(std::string_view argument) {
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

int LimitSeconds(std::string_view text) {
    int seconds = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9' || seconds > kLongestLimit) return kLongestLimit;
        seconds = seconds * 10 + (digit - '0');
    }
    return seconds >= 1 && seconds <= kLongestLimit ? seconds : kLongestLimit;
}

int StatusOfSystemError(unsigned long error) {
    if (error == 0) return kInternalError;
    if (error >= 12000 && error <= 12999) return static_cast<int>(error);
    // Codes in the style of HRESULT fill all 32 bits; their low half tells enough.
    return kWindowsErrorBase + static_cast<int>(error & 0xFFFF);
}

}  // namespace downloader
