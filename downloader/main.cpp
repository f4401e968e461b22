#include <windows.h>

#include <exception>

#include "downloader/Arguments.h"
#include "downloader/ResultFiles.h"
#include "downloader/Sources.h"
#include "downloader/http/Fetch.h"
#include "downloader/http/StatusCodes.h"
#include "settings/IniOpenSave.h"
#include "win/CodePage.h"
#include "win/CommandLine.h"
#include "win/Process.h"

// dl.exe URL|data file|status file: fetches the URL without a window or any user interaction.
namespace downloader {
namespace {

LONG WINAPI EndAfterCrash(EXCEPTION_POINTERS*) {
    EndWith(http::kInternalError);
}

// A crash must not show a message box: there may be no one to close it, and the caller waits until
// a status is written.
void EndQuietlyAfterCrashes() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(EndAfterCrash);
    std::set_terminate([] { EndWith(http::kInternalError); });  // out of memory
}

int Run() {
    const std::string commandLine = win::FromWide(GetCommandLineW());
    const std::optional<Job> job = ParseArgument(win::ArgumentText(commandLine, "dl.exe"));
    if (!job) return http::kBadArguments;
    if (const int status = OpenResultFiles(*job); status == http::kCannotWriteStatusFile)
        return status;
    else if (status != http::kSuccess)
        EndWith(status);
    EndQuietlyAfterCrashes();
    SetSubstitute(SubstituteForFailure(job->url));
    // The variable serves tests and users who prefer a shorter limit.
    const int limit = ParseTimeLimit(win::Environment("SKYVANE_DL_SECONDS"));
    StartWatchdog(limit);
    http::StartRetryClock(limit);
    settings::ImportStoreChoice();
    const http::Response response = FetchFromSource(job->url);
    EndWith(response.status, response.body);
}

}  // namespace
}  // namespace downloader

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    win::HardenProcess();
    return downloader::Run();
}
