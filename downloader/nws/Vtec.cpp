#include "downloader/nws/Vtec.h"

#include <algorithm>

#include "win/Text.h"

namespace nws {
namespace {

// 'A' matches a capital letter, '0' a digit, '#' either of them; other characters match themselves.
constexpr std::string_view kForm = "/A.AAA.####.AA.A.0000.000000T0000Z-000000T0000Z/";
constexpr std::size_t kActionAt = 3;
constexpr std::size_t kEventAt = 7;
constexpr std::size_t kEventLength = 14;
constexpr std::size_t kBeginAt = 22;
constexpr std::size_t kEndAt = 35;

bool MatchesForm(char form, char c) {
    const bool isDigit = win::IsDigit(c);
    const bool isCapital = c >= 'A' && c <= 'Z';
    if (form == 'A') return isCapital;
    if (form == '0') return isDigit;
    return form == '#' ? isDigit || isCapital : c == form;
}

// Returns the year of a time such as "260715T2100Z"; nullopt for the zeros of an unspecified time.
std::optional<int> ParseYear(std::string_view text) {
    if (text.substr(0, 6) == "000000") return std::nullopt;
    return 2000 + (text[0] - '0') * 10 + (text[1] - '0');
}

}  // namespace

std::optional<Vtec> ParseVtec(std::string_view text) {
    if (!std::equal(kForm.begin(), kForm.end(), text.begin(), text.end(), MatchesForm))
        return std::nullopt;
    const auto begin = ParseYear(text.substr(kBeginAt));
    const auto end = ParseYear(text.substr(kEndAt));
    return Vtec{text[1], text.substr(kActionAt, 3), text.substr(kEventAt, kEventLength),
                begin && end ? std::min(begin, end)
                : begin      ? begin
                             : end};
}

bool EndsEvent(const Vtec& vtec) {
    return vtec.action == "CAN" || vtec.action == "UPG" || vtec.action == "EXP";
}

int FirstYear(const Vtec& vtec, int firstSent) {
    const int year = vtec.firstYear.value_or(firstSent);
    return firstSent == year - 1 ? firstSent : year;
}

}  // namespace nws
