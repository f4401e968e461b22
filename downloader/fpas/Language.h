#pragma once
#include <string_view>

namespace fpas {

inline constexpr int kBestLanguage = 3;

// Returns how well the language of a text suits the user; 0 to kBestLanguage. Both are tags such as
// "de-CH": the user's own tag is best, then the same language elsewhere, then English, then any
// other. Case does not matter.
int LanguageRank(std::string_view language, std::string_view user);

}  // namespace fpas
