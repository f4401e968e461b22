#pragma once

// The numbers that the status file may hold. 0 is success; 100 to 999 is the HTTP status of the
// response; 12000 to 12999 is a WinHTTP error; numbers from kWindowsErrorBase are other Windows
// errors with that base added, so that no two failures share a number. The program's own failures
// are the ones below.
namespace http {

inline constexpr int kSuccess = 0;

// The command line lacks the URL, the data file or the status file. Used as an exit code only.
inline constexpr int kBadArguments = 1001;
// The status file could not be written. As a status: writing it took several attempts, and the body
// was discarded meanwhile.
inline constexpr int kCannotWriteStatusFile = 1002;
// The data file could not be created or written completely.
inline constexpr int kCannotWriteDataFile = 1003;
// No source handles the URL's scheme.
inline constexpr int kUnknownScheme = 1004;
// The overall time limit expired.
inline constexpr int kOverallTimeout = 1005;
// The body exceeds kBodyLimit, compressed or uncompressed.
inline constexpr int kBodyTooLarge = 1006;
// The connection was closed before the end of the body.
inline constexpr int kTruncatedBody = 1007;
// The body is compressed and cannot be decompressed.
inline constexpr int kUndecodableBody = 1008;
// A redirect from https to http.
inline constexpr int kInsecureRedirect = 1009;
// More than kRedirectLimit consecutive redirects.
inline constexpr int kTooManyRedirects = 1010;
// A redirect to a scheme other than http and https, or to another host where that is not allowed.
inline constexpr int kForeignRedirect = 1011;
// The downloader itself failed: it ran out of memory or crashed.
inline constexpr int kInternalError = 1012;
// The place is outside the United States, which the live source does not cover.
inline constexpr int kOutsideUnitedStates = 1013;
// The live source does not know the ZIP code or the place abroad.
inline constexpr int kUnknownZipCode = 1014;
// The live source received something other than the document requested: an error page, or an
// incomplete document.
inline constexpr int kUnusableAnswer = 1015;
// The live source's gazetteer, places.dat next to the program, is missing or damaged.
inline constexpr int kNoGazetteer = 1016;
// The request to the live source is not for alerts, locations or stations, or its host is not
// allowed.
inline constexpr int kUnknownRequest = 1017;
// The body is empty or consists of white space only.
inline constexpr int kBlankBody = 1018;
// A drill answers requests for alerts only.
inline constexpr int kOnlyDrillAlerts = 1019;

// Added to a Windows error number outside WinHTTP's range.
inline constexpr int kWindowsErrorBase = 100000;

// Converts a Windows error number (as of GetLastError) to a status; never returns kSuccess.
constexpr int StatusOfSystemError(unsigned long error) {
    if (error == 0) return kInternalError;
    if (error >= 12000 && error <= 12999) return static_cast<int>(error);
    // HRESULT values use all 32 bits; the low half identifies the error well enough.
    return kWindowsErrorBase + static_cast<int>(error & 0xFFFF);
}

}  // namespace http
