#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

// The JSON library makes an exception and a text of an error even where nobody asks for them, and
// with these come old kinds of string, locales and a printing of numbers to every taste: 145 KB for
// nothing. These stand-ins come before the libraries' own as win/Terminate.cpp's do, as an object
// of dl.exe.
namespace std {

__cow_string::__cow_string() : _M_p(nullptr) {}
__cow_string::~__cow_string() {}

runtime_error::runtime_error(const char*) {}
runtime_error::runtime_error(const runtime_error& other) noexcept : exception(other) {}
runtime_error::~runtime_error() noexcept {}
const char* runtime_error::what() const noexcept {
    return "";
}

}  // namespace std

extern "C" {

// Its caller has checked the text: all of it is a number, written with the present decimal point.
double __mingw_strtod(const char* text, char** end) {
    *end = const_cast<char*>(text) + std::strlen(text);
    return atof(text);
}

int __mingw_snprintf(char* text, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnprintf(text, size, format, arguments);
    va_end(arguments);
    return length;
}
}
