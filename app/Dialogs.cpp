#include "options/frmOptions.h"
#include "settings/IniOpenSave.h"
#include "tray/OptionsDialog.h"

// Implemented here because the tray must not include options/.
namespace tray {

void ShowOptions() {
    options::ShowOptionsDialog();
}

void ShowStationOptions() {
    settings::WriteSetting(settings::kLastOption, settings::kStationsPage);
    ShowOptions();
}

}  // namespace tray
