#include "downloader/feed/AlertMemoryFile.h"

#include <windows.h>

#include "win/Files.h"
#include "win/Process.h"
#include "win/modRandomFile.h"

namespace feed {
namespace {

constexpr std::uint64_t kLongestFile = 1 << 20;  // bytes

// Returns the path; empty when there is no temporary folder.
std::string MemoryFile() {
    const std::string folder = win::GetTempFolder();
    return folder.empty() ? folder : folder + "SkyvaneAlerts.events.cache";
}

}  // namespace

AlertMemory LoadAlertMemory() {
    const auto text = win::ReadWholeFile(MemoryFile(), kLongestFile);
    return text ? AlertMemory(*text) : AlertMemory();
}

void SaveAlertMemory(AlertMemory memory, std::int64_t now) {
    constexpr DWORD kLongestWait = 2000;  // milliseconds
    const std::string file = MemoryFile();
    if (file.empty() || !memory.IsChanged()) return;
    // Another copy may have saved since this one read the file.
    const win::NamedMutex mutex = win::MakeNamedMutex("SkyvaneAlertsEvents");
    const DWORD wait = WaitForSingleObject(mutex.handle.Get(), kLongestWait);
    const bool isOwned = wait == WAIT_OBJECT_0 || wait == WAIT_ABANDONED;
    memory.Merge(LoadAlertMemory());
    win::WriteFileAtomically(file, memory.Text(now));
    if (isOwned) ReleaseMutex(mutex.handle.Get());
}

}  // namespace feed
