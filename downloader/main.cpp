#include <windows.h>

#include <exception>

#include "downloader/ArgumentRules.h"
#include "downloader/ResultFiles.h"
#include "downloader/Sources.h"
#include "downloader/StatusCodes.h"
#include "settings/IniOpenSave.h"
#include "win/CommandLine.h"
#include "win/Hardening.h"
#include "win/CodePage.h"

// dl.exe URL|data file|status file: fetches the URL, with no window and no question asked.
namespace downloader {
namespace {

LONG WINAPI EndAfterCrash(EXCEPTION_POINTERS*) {
    EndWith(kInternalError);
}

// Nobody may be there to answer a system box, and the caller waits until a status is written.
void EndQuietlyAfterCrashes() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(EndAfterCrash);
    std::set_terminate([] { EndWith(kInternalError); });  // memory that ran out
}

int Run() {
    const std::optional<Job> job = SplitArgument(win::ArgumentText(GetCommandLineA(), "dl.exe"));
    if (!job) return kBadArguments;
    if (const int status = OpenResultFiles(*job); status == kCannotWriteStatusFile)
        return status;
    else if (status != kSuccess)
        EndWith(status);
    EndQuietlyAfterCrashes();
    // The variable is for tests and for those who would rather not wait a minute.
    StartWatchdog(LimitSeconds(win::Environment("SKYVANE_DL_SECONDS")));
    settings::ImportStoreChoice();
    const Reply reply = FetchFrom(job->url);
    EndWith(reply.status, reply.body);
}

}  // namespace
}  // namespace downloader

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    win::HardenProcess();
    return downloader::Run();
}
