#pragma once
#include <optional>
#include <string>
#include <vector>

// The list of watched stations and its file, CityCode.cmb in the data folder.
namespace stations {

// The full path of the station file.
std::string StationFilePath();

// Reads the file into the process-wide list. A file that is missing, or that exists but cannot be
// read, leaves the list as it is. Lets messages run.
void LoadStationList();

// Whether the last LoadStationList met a file that it could not read.
bool IsStationListUnread();

// Reads the list if it is unread; whether it was unread and now is not.
bool LoadUnreadStationList();

// Makes the process-wide list hold exactly these entries, as saving does before it reloads.
void SetStationList(const std::vector<std::string>& entries);

// The non-empty lines of a station file, none of a missing one; nothing if the file exists but
// cannot be read (another program holds it, or it is too long).
std::optional<std::vector<std::string>> ReadStationFile(const std::string& path);

// Replaces the file, whole, by the non-empty entries. False, with the old file untouched, when it
// cannot be written.
bool WriteStationFile(const std::vector<std::string>& entries, const std::string& path);

// The process-wide line at the index, empty outside the array.
std::string StationAt(std::size_t index);

}  // namespace stations
