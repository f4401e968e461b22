#include "downloader/http/Retry.h"

#include <algorithm>
#include <chrono>

#include "downloader/http/StatusCodes.h"
#include "win/Text.h"

namespace http {
namespace {

// Errors of WinHTTP: time-out, name not resolved, cannot connect, connection lost, broken answer.
constexpr int kTransientErrors[] = {
    12002, 12007, 12029, 12030, 12152, kTruncatedBody, kUndecodableBody, kBlankBody};

// The seconds that the server asks to wait, by a number or a date; nullopt if it asks for none.
std::optional<std::int64_t> RetryAfter(const Response& response) {
    if (const auto seconds = win::ParseNumber(response.retryAfter, INT32_MAX)) return *seconds;
    const auto moment = ParseHttpDate(response.retryAfter);
    const auto now = ParseHttpDate(response.date);
    if (!moment || !now) return std::nullopt;
    return std::max<std::int64_t>(*moment - *now, 0);
}

}  // namespace

bool IsTransient(const Response& response, BodyForm form) {
    const int status = response.status;
    return std::find(std::begin(kTransientErrors), std::end(kTransientErrors), status) !=
               std::end(kTransientErrors) ||
           (status >= 500 && status <= 599) || status == 403 || status == 429 ||
           (status == kSuccess && !HasForm(response.body, form));
}

std::optional<std::int64_t> WaitBeforeRetry(const Response& response, int failures,
                                            std::int64_t elapsed, std::int64_t latest,
                                            unsigned char jitter) {
    constexpr int kMostDoublings = 3;
    std::int64_t wait = std::int64_t{1000} << std::clamp(failures - 1, 0, kMostDoublings);
    wait += wait * jitter / 1024;
    if (const auto seconds = RetryAfter(response)) wait = std::max(wait, *seconds * 1000);
    if (elapsed + wait > latest) return std::nullopt;
    return wait;
}

std::optional<std::int64_t> ServerTime(const Response& response) {
    const auto date = ParseHttpDate(response.date);
    if (!date) return std::nullopt;
    constexpr int kDay = 86400;  // a greater age is an error: it would end every alert
    return *date + win::ParseNumber(response.age, kDay).value_or(0);
}

std::optional<std::int64_t> ParseHttpDate(std::string_view text) {
    constexpr std::string_view kForm = "???, 00 ??? 0000 00:00:00 GMT";
    constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
    if (text.size() != kForm.size()) return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (kForm[i] != '?' && kForm[i] != '0' && text[i] != kForm[i]) return std::nullopt;
    const auto day = win::ParseNumber(text.substr(5, 2), 31);
    const std::size_t month = kMonths.find(text.substr(8, 3));
    const auto year = win::ParseNumber(text.substr(12, 4), 9999);
    const auto hour = win::ParseNumber(text.substr(17, 2), 23);
    const auto minute = win::ParseNumber(text.substr(20, 2), 59);
    const auto second = win::ParseNumber(text.substr(23, 2), 60);
    if (!day || month == std::string_view::npos || month % 3 != 0 || !year || !hour || !minute ||
        !second)
        return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*year)),
                                           std::chrono::month(static_cast<unsigned>(month / 3 + 1)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    if (!date.ok()) return std::nullopt;
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    const std::int64_t hours = days * 24 + *hour;
    return (hours * 60 + *minute) * 60 + *second;
}

}  // namespace http
