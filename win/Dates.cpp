#include "win/Dates.h"

#include <windows.h>
#include <oleauto.h>

#include "win/Text.h"

namespace win {
namespace {

std::string ShortDate(const SYSTEMTIME& time) {
    char text[128] = {};
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, sizeof text);
    return text;
}

SYSTEMTIME Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now;
}

}  // namespace

std::string GeneralDateNow() {
    const SYSTEMTIME now = Now();
    char time[128] = {};
    GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, sizeof time);
    return ShortDate(now) + " " + time;
}

std::string ShortDateToday() {
    return ShortDate(Now());
}

std::string ShortDateOf(std::string_view text) {
    std::wstring wide = ToWide(text);
    DATE date = 0;
    SYSTEMTIME time;
    if (FAILED(VarDateFromStr(wide.data(), LOCALE_USER_DEFAULT, 0, &date)) ||
        !VariantTimeToSystemTime(date, &time))
        return {};
    return ShortDate(time);
}

}  // namespace win
