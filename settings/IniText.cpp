#include "settings/IniText.h"

#include <map>

#include "win/Text.h"

namespace settings {
namespace {

std::string_view Trim(std::string_view text) {
    return win::Trim(text, " \t\r");
}

bool IsSectionLine(std::string_view line) {
    line = Trim(line);
    return !line.empty() && line.front() == '[';
}

bool IsSection(std::string_view line, std::string_view section) {
    line = Trim(line);
    const std::size_t end = line.find(']');
    return IsSectionLine(line) && end != std::string_view::npos &&
           win::EqualIgnoringCase(Trim(line.substr(1, end - 1)), section);
}

// The key of a "key=value" line, trimmed; empty for any other line.
std::string_view KeyOf(std::string_view line) {
    const std::size_t equals = line.find('=');
    const std::string_view key = Trim(line.substr(0, equals));
    return equals == std::string_view::npos || key.substr(0, 1) == ";" ? std::string_view() : key;
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == '"' || value.front() == '\'');
}

std::string KeyLine(std::string_view key, std::string_view value) {
    return win::AsciiUpper(key) + "=" + IniSafeValue(value) + "\r\n";
}

// A file text, cut around the lines of one section.
struct Parts {
    bool found = false;
    std::string_view before;  // up to and including the header; the whole text if not found
    std::string_view lines;   // of the section, without empty lines at its end
    std::string_view after;
};

Parts CutAtSection(std::string_view text, std::string_view section) {
    bool found = false;
    std::string_view rest = text;
    while (!rest.empty() && !found) found = IsSection(win::TakeLine(rest), section);
    const std::size_t start = text.size() - rest.size();
    std::size_t end = start;
    while (!rest.empty()) {
        const std::string_view line = win::TakeLine(rest);
        if (IsSectionLine(line)) break;
        if (!Trim(line).empty()) end = text.size() - rest.size();
    }
    return {found, text.substr(0, start), text.substr(start, end - start), text.substr(end)};
}

}  // namespace

KeyValues ReadIniSection(std::string_view fileText, std::string_view section) {
    KeyValues values;
    for (std::string_view lines = CutAtSection(fileText, section).lines; !lines.empty();) {
        const std::string_view line = win::TakeLine(lines);
        const std::string_view key = KeyOf(line);
        if (key.empty()) continue;
        std::string_view value = Trim(line.substr(line.find('=') + 1));
        if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
        values.emplace_back(win::AsciiLower(key), win::FirstChars(value, kIniValueLimit));
    }
    return values;
}

std::string MergeIniSection(std::string_view fileText, std::string_view section,
                            const KeyValues& values) {
    // By upper-case key; the last of two equal keys wins, as when they are written one by one.
    std::map<std::string, std::string_view> missing;
    for (const auto& [key, value] : values) missing[win::AsciiUpper(key)] = value;

    Parts parts = CutAtSection(fileText, section);
    std::string result;
    result.reserve(fileText.size() + values.size() * 64);
    result.append(parts.before);
    if (!result.empty() && result.back() != '\n') result.append("\n");
    if (!parts.found) result.append("[").append(section).append("]\r\n");
    while (!parts.lines.empty()) {
        const std::string_view line = win::TakeLine(parts.lines);
        const auto known = missing.find(win::AsciiUpper(KeyOf(line)));
        if (known == missing.end()) {
            result.append(line).append("\n");
        } else {
            result.append(KeyLine(known->first, known->second));
            missing.erase(known);
        }
    }
    for (const auto& [key, value] : values) {  // new keys, in the given order
        const auto known = missing.find(win::AsciiUpper(key));
        if (known == missing.end()) continue;
        result.append(KeyLine(known->first, known->second));
        missing.erase(known);
    }
    return result.append(parts.after);
}

std::string CutIniValue(std::string_view value) {
    std::string text = win::ReplaceAll(value, "\r\n", " ");
    for (char& c : text)
        if (c == '\r' || c == '\n' || c == '\0') c = ' ';
    return std::string(win::FirstChars(text, kIniValueLimit));
}

std::string IniSafeValue(std::string_view value) {
    const std::string safe = CutIniValue(value);
    const auto isWhite = [](char c) { return c == ' ' || c == '\t'; };
    const bool hasOuterWhite = !safe.empty() && (isWhite(safe.front()) || isWhite(safe.back()));
    return hasOuterWhite || IsQuoted(safe) ? "\"" + safe + "\"" : safe;
}

}  // namespace settings
