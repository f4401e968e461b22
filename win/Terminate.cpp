#include <windows.h>

// The C++ library's own handler prints the type of an uncaught exception and brings 60 KB of name
// decoding with it, for a console that these programs do not have; abort() would show a box. Linked
// as an object of each program, so that it comes before the library's.
namespace __gnu_cxx {

void __verbose_terminate_handler();
void __verbose_terminate_handler() {
    TerminateProcess(GetCurrentProcess(), 3);
}

}  // namespace __gnu_cxx
