#include "downloader/PackingRules.h"

#include "win/TextRules.h"

namespace downloader {

Packing PackingOf(std::string_view contentEncoding) {
    const std::string coding = win::AsciiLower(win::TrimBlanks(contentEncoding));
    if (coding.empty() || coding == "identity") return Packing::none;
    return coding == "gzip" || coding == "deflate" ? Packing::known : Packing::unknown;
}

}  // namespace downloader
