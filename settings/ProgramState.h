#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "win/Handle.h"
#include "win/NeverDestroyed.h"

// The state that the whole program shares. Everything runs on one thread, but every wait handles
// messages: keep no reference into the state across a wait.
namespace settings {

struct ProgramState {
    // Folders without a trailing backslash, set at start; the data folder also by the Options
    // dialog.
    std::string programFolder;
    std::string dataFolder;
    bool storeFilesInProgramFolder = false;  // the location of the data folder in effect

    // Tray behaviour, set at start and by the Options dialog, read by the tray window.
    std::string singleClickAction;
    std::string doubleClickAction;
    std::string autoUpdateInterval;
    bool automaticUpdate = false;    // whether the minute clock runs
    std::int16_t minuteCounter = 0;  // minutes since the last cycle; reset by every cycle
    // When the last cycle ended or the minute clock started, by GetTickCount64, which includes
    // sleep.
    std::uint64_t lastCycleEnd = 0;

    // False in a second copy of the program, which exits at once.
    bool isFirstCopy = true;

    // Whether the tray shows ImageIcon2. Set by the retrieval cycle, cleared by the tray window.
    bool newAlertIconShown = false;

    // The identifiers of the alerts seen so far, joined by alerts::kBar. Loaded at start,
    // updated and saved by the retrieval cycle.
    std::string oldAlerts;

    // The station lines, set by LoadStationList. The array may be larger than the count; the extra
    // lines are empty.
    std::vector<std::string> stations;
    std::size_t stationCount = 0;

    // Marks the program as running for other processes; created last at start, closed at exit.
    win::KernelHandle runningMutex;

    // Whether the station search is open.
    bool searchDialogOpen = false;
};

// Returns the one instance.
inline ProgramState& State() {
    static ProgramState& state = win::NeverDestroyed<ProgramState>();
    return state;
}

}  // namespace settings
