#include "downloader/http/Proxy.h"

#include <gtest/gtest.h>

namespace http {
namespace {

TEST(ChooseProxy, SelectsByScheme) {
    for (const auto& [proxies, scheme, chosen] : {std::tuple{"p:1", "https", "p:1"},
                                                  {"http=p:1;https=q:2", "https", "q:2"},
                                                  {"HTTP=p:1", "http", "p:1"},
                                                  {"http=p:1;socks=s:3", "https", ""},
                                                  {" p:1 ;\r\n q:2;; ", "http", "p:1;q:2"},
                                                  {"https=", "https", ""},
                                                  {"", "http", ""}})
        EXPECT_EQ(ChooseProxy(proxies, "", scheme, "h.example"), chosen) << proxies;
}

TEST(ChooseProxy, ConnectsDirectlyToBypassedHosts) {
    for (const auto& [bypass, host, isDirect] : {std::tuple{"h.example", "H.Example", true},
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
                                                 {" ; ", "h", false},
                                                 {"", "", false}})
        EXPECT_EQ(ChooseProxy("p:1", bypass, "http", host).empty(), isDirect) << bypass << host;
}

}  // namespace
}  // namespace http
