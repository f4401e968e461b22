#pragma once
#include <optional>
#include <string>

#include "win/Handle.h"

// The contract with dl.exe, the only program that opens a network connection.
namespace alerts {

// Starts dl.exe for the address and returns its process at once. If it cannot be started (missing,
// blocked), the result is empty, the data file is deleted and the status file holds the system's
// error number, as after a failed download.
win::KernelHandle StartDownloader(const std::string& address, const std::string& dataFile,
                                  const std::string& statusFile);

// Lets messages run for the moment that every waiting caller gives a new downloader.
void PauseAfterStart();

// Polled during a wait; true cancels the download.
using IsGivenUp = bool (*)();

// Waits, letting messages run, until the status file has content that can be read, and returns
// that. There is no time limit: the downloader owns time-outs. Empty when the download is
// cancelled, which ends the downloader. `downloader` must be the result of StartDownloader.
std::optional<std::string> WaitForStatus(const std::string& statusFile,
                                         win::KernelHandle& downloader,
                                         IsGivenUp isGivenUp = nullptr);

// One address downloaded into a temporary file. Its two files are deleted with it.
class Download {
  public:
    // Starts the download; the temporary files are named by the prefix.
    Download(const std::string& address, const std::string& prefix);
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;
    ~Download();

    // Whether the downloader has reported its status. Never waits.
    bool IsDone();
    // Waits, letting messages run, until the download is done or cancelled.
    void Wait(IsGivenUp isGivenUp = nullptr);
    // False until the download is done, and for one that failed or was cancelled.
    bool Succeeded() const { return succeeded_; }

    const std::string& DataFile() const { return dataFile_; }
    void DeleteFiles() const;

  private:
    void Finish(const std::optional<std::string>& status);

    std::string dataFile_;
    std::string statusFile_;
    win::KernelHandle downloader_;
    bool done_ = false;
    bool succeeded_ = false;
};

// Ends the downloads that are still under way and deletes their files; for the end of the program.
void AbandonDownloads();

}  // namespace alerts
