#pragma once
#include <cstddef>

// Counts the memory that the program allocates with `new`, in bytes. CountedMemory.cpp replaces the
// allocation functions of the whole benchmark.
namespace bench {

// Starts a new peak and returns what is allocated now.
std::size_t ResetPeak();

// Returns the most that was allocated at a time since ResetPeak.
std::size_t Peak();

}  // namespace bench
