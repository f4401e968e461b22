#include <windows.h>

#include <cstdlib>
#include <exception>
#include <new>
#include <string>
#include <utility>

// Replaces the parts of the C++ library that report exceptions, which these programs are built
// without: its terminate handler prints to a console that they do not have, and std::terminate, its
// throwing functions and operator new link the exception runtime, locales and old string classes,
// some 200 KB in each program. Here everything that would throw ends the process. The file is
// linked into each program as an object, so that its definitions precede those of the library,
// whose names they have.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-redundant-declaration)
namespace __gnu_cxx {

void __verbose_terminate_handler();
void __verbose_terminate_handler() {
    TerminateProcess(GetCurrentProcess(), 3);
}

}  // namespace __gnu_cxx

namespace std {
namespace {

terminate_handler handler = nullptr;

}  // namespace

terminate_handler set_terminate(terminate_handler next) noexcept {
    return exchange(handler, next);
}

void terminate() noexcept {
    if (handler) handler();
    TerminateProcess(GetCurrentProcess(), 3);
    for (;;) Sleep(INFINITE);
}

}  // namespace std

// Any other of the library's throwing functions must be added here when something calls it: it
// would link the library's object with all of them, and the linker would report duplicate
// definitions.
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

#if __GNUC__ >= 13
// Newer libraries contain this part of the strings together with what throws.
template void string::_M_replace_cold(char*, size_type, const char*, size_type, size_type);
template void wstring::_M_replace_cold(wchar_t*, size_type, const wchar_t*, size_type, size_type);
#endif

}  // namespace std

// NOLINTEND(bugprone-reserved-identifier,readability-redundant-declaration)

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size > 0 ? size : 1);
    if (!memory) std::terminate();
    return memory;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size > 0 ? size : 1);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
