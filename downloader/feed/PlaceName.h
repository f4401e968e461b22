#pragma once
#include <string>
#include <string_view>

// The spellings of a place's name.
namespace feed {

// Returns a name in the form used to compare names: lower case, without accents, spaces and
// punctuation, with short words in full ("St." as "saint"). Latin, Greek and Cyrillic letters lose
// their case and accents; other scripts are kept. tools/make-places sorts the places by the same
// form.
std::string FoldName(std::string_view name);

// Returns the folded name of the city in the United States that has a folded nickname, such as
// "newyork" for "nyc"; empty when there is none.
std::string_view NicknamedCity(std::string_view folded);

}  // namespace feed
