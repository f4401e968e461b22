#include "win/CommandLine.h"

#include "win/Text.h"

namespace win {
namespace {

// The end of a program name without quotes. Its folders may contain spaces, so it ends after the
// program's file name, or at the first space if the program has another name.
std::size_t EndOfProgramName(std::string_view line, std::string_view programFile) {
    for (std::size_t at = 0; at + programFile.size() <= line.size(); ++at) {
        const std::size_t end = at + programFile.size();
        const bool isWhole = (at == 0 || line[at - 1] == '\\' || line[at - 1] == '/') &&
                             (end == line.size() || line[end] == ' ');
        if (isWhole && EqualIgnoringCase(line.substr(at, programFile.size()), programFile))
            return end;
    }
    return line.find(' ');
}

}  // namespace

std::string_view ArgumentText(std::string_view commandLine, std::string_view programFile) {
    std::string_view line = Trim(commandLine);
    std::size_t end = 0;
    if (line.starts_with('"')) {
        end = line.find('"', 1);
        if (end != std::string_view::npos) ++end;
    } else {
        end = EndOfProgramName(line, programFile);
    }
    if (end == std::string_view::npos) return {};
    std::string_view argument = Trim(line.substr(end));
    // In a command shell the bars need quotes; neither a URL nor a file name can contain one.
    if (argument.size() >= 2 && argument.front() == '"' && argument.back() == '"')
        argument = argument.substr(1, argument.size() - 2);
    return argument;
}

}  // namespace win
