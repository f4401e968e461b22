#include "downloader/feed/PlaceName.h"

#include <vector>

#include "win/Text.h"

namespace feed {
namespace {

struct Spelling {
    std::string_view word;
    std::string_view full;
};
constexpr Spelling kShortWords[] = {{"st", "saint"},  {"ste", "sainte"},   {"ft", "fort"},
                                    {"mt", "mount"},  {"spgs", "springs"}, {"hts", "heights"},
                                    {"bch", "beach"}, {"jct", "junction"}};
constexpr Spelling kDirections[] = {{"n", "north"}, {"s", "south"}, {"e", "east"}, {"w", "west"}};
constexpr Spelling kNicknames[] = {{"nyc", "newyork"},          {"philly", "philadelphia"},
                                   {"vegas", "lasvegas"},       {"nola", "neworleans"},
                                   {"slc", "saltlakecity"},     {"okc", "oklahomacity"},
                                   {"sanfran", "sanfrancisco"}, {"washingtondc", "washington"}};

template <std::size_t size>
std::string_view InFull(const Spelling (&spellings)[size], std::string_view word) {
    for (const Spelling& spelling : spellings)
        if (spelling.word == word) return spelling.full;
    return word;
}

// Returns the letter without its accent for the second UTF-8 byte of U+00C0 to U+00FF, or a space
// when that character is not a letter.
char BaseLetter(char second) {
    constexpr std::string_view kLetters =
        "aaaaaaaceeeeiiiidnooooo ouuuuy  aaaaaaaceeeeiiiidnooooo ouuuuy y";
    return kLetters[static_cast<unsigned char>(second) & 0x3F];
}

// Returns the name without accents and apostrophes; other punctuation becomes spaces.
std::string PlainLetters(std::string_view name) {
    constexpr std::string_view kCurlyApostrophe = "\xE2\x80\x99";
    std::string plain;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const char c = name[at];
        if (c == '\xC3' && at + 1 < name.size())
            plain += BaseLetter(name[++at]);
        else if (name.substr(at).starts_with(kCurlyApostrophe))
            at += kCurlyApostrophe.size() - 1;
        else if (std::string_view("-./\t").find(c) != std::string_view::npos)
            plain += ' ';
        else if (c != '\'')
            plain += c;
    }
    return plain;
}

}  // namespace

std::string FoldName(std::string_view name) {
    std::vector<std::string> words = win::Split(win::AsciiLower(PlainLetters(name)), " ");
    std::erase(words, "");
    // "N Platte", but not "N.Y.".
    if (words.size() > 1 && words[1].size() > 1) words[0] = InFull(kDirections, words[0]);
    std::string folded;
    for (const std::string& word : words) folded += InFull(kShortWords, word);
    return folded;
}

std::string OtherName(std::string_view folded) {
    constexpr std::string_view kCity = "city";
    const std::string_view full = InFull(kNicknames, folded);
    if (full != folded) return std::string(full);
    if (!folded.ends_with(kCity)) return {};
    return std::string(folded.substr(0, folded.size() - kCity.size()));
}

}  // namespace feed
