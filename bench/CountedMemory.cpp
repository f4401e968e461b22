#include "bench/CountedMemory.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t kHeader = 16;  // bytes before each allocation, which hold its size
std::size_t allocated = 0;
std::size_t peak = 0;

}  // namespace

std::size_t bench::ResetPeak() {
    return peak = allocated;
}

std::size_t bench::Peak() {
    return peak;
}

void* operator new(std::size_t size) {
    char* const memory = static_cast<char*>(std::malloc(size + kHeader));
    if (!memory) std::abort();
    *reinterpret_cast<std::size_t*>(memory) = size;
    allocated += size;
    peak = std::max(peak, allocated);
    return memory + kHeader;
}
void operator delete(void* memory) noexcept {
    if (!memory) return;
    char* const start = static_cast<char*>(memory) - kHeader;
    allocated -= *reinterpret_cast<std::size_t*>(start);
    std::free(start);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
