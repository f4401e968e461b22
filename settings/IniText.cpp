#include "settings/IniText.h"

#include <map>

#include "win/Text.h"

namespace settings {
namespace {

constexpr char kBlanks[] = " \t\r";

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
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

}  // namespace

KeyValues ReadIniSection(std::string_view fileText, std::string_view section) {
    KeyValues values;
    while (!fileText.empty() && !IsSection(win::TakeLine(fileText), section)) {
    }
    while (!fileText.empty()) {
        const std::string_view line = win::TakeLine(fileText);
        if (IsSectionLine(line)) break;
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

    std::string result;
    result.reserve(fileText.size() + values.size() * 64);
    bool found = false;
    while (!fileText.empty() && !found) {
        const std::string_view line = win::TakeLine(fileText);
        result.append(line).append("\n");
        found = IsSection(line, section);
    }
    std::string_view blankLines;
    while (found && !fileText.empty()) {
        const std::string_view rest = fileText;
        const std::string_view line = win::TakeLine(fileText);
        if (IsSectionLine(line)) {
            fileText = rest;
            break;
        }
        if (Trim(line).empty()) {  // kept back: new keys go before the blank lines
            if (blankLines.empty()) blankLines = rest;
            continue;
        }
        if (!blankLines.empty())
            result.append(blankLines.substr(0, blankLines.size() - rest.size()));
        blankLines = {};
        const auto known = missing.find(win::AsciiUpper(KeyOf(line)));
        if (known == missing.end()) {
            result.append(line).append("\n");
        } else {
            result.append(KeyLine(known->first, known->second));
            missing.erase(known);
        }
    }
    if (!found) result.append("[").append(section).append("]\r\n");
    for (const auto& [key, value] : values) {  // in the order in which they were given
        const auto known = missing.find(win::AsciiUpper(key));
        if (known == missing.end()) continue;
        result.append(KeyLine(known->first, known->second));
        missing.erase(known);
    }
    if (!blankLines.empty())
        result.append(blankLines.substr(0, blankLines.size() - fileText.size()));
    return result.append(fileText);
}

std::string CutIniValue(std::string_view value) {
    std::string text = win::ReplaceAll(value, "\r\n", " ");
    for (char& c : text)
        if (c == '\r' || c == '\n' || c == '\0') c = ' ';
    return std::string(win::FirstChars(text, kIniValueLimit));
}

std::string IniSafeValue(std::string_view value) {
    const std::string safe = CutIniValue(value);
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    const bool endsBlank = !safe.empty() && (isBlank(safe.front()) || isBlank(safe.back()));
    return endsBlank || IsQuoted(safe) ? "\"" + safe + "\"" : safe;
}

}  // namespace settings
