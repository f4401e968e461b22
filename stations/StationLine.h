#pragma once
#include <string>
#include <string_view>
#include <vector>

// A watched station is one text line: the display text, 100 blanks that push the rest out of sight
// in list controls, then four fields joined by "***".
namespace stations {

// The fields behind the blanks, by position.
enum Field { kIdentifier, kCode, kLatitude, kLongitude };

// Whether the line holds the run of 100 blanks.
bool HasHiddenFields(std::string_view line);

// What stands before the first run of 100 blanks; the whole line when there is none.
std::string_view DisplayText(std::string_view line);

// What stands behind the run; empty when there is none.
std::string_view HiddenText(std::string_view line);

// One hidden field; empty when the line has no such field.
std::string HiddenField(std::string_view line, Field field);

// The line of a display text and the hidden fields as they stand in another line.
std::string MakeStationLine(std::string_view display, std::string_view hidden);

// The hidden fields of a new station.
std::string MakeHiddenText(std::string_view identifier, std::string_view code,
                           std::string_view latitude, std::string_view longitude);

// The display text of the first of the lines with this station code; empty when none has it.
std::string DisplayTextOfCode(const std::vector<std::string>& lines, std::string_view code);

// The non-empty lines of a station file; lines end in CR LF or LF.
std::vector<std::string> ReadStationLines(std::string_view fileText);

// The station file for the non-empty lines.
std::string WriteStationLines(const std::vector<std::string>& lines);

// The size of an array that begins with indexes 0 to 10 and grows by 10 whenever the count of its
// entries reaches the upper bound.
std::size_t GrownArraySize(std::size_t count);

}  // namespace stations
