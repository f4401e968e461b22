#pragma once
#include <string>
#include <vector>

// The list of watched stations and its file, CityCode.cmb in the data folder.
namespace stations {

// The full path of the station file.
std::string StationFilePath();

// Reads the file into the process-wide list. A missing file leaves the list as it is; errors are
// ignored. Lets messages run.
void LoadStationList();

// Makes the process-wide list hold exactly these entries, as saving does before it reloads.
void SetStationList(const std::vector<std::string>& entries);

// The non-empty lines of a station file; none when it cannot be read.
std::vector<std::string> ReadStationFile(const std::string& path);

// Replaces the file, whole, by the non-empty entries. False, with the old file untouched, when it
// cannot be written.
bool WriteStationFile(const std::vector<std::string>& entries, const std::string& path);

// The process-wide line at the index, empty outside the array.
std::string StationAt(std::size_t index);

}  // namespace stations
