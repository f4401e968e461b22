#include "downloader/ProxyRules.h"

#include <gtest/gtest.h>

namespace downloader {
namespace {

TEST(ChooseProxy, PicksByScheme) {
    const struct {
        const char* proxies;
        const char* scheme;
        const char* chosen;
    } cases[] = {
        {"p:1", "https", "p:1"},
        {"http=p:1;https=q:2", "https", "q:2"},
        {"HTTP=p:1", "http", "p:1"},
        {"http=p:1;socks=s:3", "https", ""},
        {" p:1 ;\r\n q:2;; ", "http", "p:1;q:2"},
        {"https=", "https", ""},
        {"", "http", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ChooseProxy(c.proxies, "", c.scheme, "h.example"), c.chosen) << c.proxies;
}

TEST(ChooseProxy, KeepsBypassedHostsAway) {
    const struct {
        const char* bypass;
        const char* host;
        bool isDirect;
    } cases[] = {
        {"h.example", "H.Example", true},
        {"other;*.example", "a.b.example", true},
        {"*.example", "example", false},
        {"*.example", "x.example.org", false},
        {"192.168.*", "192.168.7.8", true},
        {"a*b*c", "aXbYbZc", true},
        {"a*b*c", "aXbYbZ", false},
        {"<local>", "intranet", true},
        {"<local>", "intranet.example", false},
        {"<LOCAL> *.net", "x.net", true},
        {"http://h.example:80", "h.example", true},
        {"[::1]", "[::1]", true},
        {"*", "anything", true},
        {" ; ", "h", false},
        {"", "", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ChooseProxy("p:1", c.bypass, "http", c.host).empty(), c.isDirect)
            << c.bypass << " " << c.host;
}

}  // namespace
}  // namespace downloader
