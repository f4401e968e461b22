#include "downloader/ResultFiles.h"

#include <windows.h>

#include <atomic>

#include "downloader/Caller.h"
#include "downloader/StatusCodes.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace downloader {
namespace {

constexpr DWORD kGraceMilliseconds = 10'000;  // for writing down a result that came just in time
constexpr DWORD kRetryMilliseconds = 250;
constexpr int kTriesWithoutCaller = 20;
constexpr int kTriesToDelete = 8;

std::string& dataFile = win::NeverDestroyed<std::string>();
std::string& statusPath = win::NeverDestroyed<std::string>();
// Held, so that nobody can lock us out before the end.
win::FileHandle& statusFile = win::NeverDestroyed<win::FileHandle>();
win::KernelHandle& caller = win::NeverDestroyed<win::KernelHandle>();
std::atomic_flag isEnding;
std::atomic_flag isReporting;

win::FileHandle MakeEmptyFile(const std::string& path) {
    return win::FileHandle(CreateFileA(path.c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool Write(const win::FileHandle& file, std::string_view text) {
    DWORD written = 0;
    return file &&
           WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
           written == text.size();
}

// Repeats the attempt until it succeeds, a few times a second, for as long as the caller lives; for
// some seconds when the caller is not known. Whether it succeeded.
template <class Attempt>
bool TryForCaller(Attempt attempt) {
    for (int tries = 1; !attempt(); ++tries) {
        if (caller) {
            if (WaitForSingleObject(caller.Get(), kRetryMilliseconds) != WAIT_TIMEOUT) return false;
        } else {
            if (tries == kTriesWithoutCaller) return false;
            Sleep(kRetryMilliseconds);
        }
    }
    return true;
}

// A scanner may hold the file for a moment. It must not stay: the version check looks at nothing
// else.
void DeleteDataFile() {
    for (int tries = 0; tries < kTriesToDelete; ++tries) {
        win::DeleteFileQuietly(dataFile);
        if (!win::FileExists(dataFile)) return;
        Sleep(kRetryMilliseconds);
    }
}

[[noreturn]] void SleepUntilTheEnd() {
    for (;;) Sleep(INFINITE);
}

[[noreturn]] void WriteStatusAndDie(int status) {
    // One thread alone: the other would delete the data of a success, or report over a failure.
    if (isReporting.test_and_set()) SleepUntilTheEnd();
    if (status != kSuccess) DeleteDataFile();
    if (!Write(statusFile, win::Decimal(status))) {
        // The disk is full, say: without the body there is room for the status.
        DeleteDataFile();
        if (status == kSuccess) status = kCannotWriteStatusFile;
        TryForCaller([status] { return Write(MakeEmptyFile(statusPath), win::Decimal(status)); });
    }
    // At once: an orderly exit could still wait for a hanging network thread.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    SleepUntilTheEnd();
}

DWORD WINAPI Watch(void* milliseconds) {
    Sleep(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(milliseconds)));
    if (isEnding.test_and_set()) Sleep(kGraceMilliseconds);
    WriteStatusAndDie(kOverallTimeout);
}

}  // namespace

int OpenResultFiles(const Job& job) {
    caller = OpenCaller();
    dataFile = job.dataFile;
    statusPath = job.statusFile;
    // A scanner may hold the new file for a moment.
    TryForCaller([] {
        statusFile = MakeEmptyFile(statusPath);
        return static_cast<bool>(statusFile);
    });
    const bool isDataEmpty = static_cast<bool>(MakeEmptyFile(dataFile));
    if (!statusFile) return kCannotWriteStatusFile;
    return isDataEmpty ? kSuccess : kCannotWriteDataFile;
}

void EndWith(int status, std::string_view body) {
    if (isEnding.test_and_set()) SleepUntilTheEnd();
    // Closed within the statement: the caller may open the file once it sees the status.
    if (status == kSuccess && !Write(MakeEmptyFile(dataFile), body)) status = kCannotWriteDataFile;
    WriteStatusAndDie(status);
}

void StartWatchdog(int seconds) {
    constexpr SIZE_T kStack = 64 * 1024;
    const ULONG_PTR milliseconds = static_cast<ULONG_PTR>(seconds) * 1000;
    const win::KernelHandle thread(CreateThread(nullptr, kStack, Watch,
                                                reinterpret_cast<void*>(milliseconds),
                                                STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    if (!thread) EndWith(StatusOfSystemError(GetLastError()));
}

}  // namespace downloader
