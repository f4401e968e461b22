#include "search/SearchFeed.h"

#include "tests/ScratchStore.h"

namespace search {
namespace {

class SearchFeedTest : public tests::ScratchStore {
  protected:
    static win::XmlDocument Load(const std::string& inside) {
        return win::LoadXmlFile(
            WriteScratchFile("<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
                             "<aws:weather xmlns:aws=\"http://a\" xmlns:b=\"http://b\">" +
                             inside + "</aws:weather>"));
    }
    static std::string Rows(const std::string& inside, const std::string& path) {
        std::string text;
        for (const NodeRow& row : ReadRows(Load(inside), path)) {
            for (const auto& [name, value] : row) text += name + "=" + value + ";";
            text += "\n";
        }
        return text;
    }
};

TEST_F(SearchFeedTest, ReadsTheElementsNamedAsTheFirst) {
    const std::string path = "aws:weather/aws:locations/";
    EXPECT_EQ(
        Rows("<aws:locations><aws:l cityname='Łódź &amp; &quot;x&quot;' b:citytype='1' zip=''/>"
             "<aws:other cityname='no'/><!-- x --><aws:l/><aws:l citytype='0'>text</aws:l>"
             "</aws:locations>",
             path),
        "cityname=Łódź & \"x\";citytype=1;zip=;\n\ncitytype=0;\n");
    EXPECT_EQ(Rows("<aws:locations/>", path), "");
    EXPECT_EQ(Rows("<aws:places><aws:l a='1'/></aws:places>", path), "");
    EXPECT_EQ(Rows("<aws:s id='1'/><b:s id='2'/><aws:s id='3'/>", "aws:weather/"),
              "id=1;\nid=3;\n");
    // A document that does not know the prefix.
    const auto other = win::LoadXmlFile(WriteScratchFile("<weather><l a='1'/></weather>"));
    ASSERT_TRUE(other);
    EXPECT_TRUE(ReadRows(other, "aws:weather/").empty());
}

}  // namespace
}  // namespace search
