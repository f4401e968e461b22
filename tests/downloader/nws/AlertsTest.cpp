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
Properties Tornado(const std::string& action, const std::string& sent, Properties more = {}) {
    more.insert(
        {{"id", "\"" + action + sent + "\""},
         {"event", "\"Tornado Warning\""},
         {"sent", "\"2026-07-15T" + sent + ":00Z\""},
         {"parameters", Vtec("/O." + action + ".KTOP.TO.W.0045.000000T0000Z-260715T2100Z/")}});
    return more;
}

TEST(BuildAlertDocument, ReadsRecordedAnswers) {
    struct Case {
        const char* file;
        const char* now;
        Texts ids;
    };
    const Case cases[] = {
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
    for (const Case& c : cases)
        EXPECT_EQ(Ids(Recorded(c.file), Time(c.now)), c.ids) << c.file << " " << c.now;
}

TEST(BuildAlertDocument, OmitsTestsAndEndedEvents) {
    struct Case {
        const char* what;
        Properties properties;
        bool isKept;
    };
    const Case cases[] = {
        {"in force", {}, true},
        {"test", {{"status", "\"Test\""}}, false},
        {"expired", {{"expires", "\"2026-07-15T18:00:00Z\""}}, false},
        {"expires in a second", {{"expires", "\"2026-07-15T18:00:01Z\""}}, true},
        {"event outlasts the message",
         {{"expires", "\"2026-07-15T10:00:00Z\""}, {"ends", "\"2026-07-16T10:00:00Z\""}},
         true},
        {"event ends before the message", {{"ends", "\"2026-07-15T17:00:00Z\""}}, false},
        {"with an invalid end", {{"ends", "\"soon\""}}, true},
        {"cancel", {{"messageType", "\"Cancel\""}}, false},
        {"all clear", {{"response", "\"AllClear\""}, {"urgency", "\"Past\""}}, false},
        {"past", {{"response", "\"Monitor\""}, {"urgency", "\"Past\""}}, true},
        {"cancelled event", Tornado("CAN", "17:00"), false},
        {"upgraded event", Tornado("UPG", "17:00"), false},
        {"expired event", Tornado("EXP", "17:00"), false},
        {"test event",
         {{"parameters", Vtec("/T.NEW.KTOP.TO.W.0045.000000T0000Z-260715T2100Z/")}},
         false},
        {"one code ends, another continues",
         {{"parameters", R"({"VTEC":["/O.UPG.KTOP.TO.A.0045.000000T0000Z-260715T2100Z/",)"
                         R"("/O.NEW.KTOP.TO.W.0046.000000T0000Z-260715T2100Z/"]})"}},
         true},
        {"without texts",
         {{"headline", "null"}, {"description", "null"}, {"event", "null"}, {"response", "null"}},
         true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Ids(Answer({Feature(c.properties)})).size(), c.isKept ? 1u : 0u) << c.what;
}

TEST(BuildAlertDocument, KeepsOneIdentifierPerEvent) {
    struct Case {
        const char* code;
        const char* sent;
        const char* references;
        const char* id;
    };
    constexpr char kBefore[] = R"([{"identifier":"urn:oid:9","sent":"2025-12-31T20:00:00Z"}])";
    const Case cases[] = {
        {"/O.NEW.KTOP.TO.W.0045.260715T1700Z-260715T2100Z/", "2026-07-15", "[]",
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
        {"not a code", "2026-07-15", R"([{"identifier":"urn:oid:1","sent":""}])", "2232BD87F25F"},
        {"", "2026-07-15",
         R"([{"sent":"2026-07-15T01:00:00Z","identifier":"urn:oid:2"},)"
         R"({"sent":"2026-07-14T19:00:00-05:00","identifier":"urn:oid:1"}])",
         "2232BD87F25F"},
    };
    for (const Case& c : cases) {
        const std::string own =
            std::string(c.references) == "[]" ? "\"urn:oid:1\"" : "\"urn:oid:5\"";
        const std::string json =
            Answer({Feature({{"id", own},
                             {"parameters", Vtec(c.code)},
                             {"references", c.references},
                             {"sent", "\"" + std::string(c.sent) + "T18:00:00Z\""},
                             {"expires", "null"}})});
        EXPECT_EQ(Ids(json), Texts{c.id}) << c.code << c.references;
    }
}

TEST(BuildAlertDocument, ReportsEachEventOnceByItsNewestMessage) {
    const std::string created = Feature(Tornado("NEW", "16:00", {{"headline", "\"created\""}}));
    const std::string updated = Feature(Tornado("CON", "17:00", {{"headline", "\"updated\""}}));
    const std::string cancelled = Feature(Tornado("CAN", "17:30"));
    const std::string cancelledInPart = Feature(Tornado("CAN", "17:00"));
    const std::string statement = Feature({{"id", "\"a\""}, {"headline", "\"statement\""}});
    const std::string update =
        Feature({{"id", "\"b\""},
                 {"headline", "\"update\""},
                 {"references", R"([{"identifier":"a","sent":"2026-07-15T12:00:00-05:00"}])"}});
    const std::string test = Feature({{"id", "\"t\""},
                                      {"status", "\"Test\""},
                                      {"references", R"([{"identifier":"a","sent":""}])"}});
    struct Case {
        std::vector<std::string> features;
        Texts bodies;
    };
    const Case cases[] = {
        {{created, created, created}, {"created"}},
        {{updated, created}, {"updated"}},
        {{updated, created, cancelled}, {}},
        {{cancelledInPart, updated}, {"updated"}},
        {{statement, update}, {"update"}},
        {{update, statement, update}, {"update"}},
        {{statement, test}, {"statement"}},
        {{Feature({{"id", "null"}, {"headline", "\"one\""}, {"areaDesc", "\"here\""}}),
          Feature({{"id", "null"}, {"headline", "\"two\""}, {"areaDesc", "\"there\""}})},
         {"one\n\nhere", "two\n\nthere"}},
    };
    for (const Case& c : cases) {
        const auto xml = BuildAlertDocument(Answer(c.features), kNow);
        ASSERT_TRUE(xml);
        EXPECT_EQ(Elements(*xml, "html-msg-body"), c.bodies);
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
        features.push_back(Feature({{"id", std::string("\"") + title + "\""},
                                    {"event", std::string("\"") + title + "\""},
                                    {"severity", std::string("\"") + severity + "\""},
                                    {"urgency", std::string("\"") + urgency + "\""}}));
    const auto xml = BuildAlertDocument(Answer(features), kNow);
    ASSERT_TRUE(xml);
    EXPECT_EQ(Elements(*xml, "title"),
              (Texts{"1", "2", "3", "4", "5", "Storm 3", "Big Storm 3", "6", "7"}));
}

TEST(BuildAlertDocument, EscapesEveryText) {
    const auto xml = BuildAlertDocument(
        Answer({Feature({{"event", R"("Wind <b>&\"it's\"</b> \ud83c\udf2a")"},
                         {"headline", R"("tab\there \u0000\u0007\u001f\uffff\ufffe.")"},
                         {"areaDesc", R"("]]>")"},
                         {"description", "\"Łódź \\r\\n 2\""},
                         {"instruction", R"("\u007f\u0085")"}})}),
        kNow);
    ASSERT_TRUE(xml);
    EXPECT_EQ(Elements(*xml, "title"),
              Texts{"Wind &lt;b&gt;&amp;&quot;it's&quot;&lt;/b&gt; \xF0\x9F\x8C\xAA"});
    EXPECT_EQ(Elements(*xml, "html-msg-body"),
              Texts{"tab\there      .\n\n]]&gt;\n\nŁódź  \n 2\n\n\x7F\xC2\x85"});
}

TEST(BuildAlertDocument, RejectsIncompleteLists) {
    const std::string whole = Answer({Feature({})});
    const std::string cases[] = {
        "",
        "<html><body>Reference #18.2d351ab8</body></html>",
        whole.substr(0, whole.size() - 1),
        whole + "x",
        "[" + whole + "]",
        "null",
        R"({"type":"FeatureCollection"})",
        R"({"type":"FeatureCollection","features":null})",
        R"({"type":"FeatureCollection","features":{}})",
        R"({"features":[]})",
        Answer({"null"}),
        Answer({"[]"}),
        Answer({"{}"}),
        Answer({R"({"properties":null})"}),
        Answer({Feature({{"headline", "\"\xC3\""}})}),
        Answer({Feature({{"headline", R"("\ud800")"}})}),
        std::string(1'000'000, '['),
    };
    EXPECT_EQ(Ids(whole).size(), 1u);
    EXPECT_EQ(Ids(Answer({})), Texts{});
    for (const std::string& json : cases)
        EXPECT_FALSE(BuildAlertDocument(json, kNow)) << json.substr(0, 200);
}

}  // namespace
}  // namespace nws
