#include "alerts/VersionCheck.h"

#include <optional>
#include <string>

#include "alerts/modDownloader.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/MessageBoxes.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Shell.h"
#include "win/Text.h"

namespace alerts {
namespace {

// Whether the file's text, without spaces at its ends, is too long for a version: an error page.
bool IsTooLong(std::string_view fileText) {
    constexpr std::size_t kTooLong = 21;
    return win::CountChars(win::Trim(fileText)) >= kTooLong;
}

// Returns the text with leading spaces and trailing spaces and line breaks trimmed.
std::string OfferedVersion(std::string_view fileText) {
    std::string_view version = win::Trim(fileText);
    while (version.ends_with('\n') || version.ends_with('\r')) version.remove_suffix(1);
    return std::string(win::Trim(version));
}

// The digits of a version as one 16-bit number, deliberately: 1.2.10 (1210) is newer than 1.3.0
// (130). 0 for any other text.
std::int16_t VersionNumber(std::string_view version) {
    const std::string digits = win::ReplaceAll(version, ".", "");
    return win::IsNumeric(digits) ? win::LeadingInt16(digits) : std::int16_t{0};
}

bool IsNewer(const std::string& offered, const std::string& running) {
    return VersionNumber(win::ReplaceAll(offered, "\r\n", "")) > VersionNumber(running);
}

void ReportFailure() {
    settings::ShowMessage(
        nullptr,
        "The attempt to check for an updated version of Skyvane Alerts failed!\r\n\r\n"
        "Please visit " +
            settings::MakerHost() + " to check for a new version.",
        MB_ICONEXCLAMATION);
}

void OfferDownload(HWND owner, const std::string& version, bool interactive) {
    if (!interactive && settings::ReadSetting(settings::kCheckVersion) == version) return;
    settings::WriteSetting(settings::kCheckVersion, version);
    if (settings::Confirm(
            nullptr,
            "Skyvane Alerts v" + version + " is available!  Would you like to download it now?",
            MB_ICONINFORMATION))
        win::OpenInBrowser(owner, settings::DownloadPage());
}

void Check(HWND owner, bool interactive) {
    // The names are fixed: after a failure both files remain, and the next check finds the old
    // status at once.
    const std::string folder = settings::State().programFolder;
    const std::string dataFile = folder + "\\che.sk";
    const std::string statusFile = folder + "\\chet.sk";
    // For example a folder installed for all users: the downloader could not write its status.
    if (!win::IsFolderWritable(folder)) {
        if (interactive) ReportFailure();
        return;
    }
    win::KernelHandle downloader = StartDownloader(settings::VersionFile(), dataFile, statusFile);
    PauseAfterStart();
    // The status is not used: the data file alone decides.
    WaitForStatus(statusFile, downloader);
    const std::optional<std::string> text = win::ReadWholeFile(dataFile);
    if (!text || OfferedVersion(*text).empty() || IsTooLong(*text)) {
        if (interactive) ReportFailure();
        return;
    }
    win::DeleteFileQuietly(dataFile);
    win::DeleteFileQuietly(statusFile);
    const std::string offered = OfferedVersion(*text);
    if (IsNewer(offered, settings::ReadSetting(settings::kVersion)))
        OfferDownload(owner, offered, interactive);
    else if (interactive)
        settings::ShowMessage(nullptr, "You are using the latest version of Skyvane Alerts.",
                              MB_ICONINFORMATION);
}

}  // namespace

void CheckVersion(HWND owner, std::string_view mode) {
    static bool isChecking = false;
    if (isChecking) return;
    isChecking = true;
    Check(owner, mode == "Yes");
    isChecking = false;
}

}  // namespace alerts
