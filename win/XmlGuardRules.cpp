#include "win/XmlGuardRules.h"

#include <algorithm>
#include <string>

#include "win/TextRules.h"

namespace win {
namespace {

constexpr char kWhite[] = " \t\r\n";

bool IsWide(std::string_view bytes) {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.starts_with(std::string_view("<\0", 2)) ||
           bytes.starts_with(std::string_view("\0<", 2));
}

// The text's ASCII part: two-byte characters lose their zero byte. Enough of it for any sane
// prolog.
std::string AsciiStart(std::string_view bytes) {
    constexpr std::size_t wanted = 64 * 1024;
    std::string start(bytes.substr(0, wanted));
    if (IsWide(bytes)) std::erase(start, '\0');
    for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"})
        if (start.starts_with(mark)) start.erase(0, mark.size());
    return start;
}

// Whether the XML declaration names no encoding or one in which ASCII stays ASCII.
bool HasPlainEncoding(std::string_view declaration) {
    const std::size_t found = declaration.find("encoding");
    if (found == std::string_view::npos) return true;
    declaration.remove_prefix(found);
    const std::size_t open = declaration.find_first_of("\"'");
    if (open == std::string_view::npos) return false;
    const std::size_t close = declaration.find(declaration[open], open + 1);
    if (close == std::string_view::npos) return false;
    const std::string name = AsciiLower(declaration.substr(open + 1, close - open - 1));
    return name == "utf-8" || name == "utf-16" || name == "us-ascii" || name == "ascii" ||
           name.starts_with("iso-8859-") || name.starts_with("windows-125");
}

}  // namespace

bool IsSafeXml(std::string_view bytes) {
    const std::string start = AsciiStart(bytes);
    std::string_view rest = start;
    for (;;) {
        rest.remove_prefix(std::min(rest.find_first_not_of(kWhite), rest.size()));
        std::string_view end;
        if (rest.starts_with("<?")) {
            end = "?>";
        } else if (rest.starts_with("<!--")) {
            end = "-->";
        } else {
            return rest.starts_with("<") && !rest.starts_with("<!");
        }
        const std::size_t found = rest.find(end);
        if (found == std::string_view::npos) return false;
        if (rest.starts_with("<?xml") && !HasPlainEncoding(rest.substr(0, found))) return false;
        rest.remove_prefix(found + end.size());
    }
}

}  // namespace win
