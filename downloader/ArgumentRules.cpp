#include "downloader/ArgumentRules.h"

#include "downloader/StatusCodes.h"
#include "win/TextRules.h"

namespace downloader {
namespace {

constexpr int kLongestLimit = 60;

// The end of an unquoted program name. A folder's name may hold blanks, so the name ends behind the
// program's own file name; started under another name, at the first blank.
std::size_t EndOfProgramName(std::string_view line, std::string_view programFile) {
    for (std::size_t at = 0; at + programFile.size() <= line.size(); ++at) {
        const std::size_t end = at + programFile.size();
        const bool isWhole = (at == 0 || line[at - 1] == '\\' || line[at - 1] == '/') &&
                             (end == line.size() || line[end] == ' ');
        if (isWhole && win::EqualIgnoringCase(line.substr(at, programFile.size()), programFile))
            return end;
    }
    return line.find(' ');
}

}  // namespace

std::string_view ArgumentText(std::string_view commandLine, std::string_view programFile) {
    std::string_view line = win::TrimBlanks(commandLine);
    std::size_t end = 0;
    if (line.starts_with('"')) {
        end = line.find('"', 1);
        if (end != std::string_view::npos) ++end;
    } else {
        end = EndOfProgramName(line, programFile);
    }
    if (end == std::string_view::npos) return {};
    std::string_view argument = win::TrimBlanks(line.substr(end));
    // Typed in a command shell the bars need quotes, which neither a URL nor a file can hold.
    if (argument.size() >= 2 && argument.front() == '"' && argument.back() == '"')
        argument = argument.substr(1, argument.size() - 2);
    return argument;
}

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
