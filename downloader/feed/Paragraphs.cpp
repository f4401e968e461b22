#include "downloader/feed/Paragraphs.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "win/Text.h"

namespace feed {
namespace {

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

// A row has several columns, at least three spaces apart; sentences are two apart.
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

// Returns the first code point of well-formed UTF-8, which must not be empty.
char32_t FirstCodePoint(std::string_view text) {
    std::size_t size = 1;
    while (size < text.size() && size < 4 && (text[size] & 0xC0) == 0x80) ++size;
    return win::CodePointOf(text.substr(0, size));
}

char32_t LastCodePoint(std::string_view text) {
    std::size_t at = text.size() - 1;
    while (at > 0 && (text[at] & 0xC0) == 0x80) --at;
    return FirstCodePoint(text.substr(at));
}

// Whether the character is of a script that is written without spaces between words.
bool IsUnspaced(char32_t point) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    constexpr Range kRanges[] = {
        {0x0E00, 0x0EFF},    // Thai, Lao
        {0x1000, 0x109F},    // Burmese
        {0x1780, 0x17FF},    // Khmer
        {0x2E80, 0x30FF},    // Chinese and Japanese: radicals, punctuation, kana
        {0x31C0, 0xA4CF},    // Chinese and Japanese: characters; Yi
        {0xF900, 0xFAFF},    // more characters
        {0xFE30, 0xFE4F},    // more punctuation
        {0xFF00, 0xFFEF},    // full-width forms
        {0x20000, 0x3FFFF},  // more characters
    };
    return std::any_of(std::begin(kRanges), std::end(kRanges), [point](const Range& range) {
        return point >= range.first && point <= range.last;
    });
}

// Whether two lines are joined without a space. A Latin word keeps its distance.
bool JoinsUnspaced(std::string_view left, std::string_view right) {
    if ((left.back() & 0x80) == 0 && (right.front() & 0x80) == 0) return false;
    return (IsUnspaced(LastCodePoint(left)) && !win::IsLetter(right.front())) ||
           (IsUnspaced(FirstCodePoint(right)) && !win::IsLetter(left.back()));
}

}  // namespace

void AppendParagraphs(std::string& body, std::string_view text) {
    bool startsParagraph = true;
    bool wasAlone = false;  // the line before keeps a line of its own
    while (!text.empty()) {
        const std::string_view line = win::Trim(win::TakeLine(text), " \t\r\v\f");
        if (line.empty()) {
            startsParagraph = true;
            continue;
        }
        const bool isAlone = IsTableRow(line) || IsDivider(line);
        if (startsParagraph)
            body += body.empty() ? "" : "\n\n";
        else if (isAlone || wasAlone || IsListItem(line))
            body += '\n';
        else if ((!EndsInHyphen(body) || IsConjunction(line)) && !JoinsUnspaced(body, line))
            body += ' ';
        body += line;
        startsParagraph = false;
        wasAlone = isAlone;
    }
}

void AppendWithoutSpaces(std::string& squeezed, std::string_view text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) > ' ') squeezed += c;
}

}  // namespace feed
