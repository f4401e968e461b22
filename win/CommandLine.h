#pragma once
#include <string_view>

namespace win {

// Returns the arguments of a whole command line: the text after the program's name, without spaces
// and one pair of quotes around it. The name may be in quotes, or have spaces in its path without
// them. `programFile` is the program's file name ("dl.exe").
std::string_view ArgumentText(std::string_view commandLine, std::string_view programFile);

}  // namespace win
