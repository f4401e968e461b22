#pragma once
#include <string>
#include <string_view>

// The spellings of a place's name.
namespace feed {

// Returns a name in the form used to compare names: lower case, without accents, spaces and
// punctuation, with short words in full ("St." as "saint"). tools/make-places sorts the places by
// the same form.
std::string FoldName(std::string_view name);

// Returns another form of a folded name, for one that is not found: a nickname's full name, or the
// name without "city" at its end. Empty when there is none.
std::string OtherName(std::string_view folded);

}  // namespace feed
