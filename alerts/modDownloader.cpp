#include "alerts/modDownloader.h"

#include <algorithm>
#include <vector>

#include "alerts/AlertFeedRules.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Messages.h"
#include "win/Text.h"
#include "win/modRandomFile.h"
#include "win/modTimeout.h"
#include "win/NeverDestroyed.h"

namespace alerts {
namespace {

// How long a wait sleeps between two looks at the status file; the downloader's end cuts it short.
constexpr DWORD kPollMilliseconds = 15;

// The downloads that have not been destroyed yet.
std::vector<const Download*>& underWay = win::NeverDestroyed<std::vector<const Download*>>();

// Ends the downloaders that still run when this program ends.
HANDLE DownloaderJob() {
    static const HANDLE job = [] {
        const HANDLE made = CreateJobObjectA(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;  // the system closes it when the process ends
    }();
    return job;
}

// Ends the downloader and waits until it is gone, so that it holds no file any more.
void EndDownloader(const win::KernelHandle& downloader) {
    constexpr DWORD enough = 2000;
    if (downloader && TerminateProcess(downloader.Get(), 1))
        WaitForSingleObject(downloader.Get(), enough);
}

// The status, once the file has content. A virus scanner may hold the new file for a moment: a file
// that cannot be read is not a success.
std::optional<std::string> ReadStatus(const std::string& statusFile) {
    if (!win::FileHasContent(statusFile)) return std::nullopt;
    auto text = win::ReadWholeFile(statusFile);
    return text && !text->empty() ? text : std::nullopt;
}

}  // namespace

win::KernelHandle StartDownloader(const std::string& address, const std::string& dataFile,
                                  const std::string& statusFile) {
    const std::string& folder = settings::State().programFolder;
    const std::string program = folder + "\\dl.exe";
    std::string commandLine = program + " " + DownloadArgument(address, dataFile, statusFile);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_FORCEOFFFEEDBACK;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process{};
    // The program is named apart from its command line, so that a space in the path names no other.
    if (CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       folder.c_str(), &startup, &process)) {
        CloseHandle(process.hThread);
        AssignProcessToJobObject(DownloaderJob(), process.hProcess);
        return win::KernelHandle(process.hProcess);
    }
    // Never 0, which would be a success.
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
                                         win::KernelHandle& downloader, IsGivenUp isGivenUp) {
    const bool started = static_cast<bool>(downloader);
    for (;;) {
        if (isGivenUp && isGivenUp()) {
            EndDownloader(downloader);
            return std::nullopt;
        }
        if (auto status = ReadStatus(statusFile)) return status;
        // Without a downloader, and with no room even for its status, nothing would ever come.
        if (!started) return std::nullopt;
        win::PumpOrWait(kPollMilliseconds, downloader.Get());
        // A downloader that has ended would end every further sleep at once.
        if (downloader && WaitForSingleObject(downloader.Get(), 0) == WAIT_OBJECT_0)
            downloader.Reset();
    }
}

Download::Download(const std::string& address, const std::string& prefix)
    : dataFile_(win::MakeTempFileName(prefix)), statusFile_(win::MakeTempFileName(prefix)) {
    underWay.push_back(this);
    // Without temporary files, in a full folder for example, no status would ever come.
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

void Download::Wait(IsGivenUp isGivenUp) {
    if (done_) return;
    PauseAfterStart();
    Finish(WaitForStatus(statusFile_, downloader_, isGivenUp));
    win::PauseTicks(1);
}

void Download::Finish(const std::optional<std::string>& status) {
    done_ = true;
    succeeded_ = status && IsSuccess(*status);
}

Download::~Download() {
    DeleteFiles();
    std::erase(underWay, this);
}

void Download::DeleteFiles() const {
    win::DeleteFileQuietly(dataFile_);
    win::DeleteFileQuietly(statusFile_);
}

void AbandonDownloads() {
    TerminateJobObject(DownloaderJob(), 0);
    for (const Download* download : underWay) download->DeleteFiles();
}

}  // namespace alerts
