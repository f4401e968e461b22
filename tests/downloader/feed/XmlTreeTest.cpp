#include "downloader/feed/XmlTree.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

std::string Repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

TEST(XmlTree, RejectsUnsafeDocuments) {
    const std::string utf16("\xFF\xFE<\0a\0/\0>\0", 10);
    const std::pair<std::string, bool> kCases[] = {
        {"<a/>", true},
        {"\xEF\xBB\xBF<?xml version='1.0'?><!-- c --><?x y?>\n<a b=\"<c>\" d='>'/>\n", true},
        {Repeat("<a>", 32) + Repeat("</a>", 32), true},
        {Repeat("<a>", 33) + Repeat("</a>", 33), false},
        {Repeat("<a>", 100'000), false},
        // An apparent quote does not hide elements.
        {"<a\">" + Repeat("<a>", 100'000) + "\"/>", false},
        {"<a=\">" + Repeat("<a>", 100'000) + "\"/>", false},
        {"<a b\"=''>" + Repeat("<a>", 100'000) + "\"/>", false},
        {"<a>" + Repeat("<a></a>", 249'999) + "</a>", true},
        {"<a>" + Repeat("<a></a>", 250'000) + "</a>", false},
        {"<a>" + std::string(kLongestDocument - 7, 'x') + "</a>", true},
        {"<a>" + std::string(kLongestDocument - 6, 'x') + "</a>", false},
        {"<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>", false},
        {"<a><!DOCTYPE b></a>", false},
        {"<a>&b;</a>", true},
        {"<a/><b/>", false},
        {"<a></b>", false},
        {"<a><b></a>", false},
        {"<a", false},
        {"<a><![CDATA[</a>", false},
        {"", false},
        {"no XML", false},
        {utf16, false},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>b</a>", true},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>", false},
        {"<?xml version='1.0' encoding='utf-8'?><a>\xC3\xA9</a>", true},
    };
    for (const auto& [document, isAccepted] : kCases)
        EXPECT_EQ(static_cast<bool>(XmlTree(document).Root()), isAccepted)
            << document.substr(0, 60) << " " << document.size();
}

TEST(XmlTree, ReadsTexts) {
    const std::pair<std::string, std::string> kCases[] = {
        {"<a> one\n two </a>", "one\n two"},
        {"<a>&lt;&amp;&#x4E2D;&none;</a>", "<&中&none;"},
        {"<a>one<!-- c -->two<![CDATA[ <b>&amp; ]]>three</a>", "onetwo <b>&amp; three"},
        {"<a>one<b>no</b>two<c/>three</a>", "onetwothree"},
        {"<a><b>no</b></a>", ""},
        {"<a/>", ""},
    };
    for (const auto& [document, text] : kCases)
        EXPECT_EQ(XmlTree(document).Root().Text(), text) << document;
    const XmlTree tree("<p:a xmlns:p='x'><p:b>1</p:b>\n<c>2</c></p:a>");
    const XmlElement first = tree.Root().FirstChild();
    EXPECT_EQ(tree.Root().Name(), "a");
    EXPECT_EQ(first.Name(), "b");
    EXPECT_EQ(first.Next().FirstText(), "2");
    EXPECT_FALSE(first.Next().Next());
}

}  // namespace
}  // namespace feed
