#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What is made of the alerts of a feed: which are kept, how they are stored, which are new.
namespace alerts {

// Runs of blanks made one blank, and none at either end.
std::string TidyBody(std::string_view body);

// Whether the user's word filter keeps an alert. Words match anywhere in the body, inside other
// words too; body and words are in lower case. Without words every alert is kept.
bool KeepsAlert(std::string_view lowerBody, const std::vector<std::string>& lowerWords,
                bool showOnly);

// The identifier with its line breaks as spaces: an INI file would give the list of seen
// identifiers back that way, and the alert would seem new after each start.
std::string OneLine(std::string_view identifier);

// Whether the identifier stands, whole, in the list of seen identifiers joined by the bar.
bool IsSeen(std::string_view seen, std::string_view identifier, std::string_view bar);

// Appends the identifier to the list of seen ones.
void AddSeen(std::string& seen, std::string_view identifier, std::string_view bar);

// Appends to the list of seen ones, in order, the identifiers that do not stand in it; how many
// those are.
std::int16_t AddUnseen(std::string& seen, const std::vector<std::string>& identifiers,
                       std::string_view bar);

// The list of seen identifiers as a cycle begins with it: of more than 500 characters only what is
// behind the first 249 stays, even where that cuts an identifier in two.
std::string TrimSeen(std::string_view seen);

// The newest whole identifiers of the list of seen ones, joined by the bar, that have no more than
// `longest` characters together.
std::string_view FitSeen(std::string_view seen, std::size_t longest, std::string_view bar);

// Whether the station code stands in the list of those that this cycle has asked for, each with a
// comma before it.
bool IsDone(std::string_view done, std::string_view code);

// Whether a status text means success: the number that it begins with is 0, also for want of one.
bool IsSuccess(std::string_view statusText);

// What dl.exe is told: the address and the two files, with bars between.
std::string DownloadArgument(std::string_view address, std::string_view dataFile,
                             std::string_view statusFile);

// The message of an interactive retrieval that failed.
std::string FailureMessage(std::string_view weatherHost);

}  // namespace alerts
