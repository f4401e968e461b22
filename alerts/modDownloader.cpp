#include "alerts/modDownloader.h"

#include "alerts/AlertFeedRules.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Messages.h"
#include "win/modRandomFile.h"
#include "win/modTimeout.h"

namespace alerts {
namespace {

// How long a wait sleeps between two looks at the status file; the end of the downloader cuts it
// short.
constexpr DWORD kPollMilliseconds = 15;

// Ends the downloaders that still run when this program ends.
HANDLE DownloaderJob() {
    static const win::KernelHandle job = [] {
        win::KernelHandle made(CreateJobObjectA(nullptr, nullptr));
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made.Get(), JobObjectExtendedLimitInformation, &limits,
                                sizeof limits);
        return made;
    }();
    return job.Get();
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

void WaitForStatus(const std::string& statusFile, win::KernelHandle downloader) {
    while (!win::FileHasContent(statusFile)) {
        win::PumpOrWait(kPollMilliseconds, downloader.Get());
        // An ended downloader would end every further sleep at once.
        if (downloader && WaitForSingleObject(downloader.Get(), 0) == WAIT_OBJECT_0)
            downloader.Reset();
    }
}

Download::Download(const std::string& address, const std::string& prefix)
    : dataFile_(win::MakeTempFileName(prefix)), statusFile_(win::MakeTempFileName(prefix)) {
    WaitForStatus(statusFile_, RunDownloader(DownloadArgument(address, dataFile_, statusFile_)));
    succeeded_ = IsSuccess(win::ReadWholeFile(statusFile_).value_or(std::string()));
    win::PauseTicks(1);
}

Download::~Download() {
    win::DeleteFileQuietly(dataFile_);
    win::DeleteFileQuietly(statusFile_);
}

}  // namespace alerts
