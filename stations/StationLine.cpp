#include "stations/StationLine.h"

#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace stations {
namespace {

constexpr std::size_t kBlankCount = 100;
constexpr std::string_view kFieldSeparator = "***";

const std::string& Blanks() {
    static std::string& blanks = win::NeverDestroyed<std::string>(std::string(kBlankCount, ' '));
    return blanks;
}

}  // namespace

bool HasHiddenFields(std::string_view line) {
    return line.find(Blanks()) != std::string_view::npos;
}

std::string_view DisplayText(std::string_view line) {
    return line.substr(0, line.find(Blanks()));
}

std::string_view HiddenText(std::string_view line) {
    const std::size_t blanks = line.find(Blanks());
    return blanks == std::string_view::npos ? std::string_view()
                                            : line.substr(blanks + kBlankCount);
}

std::string HiddenField(std::string_view line, Field field) {
    const auto fields = win::Split(HiddenText(line), kFieldSeparator);
    return static_cast<std::size_t>(field) < fields.size() ? fields[field] : std::string();
}

std::string MakeStationLine(std::string_view display, std::string_view hidden) {
    return std::string(display).append(Blanks()).append(hidden);
}

std::string MakeHiddenText(std::string_view identifier, std::string_view code,
                           std::string_view latitude, std::string_view longitude) {
    return win::Join(
        {std::string(identifier), std::string(code), std::string(latitude), std::string(longitude)},
        kFieldSeparator);
}

std::string DisplayTextOfCode(const std::vector<std::string>& lines, std::string_view code) {
    for (const std::string& line : lines)
        if (HasHiddenFields(line) && HiddenField(line, kCode) == code)
            return std::string(DisplayText(line));
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
