#include "win/Dates.h"

#include <algorithm>

#include "win/CodePage.h"
#include "win/LateFunctions.h"
#include "win/Text.h"

namespace win {
namespace {

constexpr int kTextSize = 128;

std::string ShortDate(const SYSTEMTIME& time) {
    wchar_t text[kTextSize] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, kTextSize);
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
        if (IsDigit(c)) {
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
    wchar_t time[kTextSize] = {};
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, kTextSize);
    return ShortDate(now) + " " + FromWide(time);
}

std::string ShortDateToday() {
    return ShortDate(Now());
}

std::string ShortDateIfToday(std::string_view text) {
    // The usual cases do not load the library that parses dates. A date of today contains the day
    // of the month, whatever its format.
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
