#pragma once
#include "win/Handle.h"

namespace downloader {

// The process that started this one, for waiting on its end; null when it has ended already or
// cannot be opened. To be asked at the start: later its number may be another process's.
win::KernelHandle OpenCaller();

}  // namespace downloader
