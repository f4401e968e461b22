#pragma once
#include <optional>
#include <string>
#include <vector>

// The list of watched stations and its file, CityCode.cmb in the data folder.
namespace stations {

// Returns the full path of the station file.
std::string StationFilePath();

// Loads the file into the shared list, which stays unchanged if the file is missing or unreadable.
// Handles messages.
void LoadStationList();

// Whether the file was unreadable at the last LoadStationList.
bool IsStationListUnread();

// Loads the list again if it is unread. Returns whether that succeeded.
bool LoadUnreadStationList();

// Replaces the lines of the shared list, before they are saved.
void SetStationList(const std::vector<std::string>& entries);

// Returns the non-empty lines of a station file; none if it is missing, nullopt if it exists but
// cannot be read.
std::optional<std::vector<std::string>> ReadStationFile(const std::string& path);

// Replaces the file by the non-empty lines. Returns false, with the old file unchanged, on failure.
bool WriteStationFile(const std::vector<std::string>& entries, const std::string& path);

// Returns a line of the shared list; empty if the index is out of range.
std::string StationAt(std::size_t index);

}  // namespace stations
