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

// Returns the end of the first run of three spaces or more at or after `from`, npos if there is
// none.
std::size_t EndOfGap(std::string_view line, std::size_t from) {
    constexpr std::size_t kGap = 3;
    // A run of three has a space at one of every three places.
    for (std::size_t at = from + kGap - 1; at < line.size(); at += kGap) {
        if (line[at] != ' ') continue;
        std::size_t start = at;
        while (start > from && line[start - 1] == ' ') --start;
        const std::size_t end = std::min(line.find_first_not_of(' ', at), line.size());
        if (end - start >= kGap) return end;
    }
    return std::string_view::npos;
}

// Columns are three spaces apart or more, and there are several; sentences are two spaces apart.
bool IsTableRow(std::string_view line) {
    if (std::memchr(line.data(), '\t', line.size())) return true;
    const std::size_t second = EndOfGap(line, 0);
    return second != std::string_view::npos && EndOfGap(line, second) != std::string_view::npos;
}

// "&&" and "$$" divide the parts of a bulletin.
bool IsDivider(std::string_view line) {
    return line == "&&" || line == "$$";
}

// Whether the last word continues in the next line ("life-" "threatening").
bool EndsInHyphen(std::string_view text) {
    return text.size() > 1 && text.back() == '-' && text[text.size() - 2] != ' ' &&
           text[text.size() - 2] != '-';
}

// Whether the line begins as in "pre- and post-storm".
bool IsConjunction(std::string_view line) {
    return line.starts_with("and ") || line.starts_with("or ") || line.starts_with("to ");
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
        else if (!EndsInHyphen(body) || IsConjunction(line))
            body += ' ';
        body += line;
        startsParagraph = false;
        wasAlone = isAlone;
    }
}

}  // namespace feed
