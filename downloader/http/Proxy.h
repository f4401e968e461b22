#pragma once
#include <windows.h>
#include <winhttp.h>

#include <string>
#include <string_view>

// The proxy for a URL, and the login stored for it. The proxy is chosen here rather than by WinHTTP
// because the stored login must only be sent to a proxy, so it must be known whether one is in use.
namespace http {

// Returns the proxies for the URL from the settings of the user or the machine, running an
// automatic configuration script where one is set. The result is in WinHTTP's form; empty means a
// direct connection.
std::string FindProxy(const std::string& url, const std::string& scheme, const std::string& host);

// Selects the proxies for a scheme and host, separated by ";"; empty means a direct connection.
// `proxies` is in the system's form, "server:port" or "http=server:port;https=server:port".
// `bypass` lists the hosts to connect to directly; it may contain "*" and "<local>" (every host
// name without a dot).
std::string ChooseProxy(std::string_view proxies, std::string_view bypass, std::string_view scheme,
                        std::string_view host);

// Sets the stored proxy login on a request that a proxy has answered with 407. Returns false when
// no login is stored or the proxy offers no supported authentication scheme.
bool AddProxyLogin(HINTERNET request);

}  // namespace http
