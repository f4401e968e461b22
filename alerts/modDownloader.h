#pragma once
#include <string>

#include "win/Handle.h"

// The contract with dl.exe, the only program that opens a network connection.
namespace alerts {

// Starts dl.exe with the argument text and lets messages run for a moment. The handle is the
// running downloader's, empty when it could not be started.
win::KernelHandle RunDownloader(const std::string& argument);

// Asked now and then during a wait: true gives the fetch up.
using IsGivenUp = bool (*)();

// Waits, letting messages run, until the status file has content that can be read, and gives it.
// There is no time limit: the downloader owns time-outs. A fetch that is given up ends its
// downloader and has an empty status.
std::string WaitForStatus(const std::string& statusFile, win::KernelHandle downloader,
                          IsGivenUp isGivenUp = nullptr);

// One address fetched into a temporary file, which goes with this object.
class Download {
  public:
    // Fetches the address, letting messages run; the files are named by the prefix. A fetch that
    // is given up has not succeeded.
    Download(const std::string& address, const std::string& prefix, IsGivenUp isGivenUp = nullptr);
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;
    ~Download();

    bool Succeeded() const { return succeeded_; }
    const std::string& DataFile() const { return dataFile_; }
    void DeleteFiles() const;

  private:
    std::string dataFile_;
    std::string statusFile_;
    bool succeeded_ = false;
};

// Ends the downloads that are still under way and deletes their files; for the end of the program.
void AbandonDownloads();

}  // namespace alerts
