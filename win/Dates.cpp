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

// The short date that the text begins with, when it is that of one of the last days.
std::string RecentDateOf(std::string_view text) {
    constexpr int days = 31;
    constexpr ULONGLONG day = 24ULL * 60 * 60 * 10'000'000;
    SYSTEMTIME time = Now();
    ULARGE_INTEGER ticks;
    FILETIME fileTime;
    SystemTimeToFileTime(&time, &fileTime);
    ticks.LowPart = fileTime.dwLowDateTime;
    ticks.HighPart = fileTime.dwHighDateTime;
    for (int i = 0; i < days; ++i, ticks.QuadPart -= day) {
        fileTime = {ticks.LowPart, ticks.HighPart};
        FileTimeToSystemTime(&fileTime, &time);
        std::string date = ShortDate(time);
        if (text.starts_with(date + " ")) return date;
    }
    return {};
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
    // The usual case needs no reading of dates, whose library (COM with it) is then never loaded.
    if (std::string recent = RecentDateOf(text); !recent.empty()) return recent;
    std::wstring wide = ToWide(text);
    DATE date = 0;
    SYSTEMTIME time;
    if (FAILED(late::VarDateFromStr(wide.data(), LOCALE_USER_DEFAULT, 0, &date)) ||
        !late::VariantTimeToSystemTime(date, &time))
        return {};
    return ShortDate(time);
}

}  // namespace win
