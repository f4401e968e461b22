#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The format of a station line, which represents one watched station: the display text, 100 spaces
// that push the rest out of sight in list controls, and four hidden fields joined by "***". No
// other file depends on this format.
namespace stations {

struct HiddenFields {
    std::string_view identifier;
    std::string_view code;
    std::string_view latitude;
    std::string_view longitude;
};

std::string MakeStationLine(std::string_view displayText, const HiddenFields& fields);

// Returns the line with another display text, trimmed and without hidden fields of its own.
std::string RenameStation(std::string_view line, std::string_view displayText);

// Returns the text before the hidden fields; the whole line when it has none.
std::string_view DisplayText(std::string_view line);

// Returns the station's code: empty if the hidden fields lack one, nullopt if the line has no
// hidden fields.
std::optional<std::string> StationCode(std::string_view line);

// Returns the text between the first and the second "***" of the whole line, which the national map
// takes as the code; empty if there is none.
std::string CodeForNationalMap(std::string_view line);

// Returns the display text of the first line with this station code; empty when there is none.
std::string DisplayTextOfCode(const std::vector<std::string>& lines, std::string_view code);

// Returns the non-empty lines of a station file; lines end in CR LF or LF.
std::vector<std::string> ReadStationLines(std::string_view fileText);

// Returns the text of a station file with the non-empty lines.
std::string WriteStationLines(const std::vector<std::string>& lines);

// Returns the size of an array that starts with the indexes 0 to 10 and grows by 10 whenever the
// number of its entries reaches the upper bound.
std::size_t GrownArraySize(std::size_t count);

}  // namespace stations
