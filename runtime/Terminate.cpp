#include <windows.h>

#include <cstdlib>
#include <exception>
#include <new>

// What the C++ library brings for reporting an exception is of no use to programs that are built
// without them: its own handler prints the exception's type to a console that they do not have, its
// throwing functions bring texts, locales and old kinds of string, its operator new the whole of
// throwing. Together some 150 KB of each program. Linked as an object of each program, so that
// these come before the library's; all that would have thrown ends the process.
// The names are the library's.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-redundant-declaration)
namespace __gnu_cxx {

void __verbose_terminate_handler();
void __verbose_terminate_handler() {
    TerminateProcess(GetCurrentProcess(), 3);
}

}  // namespace __gnu_cxx

// A further one of these functions, once something calls it, must stand here too: it would bring in
// the library's object of all of them, and the linker would call the others defined twice.
namespace std {

void __throw_bad_alloc() {
    terminate();
}
void __throw_bad_array_new_length() {
    terminate();
}
void __throw_bad_cast() {
    terminate();
}
void __throw_bad_function_call() {
    terminate();
}
void __throw_invalid_argument(const char*) {
    terminate();
}
void __throw_length_error(const char*) {
    terminate();
}
void __throw_logic_error(const char*) {
    terminate();
}
void __throw_out_of_range(const char*) {
    terminate();
}
void __throw_out_of_range_fmt(const char*, ...) {
    terminate();
}
void __throw_runtime_error(const char*) {
    terminate();
}
void __throw_system_error(int) {
    terminate();
}

}  // namespace std

// NOLINTEND(bugprone-reserved-identifier,readability-redundant-declaration)

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size > 0 ? size : 1);
    if (!memory) std::terminate();
    return memory;
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
