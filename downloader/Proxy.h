#pragma once
#include <windows.h>
#include <winhttp.h>

#include <string>

namespace downloader {

// The proxies that the user's or the machine's settings name for the address (asking an automatic
// configuration where one is set), in WinHTTP's form; empty to connect directly.
std::string FindProxy(const std::string& url, const std::string& scheme, const std::string& host);

// Puts the stored proxy login on a request that a proxy has answered with 407. False when nothing
// is stored or the proxy asks for no login that the system can give.
bool AddProxyLogin(HINTERNET request);

}  // namespace downloader
