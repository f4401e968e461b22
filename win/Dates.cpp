#include "win/Dates.h"

#include <algorithm>

#include "win/LateFunctions.h"
#include "win/CodePage.h"

namespace win {
namespace {

constexpr int kLongest = 128;

std::string ShortDate(const SYSTEMTIME& time) {
    wchar_t text[kLongest] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, kLongest);
    return FromWide(text);
}

SYSTEMTIME Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now;
}

bool HasNumber(std::string_view text, int wanted) {
    int number = -1;
    for (const char c : std::string(text) + ' ') {
        if (c >= '0' && c <= '9') {
            number = std::clamp(number, 0, 999) * 10 + (c - '0');
        } else {
            if (number == wanted) return true;
            number = -1;
        }
    }
    return false;
}

}  // namespace

std::string GeneralDateNow() {
    const SYSTEMTIME now = Now();
    wchar_t time[kLongest] = {};
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, kLongest);
    return ShortDate(now) + " " + FromWide(time);
}

std::string ShortDateToday() {
    return ShortDate(Now());
}

std::string ShortDateIfToday(std::string_view text) {
    // The usual cases do without the library that reads dates, and COM with it. In whatever form, a
    // date of today has the day of the month among its numbers.
    if (std::string today = ShortDateToday(); text.starts_with(today + " ")) return today;
    if (!HasNumber(text.substr(0, text.find(' ')), Now().wDay)) return {};
    std::wstring wide = ToWide(text);
    DATE date = 0;
    SYSTEMTIME time;
    if (FAILED(late::VarDateFromStr(wide.data(), LOCALE_USER_DEFAULT, 0, &date)) ||
        !late::VariantTimeToSystemTime(date, &time))
        return {};
    return ShortDate(time);
}

}  // namespace win
