#include "win/Dates.h"

#include "win/LateFunctions.h"
#include "win/Text.h"

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

std::string ShortDateOf(std::string_view text) {
    // The usual case: it does without the library that reads dates, and COM with it.
    if (std::string today = ShortDateToday(); text.starts_with(today + " ")) return today;
    std::wstring wide = ToWide(text);
    DATE date = 0;
    SYSTEMTIME time;
    if (FAILED(late::VarDateFromStr(wide.data(), LOCALE_USER_DEFAULT, 0, &date)) ||
        !late::VariantTimeToSystemTime(date, &time))
        return {};
    return ShortDate(time);
}

}  // namespace win
