#include "downloader/NwsVtecRules.h"

#include <algorithm>

#include "win/Text.h"

namespace downloader {
namespace {

// 'A' stands for a capital letter, '0' for a digit, '#' for either, all else for itself.
constexpr std::string_view kForm = "/A.AAA.####.AA.A.0000.000000T0000Z-000000T0000Z/";
constexpr std::size_t kActionAt = 3;
constexpr std::size_t kEventAt = 7;
constexpr std::size_t kEventLength = 14;
constexpr std::size_t kBeginAt = 22;
constexpr std::size_t kEndAt = 35;

bool Fits(char form, char c) {
    const bool isDigit = c >= '0' && c <= '9';
    const bool isLetter = c >= 'A' && c <= 'Z';
    if (form == 'A') return isLetter;
    if (form == '0') return isDigit;
    return form == '#' ? isDigit || isLetter : c == form;
}

// The year at the front of a time such as "260715T2100Z"; nothing for the zeros of an open one.
std::optional<int> YearAt(std::string_view text) {
    if (text.substr(0, 6) == "000000") return std::nullopt;
    return 2000 + (text[0] - '0') * 10 + (text[1] - '0');
}

}  // namespace

std::optional<Vtec> ParseVtec(std::string_view text) {
    if (!std::equal(kForm.begin(), kForm.end(), text.begin(), text.end(), Fits))
        return std::nullopt;
    const auto begin = YearAt(text.substr(kBeginAt));
    const auto end = YearAt(text.substr(kEndAt));
    return Vtec{text[1], text.substr(kActionAt, 3), text.substr(kEventAt, kEventLength),
                begin && end ? std::min(begin, end)
                : begin      ? begin
                             : end};
}

bool EndsEvent(const Vtec& vtec) {
    return vtec.action == "CAN" || vtec.action == "UPG" || vtec.action == "EXP";
}

std::string EventId(const Vtec& vtec, int firstSent) {
    int year = vtec.firstYear.value_or(firstSent);
    if (firstSent == year - 1) year = firstSent;
    const std::string digits = win::Decimal(100 + year % 100);
    return std::string(vtec.event) + "." + digits.substr(1);
}

}  // namespace downloader
