#include "options/frmOptions.h"
#include "settings/IniOpenSave.h"
#include "tray/OptionsDialog.h"

// The tray opens the Options dialog, which is above it.
namespace tray {

void ShowOptions() {
    options::ShowOptionsDialog();
}

void ShowStationOptions() {
    settings::WriteSetting(settings::kLastOption, settings::kStationsPage);
    ShowOptions();
}

}  // namespace tray
