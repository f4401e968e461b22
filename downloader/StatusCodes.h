#pragma once

// The numbers that the status file may hold. 0 is success; 100 to 999 is the HTTP status of the
// answer; 12000 to 12999 is an error of WinHTTP; from kWindowsErrorBase on it is another error of
// Windows with that base added, so that no two failures share a number. The program's own failures
// are these:
namespace downloader {

inline constexpr int kSuccess = 0;

// The command line does not hold URL, data file and status file. Only ever the exit code.
inline constexpr int kBadArguments = 1001;
// The status file cannot be written. As a status: it could be written only after some tries, for
// which the body was given up.
inline constexpr int kCannotWriteStatusFile = 1002;
// The data file cannot be made or written whole.
inline constexpr int kCannotWriteDataFile = 1003;
// No source answers the URL's scheme.
inline constexpr int kUnknownScheme = 1004;
// The overall time limit ran out.
inline constexpr int kOverallTimeout = 1005;
// The body is longer than kBodyLimit, packed or unpacked.
inline constexpr int kBodyTooLarge = 1006;
// The connection ended before the body did.
inline constexpr int kTruncatedBody = 1007;
// The body came compressed and cannot be unpacked.
inline constexpr int kUndecodableBody = 1008;
// A secure address redirected to an insecure one.
inline constexpr int kInsecureRedirect = 1009;
// More than kRedirectLimit redirects in a row.
inline constexpr int kTooManyRedirects = 1010;
// A redirect to something that is neither http nor https.
inline constexpr int kForeignRedirect = 1011;
// The downloader itself failed: memory ran out, or it crashed.
inline constexpr int kInternalError = 1012;
// The place lies outside the United States, where the live source knows nothing.
inline constexpr int kOutsideUnitedStates = 1013;
// The live source does not know the ZIP code.
inline constexpr int kUnknownZipCode = 1014;
// What the live source got is not the answer it asked for: an error page, or a part of an answer.
inline constexpr int kUnusableAnswer = 1015;
// The live source's gazetteer, places.dat beside the program, is missing or damaged.
inline constexpr int kNoGazetteer = 1016;
// The live source was not asked for alerts, locations or stations, or not at an allowed host.
inline constexpr int kUnknownRequest = 1017;
// The body is empty or nothing but white space.
inline constexpr int kBlankBody = 1018;

// Added to a Windows error number outside WinHTTP's range.
inline constexpr int kWindowsErrorBase = 100000;

}  // namespace downloader
