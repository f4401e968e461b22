#include "options/frmOptions.h"
#include "tray/TrayCommands.h"

// Where the tray's wish for the Options dialog leads.
namespace tray {

void ShowOptions() {
    options::ShowOptionsDialog();
}

}  // namespace tray
