#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "win/Handle.h"
#include "win/NeverDestroyed.h"

// What the whole program shares. Everything runs on one thread, but every wait lets messages run:
// keep no reference into it across a wait.
namespace settings {

struct ProgramState {
    // Folders, set by start-up; the data folder also by the Options dialog's Apply.
    std::string programFolder;  // no trailing backslash; read by everyone
    std::string dataFolder;     // no trailing backslash; read by stations, search, Options
    bool storeFilesInProgramFolder = false;  // the store location in effect; read by Options

    // Tray behaviour, set by start-up and Apply, read by the tray window.
    std::string singleClickAction;
    std::string doubleClickAction;
    std::string autoUpdateInterval;
    bool automaticUpdate = false;    // whether the minute clock goes on
    std::int16_t minuteCounter = 0;  // minutes since the last cycle; reset by every cycle
    // When the last cycle ended or the minute clock was started, by GetTickCount64, which counts
    // sleep; read by the minute clock.
    std::uint64_t lastCycleEnd = 0;

    // False in a second copy of the program, which ends at once; set by the entry point, read by
    // the shutdown.
    bool isFirstCopy = true;

    // Set by the retrieval cycle, cleared by the tray window: ImageIcon2 is on the tray icon.
    bool newAlertIconShown = false;

    // Identifiers of the alerts seen so far, joined by a broken bar; loaded by start-up, grown by
    // the feed parser, trimmed and saved by the retrieval cycle.
    std::string oldAlerts;

    // The station lines, filled by LoadStationList. The array may be larger than the count; what is
    // behind the count is empty. Read by the cycle, the menus and Options.
    std::vector<std::string> stations;
    std::size_t stationCount = 0;

    // Marks the program as running for other processes; made last by start-up, closed at exit.
    win::KernelHandle runningMutex;

    // True while the station search dialog lives.
    bool searchDialogOpen = false;
};

// Returns the one instance.
inline ProgramState& State() {
    static ProgramState& state = win::NeverDestroyed<ProgramState>();
    return state;
}

}  // namespace settings
