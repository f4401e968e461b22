#include "downloader/Caller.h"

#include <winternl.h>

namespace downloader {
namespace {

// Whether the process is older than this one: a younger one has only taken over the number of one
// that has ended.
bool IsOlder(HANDLE process) {
    FILETIME started, ownStart, unused;
    return GetProcessTimes(process, &started, &unused, &unused, &unused) &&
           GetProcessTimes(GetCurrentProcess(), &ownStart, &unused, &unused, &unused) &&
           CompareFileTime(&started, &ownStart) <= 0;
}

}  // namespace

win::KernelHandle OpenCaller() {
    PROCESS_BASIC_INFORMATION self{};
    if (NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &self, sizeof self,
                                  nullptr) < 0)
        return {};
    win::KernelHandle caller(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE,
                                         static_cast<DWORD>(self.InheritedFromUniqueProcessId)));
    return caller && IsOlder(caller.Get()) ? std::move(caller) : win::KernelHandle();
}

}  // namespace downloader
