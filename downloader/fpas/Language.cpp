#include "downloader/fpas/Language.h"

#include <algorithm>

#include "win/Text.h"

namespace fpas {
namespace {

// The language alone, without script and region. Texts in "Norwegian" are in one of its two forms.
std::string_view PrimarySubtag(std::string_view tag) {
    tag = tag.substr(0, tag.find_first_of("-_"));
    const bool isNorwegian = win::EqualIgnoringCase(tag, "nb") || win::EqualIgnoringCase(tag, "nn");
    return isNorwegian ? "no" : tag;
}

}  // namespace

int LanguageRank(std::string_view language, std::string_view user) {
    if (win::EqualIgnoringCase(language, user)) return kBestLanguage;
    const std::string_view primary = PrimarySubtag(language);
    if (win::EqualIgnoringCase(primary, PrimarySubtag(user))) return kBestLanguage - 1;
    return win::EqualIgnoringCase(primary, "en") ? 1 : 0;
}

}  // namespace fpas
