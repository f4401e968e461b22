#include "downloader/nws/Alerts.h"

#include <gtest/gtest.h>

#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

using Texts = std::vector<std::string>;

const std::int64_t kNow = Time("2026-07-15T18:00:00Z");

// A place in South Carolina, but with zones of all the places in the recorded answers.
AlertPlace Here() {
    return {{34.1, -80.7}, 5, {"AZC013", "AZZ540", "GAZ117", "MDZ008", "SCC079", "WIZ005"}};
}

std::optional<std::string> Build(const std::string& json, std::int64_t now = kNow) {
    feed::AlertMemory memory;
    return BuildAlertDocument(json, Here(), memory, now);
}

Texts All(const char* name, const std::string& json, std::int64_t now = kNow) {
    const auto xml = Build(json, now);
    return xml ? Elements(*xml, name) : Texts{"no answer"};
}

std::string Vtec(const std::string& code) {
    return R"({"VTEC":[")" + code + "\"]}";
}

// A message about one tornado warning, with the action of its code.
std::string Tornado(const std::string& action, const std::string& sent, Properties more = {}) {
    more.insert(
        {{"id", action + sent},
         {"event", "Tornado Warning"},
         {"sent", "2026-07-15T" + sent + ":00Z"},
         {"parameters", Vtec("/O." + action + ".KTOP.TO.W.0045.000000T0000Z-260715T2100Z/")}});
    return Feature(more);
}

TEST(BuildAlertDocument, ReadsRecordedAnswers) {
    struct Case {
        const char* file;
        const char* now;
        Texts titles;
    };
    const Case cases[] = {
        // The heat warning's message has expired, but its event continues.
        {"alerts-point-2.json",
         "2024-07-19T10:30:00Z",
         {"Excessive Heat Warning", "Air Quality Alert"}},
        {"alerts-point-2.json", "2024-07-20T10:00:00Z", {"Excessive Heat Warning"}},
        {"alerts-point-2.json", "2024-07-21T03:00:00Z", {}},
        {"alerts-with-test-8.json",
         "2023-09-13T02:20:00Z",
         {"Flood Watch", "Rip Current Statement", "Frost Advisory", "Flood Advisory"}},
        {"problem-outside-us.json", "2024-07-19T10:30:00Z", {"no answer"}},
        {"stations-nyc-41.json", "2024-07-19T10:30:00Z", {"no answer"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(All("title", Recorded(c.file), Time(c.now)), c.titles) << c.file << " " << c.now;
}

TEST(BuildAlertDocument, ReportsAlertsThatConcernThePlace) {
    const std::string near =
        R"({"type":"Polygon","coordinates":[[[-80,34],[-80,34.2],[-80.66,34.1]]]})";
    const std::string far =
        R"({"type":"Polygon","coordinates":[[[-80,34],[-80,34.2],[-80.6,34.1]]]})";
    const std::string both = R"({"type":"MultiPolygon","coordinates":[[[[0,0],[0,1],[1,1]]],)"
                             R"([[[-80,34,9],[-80,34.2,9],[-80.9,34.1,9]]]]})";
    const std::string ours = R"({"UGC":["SCC001","SCC079"]})";
    const std::string theirs = R"({"UGC":["SCC001"]})";
    const struct {
        std::string geometry;
        std::string geocode;
        std::size_t count;
    } kCases[] = {{"null", ours, 1},
                  {"null", theirs, 0},
                  {"null", "{}", 1},
                  {near, theirs, 1},
                  {far, ours, 0},
                  {both, theirs, 1},
                  {R"({"type":"Point","coordinates":[0,0]})", ours, 1},
                  {R"({"type":"Polygon","coordinates":[[[0,0],[1,1]]]})", ours, 1}};
    for (const auto& c : kCases)
        EXPECT_EQ(All("id", Answer({Feature({{"geocode", c.geocode}}, c.geometry)})).size(),
                  c.count)
            << c.geometry << c.geocode;
    EXPECT_EQ(
        All("id", Answer({Feature({{"affectedZones", R"(["https://h/zones/county/SCC001"])"}})})),
        Texts{});
}

TEST(BuildAlertDocument, OmitsTestsAndEndedEvents) {
    const std::pair<std::string, bool> cases[] = {
        {Feature({}), true},
        {Feature({{"status", "Test"}}), false},
        {Feature({{"expires", "2026-07-15T18:00:00Z"}}), false},
        {Feature({{"expires", "2026-07-15T18:00:01Z"}}), true},
        {Feature({{"expires", "2026-07-15T10:00:00Z"}, {"ends", "2026-07-16T10:00:00Z"}}), true},
        {Feature({{"ends", "2026-07-15T17:00:00Z"}}), false},
        {Feature({{"ends", "soon"}}), true},
        {Feature({{"messageType", "Cancel"}}), false},
        {Feature({{"response", "AllClear"}, {"urgency", "Past"}}), false},
        {Feature({{"response", "Monitor"}, {"urgency", "Past"}}), true},
        {Tornado("CAN", "17:00"), false},
        {Tornado("UPG", "17:00"), false},
        {Tornado("EXP", "17:00"), false},
        {Feature({{"parameters", Vtec("/T.NEW.KTOP.TO.W.0045.000000T0000Z-260715T2100Z/")}}),
         false},
        // One code ends, the other continues.
        {Feature({{"parameters", Vtec("/O.UPG.KTOP.TO.A.0045.000000T0000Z-260715T2100Z/\",\""
                                      "/O.NEW.KTOP.TO.W.0046.000000T0000Z-260715T2100Z/")}}),
         true},
        {Feature({{"headline", "null"}, {"description", "null"}, {"event", "null"}}), true},
    };
    for (const auto& [feature, isKept] : cases)
        EXPECT_EQ(All("id", Answer({feature})).size(), isKept ? 1u : 0u) << feature;
}

TEST(BuildAlertDocument, ReportsEachEventOnceByItsNewestMessage) {
    const std::string created = Tornado("NEW", "16:00", {{"headline", "created"}});
    const std::string updated = Tornado("CON", "17:00", {{"headline", "updated"}});
    const std::string cancelled = Tornado("CAN", "17:30");
    const std::string cancelledInPart = Tornado("CAN", "17:00");
    const std::string statement = Feature({{"id", "a"}, {"headline", "statement"}});
    const std::string update =
        Feature({{"id", "b"},
                 {"headline", "update"},
                 {"references", R"([{"identifier":"a","sent":"2026-07-15T12:00:00-05:00"}])"}});
    const std::string test = Feature(
        {{"id", "t"}, {"status", "Test"}, {"references", R"([{"identifier":"a","sent":""}])"}});
    const std::pair<std::vector<std::string>, Texts> cases[] = {
        {{created, created, created}, {"created"}},
        {{updated, created}, {"updated"}},
        {{updated, created, cancelled}, {}},
        {{cancelledInPart, updated}, {"updated"}},
        {{update, statement, update}, {"update"}},
        {{statement, test}, {"statement"}},
        {{Feature({{"id", "null"}, {"headline", "one"}, {"severity", "Severe"}}),
          Feature({{"id", "null"}, {"headline", "two"}})},
         {"one", "two"}},
    };
    for (const auto& [features, headlines] : cases) {
        const Texts bodies = All("html-msg-body", Answer(features));
        ASSERT_EQ(bodies.size(), headlines.size());
        for (std::size_t i = 0; i < bodies.size(); ++i)
            EXPECT_NE(bodies[i].find("\n\n" + headlines[i]), std::string::npos) << bodies[i];
    }
}

TEST(BuildAlertDocument, SortsBySeverityExceptForTitleEndings) {
    std::vector<std::string> features;
    for (const auto& [title, severity, urgency] : {std::tuple{"6", "Unknown", "Immediate"},
                                                   {"5", "Minor", "Immediate"},
                                                   {"4", "Severe", "Past"},
                                                   {"3", "Severe", "Future"},
                                                   {"2", "Severe", "Immediate"},
                                                   {"1", "Extreme", "Future"},
                                                   {"Storm 3", "Minor", "Past"},
                                                   {"Big Storm 3", "Minor", "Future"},
                                                   {"7", "null", "Nonsense"}})
        features.push_back(Feature(
            {{"id", title}, {"event", title}, {"severity", severity}, {"urgency", urgency}}));
    EXPECT_EQ(All("title", Answer(features)),
              (Texts{"1", "2", "3", "4", "5", "Storm 3", "Big Storm 3", "6", "7"}));
}

TEST(BuildAlertDocument, WritesEveryText) {
    const std::string json =
        Answer({Feature({{"event", R"(Wind <b>&\"it's\"</b> \ud83c\udf2a)"},
                         {"headline", R"(here \u0000\u0007\u001f\uffff\ufffe.)"},
                         {"areaDesc", "]]>"},
                         {"description", R"(Łódź: a flash\nflood warning\n\n* one\n* two)"},
                         {"instruction", R"(\u007f\u0085)"},
                         {"severity", "Minor"},
                         {"urgency", "null"}})});
    EXPECT_EQ(All("title", json),
              Texts{"Wind &lt;b&gt;&amp;&quot;it's&quot;&lt;/b&gt; \xF0\x9F\x8C\xAA"});
    EXPECT_EQ(All("html-msg-body", json),
              Texts{"Wind &lt;b&gt;&amp;&quot;it's&quot;&lt;/b&gt; \xF0\x9F\x8C\xAA\n\nhere      "
                    ".\n\n]]&gt;"
                    "\n\nŁódź: a flash flood warning\n\n* one\n* two\n\n\x7F\xC2\x85\n\n"
                    "Severity: Minor. Urgency: Unknown. Certainty: Unknown."});
}

TEST(BuildAlertDocument, RejectsIncompleteLists) {
    const std::string whole = Answer({Feature({})});
    EXPECT_EQ(All("id", whole).size(), 1u);
    EXPECT_EQ(All("id", Answer({})), Texts{});
    for (const std::string& json :
         {std::string("<html><body>Reference #18.2d351ab8</body></html>"),
          whole.substr(0, whole.size() - 1), "[" + whole + "]", std::string("null"),
          std::string(R"({"type":"FeatureCollection"})"),
          std::string(R"({"type":"FeatureCollection","features":null})"),
          std::string(R"({"type":"FeatureCollection","features":{}})"),
          std::string(R"({"features":[]})"), Answer({"null"}), Answer({"[]"}), Answer({"{}"}),
          Answer({R"({"properties":null})"})})
        EXPECT_FALSE(Build(json)) << json;
}

}  // namespace
}  // namespace nws
