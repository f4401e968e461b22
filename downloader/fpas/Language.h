#pragma once
#include <string_view>

namespace fpas {

// Returns how well the language of a text suits the user; higher is better. Both are tags such as
// "de-CH": the user's own tag is best, then the same language elsewhere, then English, then any
// other. Case does not matter.
int LanguageRank(std::string_view language, std::string_view user);

}  // namespace fpas
