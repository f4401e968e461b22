#include "stations/StationLine.h"

#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace stations {
namespace {

constexpr char kSeparator[] = "***";

const std::string& Spaces() {
    static std::string& spaces = win::NeverDestroyed<std::string>(std::string(100, ' '));
    return spaces;
}

// The hidden fields as one text; nullopt if the line has none.
std::optional<std::string_view> HiddenText(std::string_view line) {
    const std::size_t spaces = line.find(Spaces());
    if (spaces == std::string_view::npos) return std::nullopt;
    return line.substr(spaces + Spaces().size());
}

}  // namespace

std::string MakeStationLine(std::string_view displayText, const HiddenFields& fields) {
    std::string line(displayText);
    line.append(Spaces()).append(fields.identifier);
    for (const std::string_view field : {fields.code, fields.latitude, fields.longitude})
        line.append(kSeparator).append(field);
    return line;
}

std::string RenameStation(std::string_view line, std::string_view displayText) {
    return std::string(win::Trim(DisplayText(win::Trim(displayText))))
        .append(Spaces())
        .append(HiddenText(line).value_or(std::string_view()));
}

std::string_view DisplayText(std::string_view line) {
    return line.substr(0, line.find(Spaces()));
}

std::optional<std::string> StationCode(std::string_view line) {
    const auto hidden = HiddenText(line);
    if (!hidden) return std::nullopt;
    const auto fields = win::Split(*hidden, kSeparator);
    return fields.size() > 1 ? fields[1] : std::string();
}

std::string CodeForNationalMap(std::string_view line) {
    const auto fields = win::Split(line, kSeparator);
    return fields.size() > 2 ? fields[1] : std::string();
}

std::string DisplayTextOfCode(const std::vector<std::string>& lines, std::string_view code) {
    for (const std::string& line : lines)
        if (StationCode(line) == code) return std::string(DisplayText(line));
    return {};
}

std::vector<std::string> ReadStationLines(std::string_view fileText) {
    std::vector<std::string> lines;
    for (std::string& line : win::Split(fileText, "\n")) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!line.empty()) lines.push_back(std::move(line));
    }
    return lines;
}

std::string WriteStationLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        if (!line.empty()) text.append(line).append("\r\n");
    return text;
}

std::size_t GrownArraySize(std::size_t count) {
    std::size_t upperBound = 10;
    while (count >= upperBound) upperBound += 10;
    return upperBound + 1;
}

}  // namespace stations
