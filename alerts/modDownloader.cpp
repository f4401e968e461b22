#include "alerts/modDownloader.h"

#include <vector>

#include "alerts/AlertFeedRules.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Messages.h"
#include "win/modRandomFile.h"
#include "win/modTimeout.h"
#include "win/NeverDestroyed.h"

namespace alerts {
namespace {

// How long a wait sleeps between two looks at the status file; the end of the downloader cuts it
// short.
constexpr DWORD kPollMilliseconds = 15;

// The downloads whose waits are on the stack, one inside the other.
std::vector<const Download*>& underWay = win::NeverDestroyed<std::vector<const Download*>>();

// Ends the downloaders that still run when this program ends.
HANDLE DownloaderJob() {
    static const HANDLE job = [] {
        const HANDLE made = CreateJobObjectA(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return job;
}

// Ends it and sees it gone, so that it holds no file any more.
void EndDownloader(const win::KernelHandle& downloader) {
    constexpr DWORD enough = 2000;
    if (downloader && TerminateProcess(downloader.Get(), 1))
        WaitForSingleObject(downloader.Get(), enough);
}

}  // namespace

win::KernelHandle RunDownloader(const std::string& argument) {
    const std::string program = settings::State().programFolder + "\\dl.exe";
    std::string commandLine = program + " " + argument;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_FORCEOFFFEEDBACK;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process{};
    win::KernelHandle downloader;
    // The program is named apart from its command line, so that a blank in the path names no other.
    if (CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       settings::State().programFolder.c_str(), &startup, &process)) {
        CloseHandle(process.hThread);
        downloader.Reset(process.hProcess);
        AssignProcessToJobObject(DownloaderJob(), downloader.Get());
    }
    win::PumpPendingMessages();
    win::PauseTicks(1);
    return downloader;
}

std::string WaitForStatus(const std::string& statusFile, win::KernelHandle downloader,
                          IsGivenUp isGivenUp) {
    for (;;) {
        if (isGivenUp && isGivenUp()) {
            EndDownloader(downloader);
            return {};
        }
        if (win::FileHasContent(statusFile)) {
            // A virus scanner may hold the new file for a moment: unread is not success.
            if (const auto text = win::ReadWholeFile(statusFile)) return *text;
        }
        win::PumpOrWait(kPollMilliseconds, downloader.Get());
        // An ended downloader would end every further sleep at once.
        if (downloader && WaitForSingleObject(downloader.Get(), 0) == WAIT_OBJECT_0)
            downloader.Reset();
    }
}

Download::Download(const std::string& address, const std::string& prefix, IsGivenUp isGivenUp)
    : dataFile_(win::MakeTempFileName(prefix)), statusFile_(win::MakeTempFileName(prefix)) {
    underWay.push_back(this);
    if (dataFile_.empty() || statusFile_.empty())
        return;  // no room, say: no status would ever come
    const std::string status = WaitForStatus(
        statusFile_, RunDownloader(DownloadArgument(address, dataFile_, statusFile_)), isGivenUp);
    if (isGivenUp && isGivenUp()) return;
    succeeded_ = IsSuccess(status);
    win::PauseTicks(1);
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
