#include "alerts/modDownloader.h"

#include <algorithm>
#include <vector>

#include "settings/ProgramState.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/MessageLoop.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"
#include "win/modRandomFile.h"
#include "win/modTimeout.h"

namespace alerts {
namespace {

// The interval at which a wait checks the status file; the downloader's end cuts it short.
constexpr DWORD kPollMilliseconds = 15;

// All Download objects that exist.
std::vector<const Download*>& downloads = win::NeverDestroyed<std::vector<const Download*>>();

// A job that ends its downloaders when this program ends, however it ends.
HANDLE DownloaderJob() {
    static const HANDLE job = [] {
        const HANDLE created = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(created, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return created;  // the system closes it when the process ends
    }();
    return job;
}

// Terminates the downloader and waits until it has closed its files.
void EndDownloader(const win::KernelHandle& downloader) {
    constexpr DWORD kLongestWait = 2000;
    if (downloader && TerminateProcess(downloader.Get(), 1))
        WaitForSingleObject(downloader.Get(), kLongestWait);
}

// The status, or nullopt until the file has content that can be read: a virus scanner may lock the
// new file for a moment.
std::optional<std::string> ReadStatus(const std::string& statusFile) {
    if (!win::FileHasContent(statusFile)) return std::nullopt;
    auto text = win::ReadWholeFile(statusFile);
    return text && !text->empty() ? text : std::nullopt;
}

// The only argument of dl.exe.
std::string DownloadArgument(const std::string& address, const std::string& dataFile,
                             const std::string& statusFile) {
    return address + "|" + dataFile + "|" + statusFile;
}

}  // namespace

win::KernelHandle StartDownloader(const std::string& address, const std::string& dataFile,
                                  const std::string& statusFile) {
    const std::string& folder = settings::State().programFolder;
    const std::string program = folder + "\\dl.exe";
    std::wstring commandLine =
        win::ToWide(program + " " + DownloadArgument(address, dataFile, statusFile));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_FORCEOFFFEEDBACK;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process{};
    // The program is passed separately: in the command line alone, a space in its path would end
    // its name.
    if (CreateProcessW(win::ToWide(program).c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0,
                       nullptr, win::ToWide(folder).c_str(), &startup, &process)) {
        const win::KernelHandle thread(process.hThread);
        AssignProcessToJobObject(DownloaderJob(), process.hProcess);
        return win::KernelHandle(process.hProcess);
    }
    // Never 0, which would mean success.
    const DWORD error = std::max<DWORD>(GetLastError(), ERROR_INVALID_FUNCTION);
    win::DeleteFileQuietly(dataFile);
    win::OverwriteFile(statusFile, win::Decimal(error));
    return {};
}

void PauseAfterStart() {
    win::PumpPendingMessages();
    win::PauseTicks(1);
}

std::optional<std::string> WaitForStatus(const std::string& statusFile,
                                         win::KernelHandle& downloader, IsCancelled isCancelled) {
    const bool started = static_cast<bool>(downloader);
    for (;;) {
        if (isCancelled && isCancelled()) {
            EndDownloader(downloader);
            return std::nullopt;
        }
        if (auto status = ReadStatus(statusFile)) return status;
        // No downloader runs, and the disk is too full even for its status.
        if (!started) return std::nullopt;
        win::PumpOrWait(kPollMilliseconds, downloader.Get());
        // The handle of a downloader that has ended would end every later wait at once.
        if (downloader && WaitForSingleObject(downloader.Get(), 0) == WAIT_OBJECT_0)
            downloader.Reset();
    }
}

bool IsSuccess(std::string_view status) {
    return win::LeadingNumber(status) == 0;
}

Download::Download(const std::string& address, const std::string& prefix)
    : dataFile_(win::MakeTempFileName(prefix)), statusFile_(win::MakeTempFileName(prefix)) {
    downloads.push_back(this);
    // Without temporary files (for example in a full folder) there would never be a status.
    done_ = dataFile_.empty() || statusFile_.empty();
    if (done_) return;
    downloader_ = StartDownloader(address, dataFile_, statusFile_);
    done_ = !downloader_;
}

bool Download::IsDone() {
    if (done_) return true;
    if (const auto status = ReadStatus(statusFile_)) Finish(status);
    return done_;
}

void Download::Wait(IsCancelled isCancelled) {
    if (done_) return;
    PauseAfterStart();
    Finish(WaitForStatus(statusFile_, downloader_, isCancelled));
    win::PauseTicks(1);
}

void Download::Finish(const std::optional<std::string>& status) {
    done_ = true;
    succeeded_ = status && IsSuccess(*status);
}

Download::~Download() {
    DeleteFiles();
    std::erase(downloads, this);
}

void Download::DeleteFiles() const {
    win::DeleteFileQuietly(dataFile_);
    win::DeleteFileQuietly(statusFile_);
}

void AbandonDownloads() {
    TerminateJobObject(DownloaderJob(), 0);
    for (const Download* download : downloads) download->DeleteFiles();
}

}  // namespace alerts
