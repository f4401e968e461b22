#include "win/XmlGuard.h"

#include <gtest/gtest.h>

#include <string>

namespace win {
namespace {

std::string Wide(std::string_view text, bool bigEndian) {
    std::string wide(bigEndian ? "\xFE\xFF" : "\xFF\xFE");
    for (const char c : text) {
        if (bigEndian) wide += '\0';
        wide += c;
        if (!bigEndian) wide += '\0';
    }
    return wide;
}

TEST(XmlGuard, AcceptsOrdinaryDocuments) {
    for (const std::string& text :
         {std::string("<a/>"), std::string("\xEF\xBB\xBF<?xml version='1.0'?>\r\n<a/>"),
          std::string(
              "<?xml version=\"1.0\" encoding=\"utf-8\"?><!-- <!DOCTYPE --><?pi <!DOCTYPE?><a/>"),
          std::string("<a><![CDATA[<!DOCTYPE html>]]></a>"),
          Wide("<?xml version='1.0'?><a/>", true), Wide("<a/>", false),
          std::string("<?xml version='1.0' encoding='ISO-8859-1'?><a/>")})
        EXPECT_TRUE(IsSafeXml(text)) << text;
}

TEST(XmlGuard, RejectsDocumentTypesInAnyEncoding) {
    const std::string declared =
        "<?xml version='1.0'?>\n<!-- x --><!DOCTYPE a SYSTEM 'http://x'><a/>";
    for (const std::string& text :
         {declared, Wide(declared, true), Wide(declared, false), "\xEF\xBB\xBF" + declared,
          std::string("<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"),
          // Encodings that do not contain ASCII.
          std::string("<?xml version='1.0' encoding='utf-7'?>+ADwAIQ-DOCTYPE a><a/>"),
          std::string("<?xml version='1.0' encoding='ebcdic-cp-us'?><a/>"), std::string(),
          // A comment with wide characters whose bytes would end it and start an element.
          Wide("<!-- ", false) + "----> <a" + Wide(" --><!DOCTYPE a><a/>", false).substr(2),
          Wide("<!-- ", true) + "---- >a<" + Wide(" --><!DOCTYPE a><a/>", true).substr(2),
          std::string("no markup"), std::string("<!-- never closed <a/>"), std::string("<?xml ")})
        EXPECT_FALSE(IsSafeXml(text)) << text;
}

}  // namespace
}  // namespace win
