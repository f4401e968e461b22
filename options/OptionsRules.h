#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace options {

// The key of a page by its tab's text: the text without blanks.
std::string PageKey(std::string_view tabText);

// Filter words as the list shows them, each in double quotes.
std::string QuotedWord(std::string_view word);

// The value to store for the entries of the list: without their double quotes, joined.
std::string JoinFilterWords(const std::vector<std::string>& entries);

// The question before a station is removed.
std::string RemoveQuestion(std::string_view stationDisplayText);

// What is said when the files will lie elsewhere after the next start.
std::string RestartMessage(bool inProgramFolder);

}  // namespace options
