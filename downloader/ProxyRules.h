#pragma once
#include <string>
#include <string_view>

// Which proxy an address is fetched through. The decision is made here and not left to WinHTTP
// because the stored login may only be shown to a proxy: it must be known whether one is in use.
namespace downloader {

// The proxies to try for the address, separated by ";", or nothing to go directly. `proxies` is in
// the system's form, "server:port" or "http=server:port;https=server:port"; `bypass` lists the
// hosts to reach directly, which may hold "*" and "<local>" (every host without a dot).
std::string ChooseProxy(std::string_view proxies, std::string_view bypass, std::string_view scheme,
                        std::string_view host);

}  // namespace downloader
