#include "downloader/http/Url.h"

#include <gtest/gtest.h>

#include "downloader/http/StatusCodes.h"

namespace http {
namespace {

TEST(SchemeOf, NeedsALetterAndAColon) {
    EXPECT_EQ(SchemeOf("HTTPS://h/"), "https");
    EXPECT_EQ(SchemeOf("a1+b-c.d:x"), "a1+b-c.d");
    for (const char* none : {"", ":", "http", "1a:", "/a:b", "a b:", "?a:b"})
        EXPECT_EQ(SchemeOf(none), "") << none;
}

TEST(EscapeUrl, EscapesEverythingThatCouldSplitARequest) {
    EXPECT_EQ(EscapeUrl("http://h/a b|c\r\nX: y?d=%20&e=\xC5\x81#f"),
              "http://h/a%20b%7Cc%0D%0AX:%20y?d=%20&e=%C5%81");
    EXPECT_EQ(EscapeUrl("\"<>\\^`{}\x7F"), "%22%3C%3E%5C%5E%60%7B%7D%7F");
}

TEST(ResolveLocation, ResolvesAgainstTheBase) {
    for (const auto& [base, location, next] :
         {std::tuple{"http://h/a/b?q", "https://other/x?y", "https://other/x?y"},
          {"http://h/a/b?q", "//other/x", "http://other/x"},
          {"http://h:8/a/b?q", "/x/y?z", "http://h:8/x/y?z"},
          {"http://h/a/b?q", "c?r", "http://h/a/c?r"},
          {"http://h/a/b?q", " ?r ", "http://h/a/b?r"},
          {"http://h/a/b?q", "#part", "http://h/a/b?q"},
          {"http://h/a/b/c", "./", "http://h/a/b/"},
          {"http://h/a", "../../../..", "http://h/"},
          {"http://h/a", "/x/./y/..//z", "http://h/x//z"},
          {"http://h/a?p=/b/c", "d?e=../f", "http://h/d?e=../f"},
          {"http://h?q=/x", "y", "http://h/y"},
          {"http:", "y", "http:/y"},
          {"", "..", "/"}})
        EXPECT_EQ(ResolveLocation(base, location), next) << base << " " << location;
}

TEST(CheckRedirect, RefusesLessSecurityAndOtherSchemes) {
    EXPECT_EQ(CheckRedirect("http://a", "https://b", false), kSuccess);
    EXPECT_EQ(CheckRedirect("http://a", "HTTP://b", false), kSuccess);
    EXPECT_EQ(CheckRedirect("HTTPS://a", "http://a", false), kInsecureRedirect);
    EXPECT_EQ(CheckRedirect("https://a", "file:///c", false), kForeignRedirect);
    EXPECT_EQ(CheckRedirect("http://a", "", false), kForeignRedirect);
}

TEST(CheckRedirect, StaysOnTheHost) {
    for (const char* same : {"https://a/c", "HTTPS://A:443?c", "https://a:443"})
        EXPECT_EQ(CheckRedirect("https://a/b", same, true), kSuccess) << same;
    for (const char* other : {"https://a:8/b", "https://a.b/b", "https://a@c/b", "https://b/a"})
        EXPECT_EQ(CheckRedirect("https://a/b", other, true), kForeignRedirect) << other;
    EXPECT_EQ(CheckRedirect("http://a/b", "https://a/b", true), kForeignRedirect);
}

}  // namespace
}  // namespace http
