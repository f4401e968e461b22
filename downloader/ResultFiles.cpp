#include "downloader/ResultFiles.h"

#include <windows.h>
#include <winternl.h>

#include <atomic>

#include "downloader/http/StatusCodes.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace downloader {
namespace {

constexpr DWORD kGraceMilliseconds = 10'000;  // to write a result that arrived just in time
constexpr DWORD kRetryMilliseconds = 250;
constexpr int kTriesWithoutParent = 20;
constexpr int kTriesToDelete = 8;

std::string& dataFile = win::NeverDestroyed<std::string>();
std::string& statusPath = win::NeverDestroyed<std::string>();
// Kept open so that no other process can lock it before the end.
win::FileHandle& statusFile = win::NeverDestroyed<win::FileHandle>();
std::string& substitute = win::NeverDestroyed<std::string>();
win::KernelHandle& parent = win::NeverDestroyed<win::KernelHandle>();
std::atomic_flag isEnding;
std::atomic_flag isReporting;

win::FileHandle CreateEmptyFile(const std::string& path) {
    return win::FileHandle(CreateFileW(win::ToWide(path).c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Whether the process was started before this one. A later one merely reuses the identifier of a
// process that has ended.
bool IsOlder(HANDLE process) {
    FILETIME started, ownStart, unused;
    return GetProcessTimes(process, &started, &unused, &unused, &unused) &&
           GetProcessTimes(GetCurrentProcess(), &ownStart, &unused, &unused, &unused) &&
           CompareFileTime(&started, &ownStart) <= 0;
}

// Opens the parent process so that its end can be waited for; empty when it has already ended or
// cannot be opened. Called at the start, before its identifier can be reused.
win::KernelHandle OpenParent() {
    PROCESS_BASIC_INFORMATION self{};
    if (NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &self, sizeof self,
                                  nullptr) < 0)
        return {};
    win::KernelHandle process(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE,
                                          static_cast<DWORD>(self.InheritedFromUniqueProcessId)));
    return process && IsOlder(process.Get()) ? std::move(process) : win::KernelHandle();
}

// Repeats the attempt a few times a second until it succeeds, for as long as the parent process
// lives, or for some seconds when the parent is unknown. Returns whether it succeeded.
template <class Attempt>
bool RetryForParent(Attempt attempt) {
    for (int tries = 1; !attempt(); ++tries) {
        if (parent) {
            if (WaitForSingleObject(parent.Get(), kRetryMilliseconds) != WAIT_TIMEOUT) return false;
        } else {
            if (tries == kTriesWithoutParent) return false;
            Sleep(kRetryMilliseconds);
        }
    }
    return true;
}

// Retries because a virus scanner may hold the file for a moment. The file must not remain: the
// version check does not look at the status.
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
    // Only one thread may report: a second one would delete the data of a success or overwrite the
    // status of a failure.
    if (isReporting.test_and_set()) SleepUntilTheEnd();
    if (status != http::kSuccess) DeleteDataFile();
    if (!win::WriteAll(statusFile.Get(), win::Decimal(status))) {
        // The disk may be full: deleting the body frees space for the status.
        DeleteDataFile();
        if (status == http::kSuccess) status = http::kCannotWriteStatusFile;
        RetryForParent([status] {
            return win::WriteAll(CreateEmptyFile(statusPath).Get(), win::Decimal(status));
        });
    }
    // An orderly exit could wait for a hanging network thread.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    SleepUntilTheEnd();
}

// Replaces a failure by the substitute, unless the cause is on this computer.
[[noreturn]] void WriteResultAndDie(int status, std::string_view body) {
    if (status != http::kSuccess && status != http::kNoGazetteer && !substitute.empty()) {
        status = http::kSuccess;
        body = substitute;
    }
    // The handle is closed in this statement: the caller may open the file once it sees the status.
    if (status == http::kSuccess && !win::WriteAll(CreateEmptyFile(dataFile).Get(), body))
        status = http::kCannotWriteDataFile;
    WriteStatusAndDie(status);
}

DWORD WINAPI Watch(void* milliseconds) {
    Sleep(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(milliseconds)));
    if (!isEnding.test_and_set()) WriteResultAndDie(http::kOverallTimeout, {});
    Sleep(kGraceMilliseconds);
    WriteStatusAndDie(http::kOverallTimeout);
}

}  // namespace

int OpenResultFiles(const Job& job) {
    parent = OpenParent();
    dataFile = job.dataFile;
    statusPath = job.statusFile;
    // A virus scanner may hold the new file for a moment.
    RetryForParent([] {
        statusFile = CreateEmptyFile(statusPath);
        return static_cast<bool>(statusFile);
    });
    const bool isDataEmpty = static_cast<bool>(CreateEmptyFile(dataFile));
    if (!statusFile) return http::kCannotWriteStatusFile;
    return isDataEmpty ? http::kSuccess : http::kCannotWriteDataFile;
}

void EndWith(int status, std::string_view body) {
    if (isEnding.test_and_set()) SleepUntilTheEnd();
    WriteResultAndDie(status, body);
}

void SetSubstitute(std::string document) {
    substitute = std::move(document);
}

void StartWatchdog(int seconds) {
    constexpr SIZE_T kStack = 64 * 1024;
    const ULONG_PTR milliseconds = static_cast<ULONG_PTR>(seconds) * 1000;
    const win::KernelHandle thread(CreateThread(nullptr, kStack, Watch,
                                                reinterpret_cast<void*>(milliseconds),
                                                STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    if (!thread) EndWith(http::StatusOfSystemError(GetLastError()));
}

}  // namespace downloader
