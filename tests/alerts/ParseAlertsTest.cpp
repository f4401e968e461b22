#include <gtest/gtest.h>

#include "alerts/AlertFeed.h"
#include "tests/ScratchStore.h"
#include "win/TextRules.h"

namespace alerts {
namespace {

using settings::ReadSetting;
using settings::WriteSetting;

class ParseAlertsTest : public tests::ScratchStore {
  protected:
    static std::int16_t Parse(const std::string& alerts, const std::string& code = "66044") {
        return ParseAlerts(
            WriteScratchFile("<?xml version=\"1.0\"?><aws:weather xmlns:aws=\"http://a\">"
                             "<aws:alerts>" +
                             alerts + "</aws:alerts></aws:weather>"),
            code);
    }
    static std::string Alert(const std::string& id, const std::string& title,
                             const std::string& body) {
        return "<aws:alert><aws:id>" + id + "</aws:id>" +
               (title.empty() ? "" : "<aws:title>" + title + "</aws:title>") +
               "<aws:posted-date><aws:year number=\"2026\"/></aws:posted-date><aws:html-msg-body>" +
               body + "</aws:html-msg-body></aws:alert>";
    }
    static std::string Stored(const char* key) { return ReadSetting("Alerts", key); }
};

TEST_F(ParseAlertsTest, StoresAlertsAndCountsNewOnes) {
    EXPECT_EQ(
        Parse(Alert("1", "Flood &amp; more", "two  blanks   three ") + Alert("2", "Wind", "b")), 2);
    EXPECT_EQ(Stored("title1"), "Flood & more");
    EXPECT_EQ(Stored("body1"), "two blanks three");
    EXPECT_EQ(Stored("zipcode1"), "66044");
    EXPECT_EQ(Stored("id2"), "2");
    EXPECT_EQ(Stored("Count"), "2");
    // A second station numbers on, and what both report is new once.
    EXPECT_EQ(Parse(Alert("2", "Wind", "b") + Alert("3", "Hail", "c"), "064321"), 1);
    EXPECT_EQ(Stored("zipcode3"), "064321");
    EXPECT_EQ(Stored("Count"), "4");
    EXPECT_EQ(settings::State().oldAlerts, "1¦2¦3");
}

TEST_F(ParseAlertsTest, CarriesTitlesOverAndKeepsNumbersOfEmptyAlerts) {
    EXPECT_EQ(Parse(Alert("1", "", "first") + Alert("2", "Wind", "") + Alert("3", "", "third")), 2);
    EXPECT_EQ(Stored("title1"), "");
    EXPECT_EQ(Stored("id2"), "");
    EXPECT_EQ(Stored("title3"), "Wind");
    EXPECT_EQ(Stored("Count"), "3");
}

TEST_F(ParseAlertsTest, FiltersByWords) {
    struct Case {
        const char* words;
        const char* showOnly;
        const char* count;
        const char* firstId;
    };
    const Case cases[] = {{"Tornado|||||flood", "", "1", "3"},
                          {"TORNADO|||||flood", "True", "1", "2"},
                          {"torn", "true", "1", "3"},  // "true" is not "True": ignore mode
                          {"", "True", "3", "1"}};
    for (const Case& c : cases) {
        WriteSetting("Options", "AlertFilters", c.words);
        WriteSetting("Options", "ShowFilteredWords", c.showOnly);
        WriteSetting("Alerts", "Count", "0");
        Parse(Alert("1", "", "a Tornado") + Alert("2", "", "tornado, FLOODS") +
              Alert("3", "", "calm"));
        EXPECT_EQ(Stored("Count"), c.count) << c.words << c.showOnly;
        EXPECT_EQ(Stored("id1"), c.firstId) << c.words << c.showOnly;
    }
}

TEST_F(ParseAlertsTest, TakesADocumentThatDoesNotLoadForNoAlerts) {
    WriteSetting("Alerts", "Count", "5");
    const std::string start = "<aws:weather xmlns:aws='http://a'>";
    for (const std::string& document :
         {std::string(), std::string("<html><body>Bad gateway<br></html>"), start + "<aws:alerts>",
          std::string("\0\1\2\3", 4),
          "<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///c:/x'>]>" + start + "&b;",
          "<!DOCTYPE a [<!ENTITY b 'x'>]>" + start + "</aws:weather>"}) {
        EXPECT_EQ(ParseAlerts(WriteScratchFile(document), "1"), 0);
        EXPECT_EQ(Stored("Count"), "5");
    }
    EXPECT_EQ(ParseAlerts("c:\\no\\such.xml", "1"), 0);
    EXPECT_EQ(ParseAlerts(WriteScratchFile("<other/>"), "1"), 0);
    EXPECT_EQ(Stored("Count"), "5");
}

TEST_F(ParseAlertsTest, StopsCountingAtTheEndOfSixteenBits) {
    WriteSetting("Alerts", "Count", "32767");
    EXPECT_EQ(Parse(Alert("1", "t", "b")), 1);
    EXPECT_EQ(Stored("Count"), "32767");
    WriteSetting("Alerts", "Count", "many");
    Parse(Alert("1", "t", "b"));
    EXPECT_EQ(Stored("Count"), "1");
}

TEST_F(ParseAlertsTest, SurvivesSizes) {
    std::string many;
    for (int i = 1; i <= 5000; ++i) many += Alert(win::Decimal(i), "T" + win::Decimal(i), "b");
    EXPECT_EQ(Parse(many), 5000);
    EXPECT_EQ(Stored("title5000"), "T5000");
    EXPECT_EQ(Parse(Alert("big", "t", std::string(16 * 1024 * 1024, 'x'))), 1);
    EXPECT_EQ(Stored("Count"), "5001");
}

}  // namespace
}  // namespace alerts
