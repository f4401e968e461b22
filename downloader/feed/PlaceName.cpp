#include "downloader/feed/PlaceName.h"

#include <algorithm>
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
                                    {"bch", "beach"}, {"jct", "junction"}, {"sankt", "saint"}};
constexpr Spelling kDirections[] = {{"n", "north"}, {"s", "south"}, {"e", "east"}, {"w", "west"}};
constexpr Spelling kNicknames[] = {{"nyc", "newyork"},          {"philly", "philadelphia"},
                                   {"vegas", "lasvegas"},       {"nola", "neworleans"},
                                   {"slc", "saltlakecity"},     {"okc", "oklahomacity"},
                                   {"sanfran", "sanfrancisco"}, {"washingtondc", "washington"}};

// Letters without their accents, from U+00C0 and from U+1E00. "*" marks one of kTwoLetters,
// "?" a character that is kept.
constexpr char32_t kLatinStart = 0xC0;
constexpr std::string_view kLatin =
    "aaaaaa*ceeeeiiiidnooooo ouuuuy**aaaaaa*ceeeeiiiidnooooo ouuuuy*y"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii**jjkkkllllllllll"
    "nnnnnnnnnoooooo**rrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
constexpr char32_t kMoreLatinStart = 0x1E00;
constexpr std::string_view kMoreLatin =
    "aabbbbbbccddddddddddeeeeeeeeeeffgghhhhhhhhhhiiiikkkkkkllllllllmmmmmmnnnnnnnnoooooooopppp"
    "rrrrrrrrssssssssssttttttttuuuuuuuuuuvvvvwwwwwwwwwwxxxxyyzzzzzzhtwy??????"
    "aaaaaaaaaaaaaaaaaaaaaaaaeeeeeeeeeeeeeeeeiiiioooooooooooooooooooooooouuuuuuuuuuuuuuyyyyyyyy"
    "??????";
struct TwoLetters {
    char32_t letter;
    std::string_view folded;
};
constexpr TwoLetters kTwoLetters[] = {{U'Æ', "ae"}, {U'æ', "ae"}, {U'Œ', "oe"},
                                      {U'œ', "oe"}, {U'ß', "ss"}, {U'Þ', "th"},
                                      {U'þ', "th"}, {U'Ĳ', "ij"}, {U'ĳ', "ij"}};

// Single letters outside of the ranges that FoldLetter computes.
struct Letters {
    char32_t letter;
    char32_t folded;
};
constexpr Letters kLetters[] = {
    {U'Ơ', U'o'}, {U'ơ', U'o'}, {U'Ư', U'u'}, {U'ư', U'u'}, {U'Ș', U's'}, {U'ș', U's'},
    {U'Ț', U't'}, {U'ț', U't'}, {U'Ə', U'a'}, {U'ə', U'a'}, {U'Ά', U'α'}, {U'ά', U'α'},
    {U'Έ', U'ε'}, {U'έ', U'ε'}, {U'Ή', U'η'}, {U'ή', U'η'}, {U'Ί', U'ι'}, {U'ί', U'ι'},
    {U'Ό', U'ο'}, {U'ό', U'ο'}, {U'Ύ', U'υ'}, {U'ύ', U'υ'}, {U'Ώ', U'ω'}, {U'ώ', U'ω'},
    {U'ς', U'σ'}, {U'Ё', U'е'}, {U'ё', U'е'}};

template <std::size_t size>
std::string_view InFull(const Spelling (&spellings)[size], std::string_view word) {
    for (const Spelling& spelling : spellings)
        if (spelling.word == word) return spelling.full;
    return word;
}

// Whether a character is skipped: an apostrophe, a quotation mark or a combining accent.
bool IsSkipped(char32_t letter) {
    return letter == U'\'' || letter == U'`' || letter == U'´' ||
           (letter >= 0x2018 && letter <= 0x201F) || (letter >= 0x2B9 && letter <= 0x2BF) ||
           (letter >= 0x300 && letter <= 0x36F);
}

// Returns a character in lower case and without its accent, for scripts that have them.
char32_t FoldLetter(char32_t letter) {
    for (const Letters& known : kLetters)
        if (known.letter == letter) return known.folded;
    if ((letter >= U'А' && letter <= U'Я') || (letter >= U'Α' && letter <= U'Ω'))
        return letter + 0x20;
    return letter >= 0x400 && letter <= 0x40F ? letter + 0x50 : letter;
}

void AppendTwoByteCharacter(std::string& text, char32_t letter) {
    text += static_cast<char>(0xC0 | letter >> 6);
    text += static_cast<char>(0x80 | (letter & 0x3F));
}

// Appends a Latin letter from a table of base letters. Returns false if it is kept as it is.
bool AppendBaseLetter(std::string& text, char32_t letter, std::string_view table, char32_t start) {
    if (letter < start || letter >= start + table.size()) return false;
    const char base = table[letter - start];
    if (base == '?') return false;
    if (base != '*') {
        text += base;
        return true;
    }
    for (const TwoLetters& pair : kTwoLetters)
        if (pair.letter == letter) text += pair.folded;
    return true;
}

void AppendFolded(std::string& text, char32_t letter, std::string_view bytes) {
    if (IsSkipped(letter) || AppendBaseLetter(text, letter, kLatin, kLatinStart) ||
        AppendBaseLetter(text, letter, kMoreLatin, kMoreLatinStart))
        return;
    const char32_t folded = FoldLetter(letter);
    if (folded == letter) {
        text += bytes;
    } else if (folded < 0x80) {
        text += static_cast<char>(folded);
    } else {
        AppendTwoByteCharacter(text, folded);
    }
}

// Returns the number of bytes of the UTF-8 character that begins with a byte.
std::size_t CharacterSize(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0xC0) return 1;
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Returns the name in lower case without accents and apostrophes; other punctuation becomes spaces.
std::string PlainLetters(std::string_view name) {
    constexpr std::string_view kPunctuation = "-./\t,()[]";
    std::string plain;
    plain.reserve(name.size());
    for (std::size_t at = 0; at < name.size();) {
        const std::string_view bytes = name.substr(at, CharacterSize(name[at]));
        at += bytes.size();
        const char c = bytes[0];
        if (c >= 'A' && c <= 'Z') {
            plain += static_cast<char>(c - 'A' + 'a');
        } else if (kPunctuation.find(c) != std::string_view::npos) {
            plain += ' ';
        } else if ((c >= 'a' && c <= 'z') || c == ' ' || (bytes.size() == 1 && c < 0)) {
            plain += c;  // the last is not UTF-8
        } else {
            AppendFolded(plain, win::CodePointOf(bytes), bytes);
        }
    }
    return plain;
}

}  // namespace

std::string FoldName(std::string_view name) {
    const std::string plain = PlainLetters(name);
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < plain.size();) {
        const std::size_t end = std::min(plain.find(' ', at), plain.size());
        if (end > at) words.push_back(std::string_view(plain).substr(at, end - at));
        at = end + 1;
    }
    // "N Platte", but not "N.Y.".
    if (words.size() > 1 && words[1].size() > 1) words[0] = InFull(kDirections, words[0]);
    std::string folded;
    folded.reserve(plain.size());
    for (const std::string_view word : words) folded += InFull(kShortWords, word);
    return folded;
}

std::string_view NicknamedCity(std::string_view folded) {
    const std::string_view full = InFull(kNicknames, folded);
    return full == folded ? std::string_view() : full;
}

}  // namespace feed
