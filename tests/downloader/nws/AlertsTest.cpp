#include "downloader/nws/Alerts.h"

#include <gtest/gtest.h>

#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

using Texts = std::vector<std::string>;

const std::int64_t kNow = Time("2026-07-15T18:00:00Z");

Texts Ids(const std::string& json, std::int64_t now = kNow) {
    const auto xml = BuildAlertDocument(json, now);
    return xml ? Elements(*xml, "id") : Texts{"no answer"};
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
    const std::tuple<const char*, const char*, Texts> cases[] = {
        // The heat warning's message has expired, but its event continues.
        {"alerts-point-2.json", "2024-07-19T10:30:00Z", {"KPSR.EH.W.0006.24", "30843E66739E"}},
        {"alerts-point-2.json", "2024-07-20T10:00:00Z", {"KPSR.EH.W.0006.24"}},
        {"alerts-point-2.json", "2024-07-21T03:00:00Z", {}},
        {"alerts-history-update-cancel-11.json", "2025-11-25T22:30:00Z", {}},
        {"alerts-history-update-cancel-11.json",
         "2025-11-20T14:55:00Z",
         {"KMOB.FG.Y.0034.25", "KMOB.FG.Y.0031.25"}},
        {"alerts-with-test-8.json",
         "2023-09-13T02:20:00Z",
         {"KEPZ.SV.W.0044.23", "KVEF.FF.W.0140.23", "KLWX.FA.A.0011.23", "KCHS.RP.S.0009.23",
          "KGRB.FR.Y.0006.23", "KCAE.FA.Y.0075.23"}},
        {"problem-outside-us.json", "2024-07-19T10:30:00Z", {"no answer"}},
        {"stations-nyc-41.json", "2024-07-19T10:30:00Z", {"no answer"}},
    };
    for (const auto& [file, now, ids] : cases)
        EXPECT_EQ(Ids(Recorded(file), Time(now)), ids) << file << " " << now;
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
        EXPECT_EQ(Ids(Answer({feature})).size(), isKept ? 1u : 0u) << feature;
}

TEST(BuildAlertDocument, KeepsOneIdentifierPerEvent) {
    constexpr char kBefore[] = R"([{"identifier":"urn:oid:9","sent":"2025-12-31T20:00:00Z"}])";
    for (const auto& [code, sent, references, id] :
         {std::tuple{"/O.NEW.KTOP.TO.W.0045.260715T1700Z-260715T2100Z/", "2026-07-15", "[]",
                     "KTOP.TO.W.0045.26"},
          {"/O.CON.KTOP.TO.W.0045.000000T0000Z-260715T2100Z/", "2026-07-15", "[]",
           "KTOP.TO.W.0045.26"},
          // Over New Year: new, continued, without an end.
          {"/O.NEW.KTOP.WS.W.0099.251231T2200Z-260101T1200Z/", "2025-12-31", "[]",
           "KTOP.WS.W.0099.25"},
          {"/O.CON.KTOP.WS.W.0099.000000T0000Z-260101T1200Z/", "2026-01-01", kBefore,
           "KTOP.WS.W.0099.25"},
          {"/O.CON.KTOP.FL.W.0099.000000T0000Z-000000T0000Z/", "2026-01-01", kBefore,
           "KTOP.FL.W.0099.25"},
          {"not a code", "2026-07-15", "[]", "2232BD87F25F"},
          {"", "2026-07-15",
           R"([{"sent":"2026-07-15T01:00:00Z","identifier":"urn:oid:2"},)"
           R"({"sent":"2026-07-14T19:00:00-05:00","identifier":"urn:oid:1"}])",
           "2232BD87F25F"}})
        EXPECT_EQ(Ids(Answer({Feature({{"id", references[1] == ']' ? "urn:oid:1" : "urn:oid:5"},
                                       {"parameters", Vtec(code)},
                                       {"references", references},
                                       {"sent", std::string(sent) + "T18:00:00Z"},
                                       {"expires", "null"}})})),
                  Texts{id})
            << code << references;
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
        {{Feature({{"id", "null"}, {"headline", "one"}, {"areaDesc", "here"}}),
          Feature({{"id", "null"}, {"headline", "two"}, {"areaDesc", "there"}})},
         {"one\n\nhere", "two\n\nthere"}},
    };
    for (const auto& [features, bodies] : cases) {
        const auto xml = BuildAlertDocument(Answer(features), kNow);
        ASSERT_TRUE(xml);
        EXPECT_EQ(Elements(*xml, "html-msg-body"), bodies);
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
    const auto xml = BuildAlertDocument(Answer(features), kNow);
    ASSERT_TRUE(xml);
    EXPECT_EQ(Elements(*xml, "title"),
              (Texts{"1", "2", "3", "4", "5", "Storm 3", "Big Storm 3", "6", "7"}));
}

TEST(BuildAlertDocument, EscapesEveryText) {
    const auto xml = BuildAlertDocument(
        Answer({Feature({{"event", R"(Wind <b>&\"it's\"</b> \ud83c\udf2a)"},
                         {"headline", R"(tab\there \u0000\u0007\u001f\uffff\ufffe.)"},
                         {"areaDesc", "]]>"},
                         {"description", R"(Łódź \r\n 2)"},
                         {"instruction", R"(\u007f\u0085)"}})}),
        kNow);
    ASSERT_TRUE(xml);
    EXPECT_EQ(Elements(*xml, "title"),
              Texts{"Wind &lt;b&gt;&amp;&quot;it's&quot;&lt;/b&gt; \xF0\x9F\x8C\xAA"});
    EXPECT_EQ(Elements(*xml, "html-msg-body"),
              Texts{"tab\there      .\n\n]]&gt;\n\nŁódź  \n 2\n\n\x7F\xC2\x85"});
}

TEST(BuildAlertDocument, RejectsIncompleteLists) {
    const std::string whole = Answer({Feature({})});
    EXPECT_EQ(Ids(whole).size(), 1u);
    EXPECT_EQ(Ids(Answer({})), Texts{});
    for (const std::string& json :
         {std::string("<html><body>Reference #18.2d351ab8</body></html>"),
          whole.substr(0, whole.size() - 1), "[" + whole + "]", std::string("null"),
          std::string(R"({"type":"FeatureCollection"})"),
          std::string(R"({"type":"FeatureCollection","features":null})"),
          std::string(R"({"type":"FeatureCollection","features":{}})"),
          std::string(R"({"features":[]})"), Answer({"null"}), Answer({"[]"}), Answer({"{}"}),
          Answer({R"({"properties":null})"})})
        EXPECT_FALSE(BuildAlertDocument(json, kNow)) << json;
}

}  // namespace
}  // namespace nws
