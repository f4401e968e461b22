#pragma once
#include <array>
#include <string_view>

// The settings of the program with their captions and defaults. The store has no defaults: a
// missing value reads as the empty text. Where two readers of a setting treat that differently,
// each default is named for its reader.
namespace settings {

// One value of the settings store.
struct Setting {
    const char* section;
    const char* key;
};

inline constexpr char kTrue[] = "True";
inline constexpr char kFalse[] = "False";

inline constexpr char kOptions[] = "Options";
inline constexpr char kMisc[] = "Misc";
inline constexpr char kAlerts[] = "Alerts";
inline constexpr char kHosts[] = "Hosts";

// General page.
inline constexpr Setting kStoreFilesInProgramFolder{kOptions, "StoreFilesInProgramFolder"};
inline constexpr Setting kRetrieveAlertsOnStartup{kOptions, "RetrieveAlertsOnStartup"};
inline constexpr Setting kPause30SecondsOnStartup{kOptions, "Pause30SecondsOnStartup"};
inline constexpr Setting kStartWithWindows{kOptions, "StartWithWindows"};
inline constexpr Setting kAutoUpdateInterval{kOptions, "AutoUpdateInterval"};

// Tray Icon page. The value of an icon is a path, kDefaultIcon, or empty.
inline constexpr Setting kSingleClickAction{kOptions, "SingleClickAction"};
inline constexpr Setting kDoubleClickAction{kOptions, "DoubleClickAction"};
inline constexpr Setting kIcon{kOptions, "Icon"};
inline constexpr Setting kIcon2{kOptions, "Icon2"};
inline constexpr char kDefaultIcon[] = "default";

// Tray Alerts page. The balloon is shown only for "True", but the check box is ticked unless the
// value is "False": without a value they deliberately differ.
inline constexpr Setting kDisplayTrayAlert{kOptions, "DisplayTrayAlert"};
// Enables the sound. The program never writes it; users set it by hand.
inline constexpr Setting kFlashTrayIcon{kOptions, "FlashTrayIcon"};
inline constexpr Setting kTrayAlertSound{kOptions, "TrayAlertSound"};
inline constexpr char kNoSound[] = "(None)";

// Internet page. The first is stored and shown but deliberately has no effect on downloads. The
// other two are scrambled, see ProxyLogin.h.
inline constexpr Setting kOnlyDownloadWhenConnected{kOptions, "OnlyDownloadWhenConnected"};
inline constexpr Setting kProxyUsername{kOptions, "ProxyUsername"};
inline constexpr Setting kProxyPassword{kOptions, "ProxyPassword"};

// Alert Filters page: the words, joined by the separator, and whether alerts with them are the only
// ones shown, or are hidden.
inline constexpr Setting kAlertFilters{kOptions, "AlertFilters"};
inline constexpr Setting kShowFilteredWords{kOptions, "ShowFilteredWords"};
inline constexpr char kFilterSeparator[] = "|||||";

// The last version announced as newer, and the page that the Options dialog opens on.
inline constexpr Setting kCheckVersion{kOptions, "CheckVersion"};
inline constexpr Setting kLastOption{kOptions, "LastOption"};

inline constexpr Setting kRegTest{kMisc, "RegTest"};
inline constexpr Setting kUseIniRecord{kMisc, "UseINI"};
inline constexpr Setting kRuns{kMisc, "Runs"};
inline constexpr Setting kVersion{kMisc, "Version"};
inline constexpr Setting kOldAlerts{kMisc, "OldAlerts"};
inline constexpr Setting kLastUpdated{kMisc, "LastUpdated"};

// The stored alerts: Count, and for n = 1 ... Count these words followed by n. The store's keys
// ignore case.
inline constexpr Setting kAlertCount{kAlerts, "Count"};
inline constexpr char kAlertBody[] = "body";
inline constexpr char kAlertTitle[] = "title";
inline constexpr char kAlertZipCode[] = "zipcode";
inline constexpr char kAlertId[] = "id";

// The update intervals, in list order.
struct Interval {
    std::string_view caption;
    int minutes;
};
inline constexpr std::string_view kNever = "Never";
inline constexpr std::array<Interval, 11> kIntervals{{{kNever, 0},
                                                      {"Every 5 minutes", 5},
                                                      {"Every 10 minutes", 10},
                                                      {"Every 15 minutes", 15},
                                                      {"Every 20 minutes", 20},
                                                      {"Every 30 minutes", 30},
                                                      {"Every hour", 60},
                                                      {"Every 2 hours", 120},
                                                      {"Every 3 hours", 180},
                                                      {"Every 4 hours", 240},
                                                      {"Every 5 hours", 300}}};
inline constexpr std::string_view kStartupInterval = "Every 15 minutes";

// Click actions. The fourth is kVisitAction followed by the maker's web address.
inline constexpr std::string_view kNoAction = "No Action";
inline constexpr std::string_view kViewNationalAction = "View National Severe Weather Alerts";
inline constexpr std::string_view kOpenOptionsAction = "Open Skyvane Alerts Options";
inline constexpr std::string_view kVisitAction = "Visit ";
inline constexpr std::string_view kStartupSingleClickAction = kViewNationalAction;
inline constexpr std::string_view kStartupDoubleClickAction = kNoAction;

// The value of kLastOption for the Stations page: a page's key is its tab's text without spaces.
inline constexpr std::string_view kStationsPage = "Stations";

// The registry value outside the store that starts the program with Windows.
inline constexpr char kRunKey[] = "Software\\microsoft\\windows\\currentversion\\run";
inline constexpr char kStartupListKey[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";
inline constexpr char kRunValue[] = "SkyvaneAlerts";

}  // namespace settings
