#include "win/XmlGuard.h"

#include <algorithm>
#include <string>

#include "win/Text.h"

namespace win {
namespace {

constexpr char kWhite[] = " \t\r\n";

enum class ByteOrder { Bytes, LittleEndian, BigEndian };

ByteOrder OrderOf(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with(std::string_view("<\0", 2)))
        return ByteOrder::LittleEndian;
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with(std::string_view("\0<", 2)))
        return ByteOrder::BigEndian;
    return ByteOrder::Bytes;
}

// Returns the start of the document, long enough for any real prolog. UTF-16 becomes ASCII: other
// characters become 'x', so that neither of their bytes can be mistaken for markup.
std::string AsciiStart(std::string_view bytes) {
    constexpr std::size_t kPrologLimit = std::size_t{64} * 1024;
    const ByteOrder order = OrderOf(bytes);
    bytes = bytes.substr(0, kPrologLimit);
    if (order == ByteOrder::Bytes) {
        if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
        return std::string(bytes);
    }
    std::string start;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const char high = bytes[order == ByteOrder::LittleEndian ? i + 1 : i];
        const char low = bytes[order == ByteOrder::LittleEndian ? i : i + 1];
        const bool isMark = i == 0 && high == '\xFE' && low == '\xFF';
        if (!isMark) start += high == 0 && low != 0 ? low : 'x';
    }
    return start;
}

// Whether the XML declaration names no encoding, or one that contains ASCII.
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
