#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "win/Handle.h"

// The contract with dl.exe, the only program that opens network connections: it downloads one
// address into a data file and then writes its status into a status file.
namespace alerts {

// The first characters of the temporary files of the search's and of the cycle's downloads.
inline constexpr char kSearchPrefix[] = "SVA";
inline constexpr char kAlertsPrefix[] = "SVL";

// Starts dl.exe for the address and returns its process without waiting. If it cannot be started
// (missing, blocked), returns an empty handle, deletes the data file and writes the system's error
// number into the status file, as a failed download would.
win::KernelHandle StartDownloader(const std::string& address, const std::string& dataFile,
                                  const std::string& statusFile);

// Handles pending messages, then waits one clock tick; called after StartDownloader and before
// WaitForStatus.
void PauseAfterStart();

// Called repeatedly during a wait; returns true to cancel the download.
using IsCancelled = bool (*)();

// Waits, handling messages, until the status file has content that can be read, and returns that.
// There is no time limit: the downloader has its own time-outs. Returns nullopt when the download
// is cancelled, which ends the downloader, and when no downloader runs and there is no status.
// `downloader` must be the result of StartDownloader.
std::optional<std::string> WaitForStatus(const std::string& statusFile,
                                         win::KernelHandle& downloader,
                                         IsCancelled isCancelled = nullptr);

// Whether a status means success: the number at its start is 0; text without a number counts as 0.
bool IsSuccess(std::string_view status);

// A download of one address into a temporary file. The destructor deletes its files.
class Download {
  public:
    // Starts the download; the names of its temporary files begin with the prefix.
    Download(const std::string& address, const std::string& prefix);
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;
    ~Download();

    // Whether the download has ended. Never waits.
    bool IsDone();
    // Waits, handling messages, until the download has ended or is cancelled.
    void Wait(IsCancelled isCancelled = nullptr);
    // False until the download has ended, and after it has failed or was cancelled.
    bool Succeeded() const { return succeeded_; }

    // The path of the downloaded file.
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

// Ends all running downloads and deletes their files; for the shutdown.
void AbandonDownloads();

}  // namespace alerts
