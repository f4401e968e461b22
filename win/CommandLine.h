#pragma once
#include <string_view>

namespace win {

// The arguments in a whole command line: what follows the program's name, which may be quoted, or
// unquoted with spaces in its path. `programFile` is the program's file name ("dl.exe"). Spaces
// around the arguments and one pair of quotes are removed.
std::string_view ArgumentText(std::string_view commandLine, std::string_view programFile);

}  // namespace win
