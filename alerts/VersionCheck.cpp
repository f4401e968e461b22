#include "alerts/VersionCheck.h"

#include <optional>
#include <string>

#include "alerts/VersionRules.h"
#include "alerts/modDownloader.h"
#include "settings/Hosts.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Messages.h"
#include "win/Shell.h"

namespace alerts {
namespace {

void TellFailure() {
    win::ShowMessage(nullptr,
                     "The attempt to check for an updated version of Skyvane Alerts failed!\r\n\r\n"
                     "Please visit " +
                         settings::MakerHost() + " to check for a new version.",
                     MB_ICONEXCLAMATION);
}

void OfferDownload(HWND owner, const std::string& version, bool interactive) {
    if (!interactive && settings::ReadSetting(settings::kCheckVersion) == version) return;
    settings::WriteSetting(settings::kCheckVersion, version);
    if (win::Confirm(
            nullptr,
            "Skyvane Alerts v" + version + " is available!  Would you like to download it now?",
            MB_ICONINFORMATION))
        win::OpenInBrowser(owner, settings::MakerHost() + "/Skyvane-Alerts.asp");
}

void Check(HWND owner, bool interactive) {
    // Fixed names: after a failure both files stay, and the next check finds the old status at
    // once.
    const std::string folder = settings::State().programFolder;
    const std::string dataFile = folder + "\\che.sk";
    const std::string statusFile = folder + "\\chet.sk";
    // A folder like those of programs installed for everyone: no status would ever come.
    if (!win::IsFolderWritable(folder)) {
        if (interactive) TellFailure();
        return;
    }
    win::KernelHandle downloader =
        StartDownloader(settings::MakerHost() + "/SVAlerts.txt", dataFile, statusFile);
    PauseAfterStart();
    // The status itself does not count: the data file alone decides.
    WaitForStatus(statusFile, downloader);
    const std::optional<std::string> text = win::ReadWholeFile(dataFile);
    if (!text || OfferedVersion(*text).empty() || IsVersionTooLong(*text)) {
        if (interactive) TellFailure();
        return;
    }
    win::DeleteFileQuietly(dataFile);
    win::DeleteFileQuietly(statusFile);
    const std::string offered = OfferedVersion(*text);
    if (IsNewerVersion(offered, settings::ReadSetting(settings::kVersion)))
        OfferDownload(owner, offered, interactive);
    else if (interactive)
        win::ShowMessage(nullptr, "You are using the latest version of Skyvane Alerts.",
                         MB_ICONINFORMATION);
}

}  // namespace

void CheckVersion(HWND owner, std::string_view mode) {
    static bool checking = false;
    if (checking) return;
    checking = true;
    Check(owner, mode == "Yes");
    checking = false;
}

}  // namespace alerts
