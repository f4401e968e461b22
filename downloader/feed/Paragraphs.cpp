#include "downloader/feed/Paragraphs.h"

#include <algorithm>
#include <cstring>

namespace feed {
namespace {

constexpr std::string_view kSpaces = " \t\r\v\f";

std::string_view Trim(std::string_view line) {
    const std::size_t first = line.find_first_not_of(kSpaces);
    if (first == std::string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(kSpaces) - first + 1);
}

bool IsListItem(std::string_view line) {
    return line.starts_with("* ") || line.starts_with("- ") || line.starts_with("+ ") ||
           line.starts_with("\xE2\x80\xA2");  // a bullet
}

// Columns are three spaces apart or more; sentences are two.
bool IsTableRow(std::string_view line) {
    // A run of three has a space at one of every three places.
    for (std::size_t at = 2; at < line.size(); at += 3) {
        if (line[at] != ' ') continue;
        const std::string_view around = line.substr(at - 2, 5);
        if (around.find("   ") != std::string_view::npos) return true;
    }
    return std::memchr(line.data(), '\t', line.size()) != nullptr;
}

// "&&" and "$$" divide the parts of a bulletin.
bool IsDivider(std::string_view line) {
    return line == "&&" || line == "$$";
}

// Whether a word goes on in the next line ("life-" "threatening").
bool EndsInHyphen(std::string_view text) {
    return text.size() > 1 && text.back() == '-' && text[text.size() - 2] != ' ' &&
           text[text.size() - 2] != '-';
}

}  // namespace

void AppendParagraphs(std::string& body, std::string_view text) {
    bool startsParagraph = true;
    bool wasAlone = false;  // the line before keeps a line of its own
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trim(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty()) {
            startsParagraph = true;
            continue;
        }
        const bool isAlone = IsTableRow(line) || IsDivider(line);
        if (startsParagraph)
            body += body.empty() ? "" : "\n\n";
        else if (isAlone || wasAlone || IsListItem(line))
            body += '\n';
        else if (!EndsInHyphen(body))
            body += ' ';
        body += line;
        startsParagraph = false;
        wasAlone = isAlone;
    }
}

}  // namespace feed
