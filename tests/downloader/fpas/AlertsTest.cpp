#include "downloader/fpas/Alerts.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/downloader/fpas/Documents.h"

namespace fpas {
namespace {

using Texts = std::vector<std::string>;

const std::int64_t kNow = nws::Time("2026-07-15T18:00:00Z");

struct Request {
    feed::Position place = {47.37, 8.54};
    const char* language = "en-GB";
    std::int64_t now = kNow;
};

std::string Build(const Texts& documents, const Request& request, feed::AlertMemory& memory) {
    Answer answer;
    for (const std::string& document : documents)
        answer.documents.push_back({"u" + std::to_string(answer.documents.size()),
                                    "https://h/" + std::to_string(answer.documents.size()),
                                    ReadAlert(document)});
    return BuildAlertDocument(answer, {"g1", request.place}, request.language, memory, request.now);
}

Texts All(const char* name, const Texts& documents, const Request& request = {}) {
    feed::AlertMemory memory;
    return nws::Elements(Build(documents, request, memory), name);
}

std::string Parameter(const char* name, const char* value) {
    return std::string("<valueName>") + name + "</valueName><value>" + value + "</value>";
}

std::string Update(const char* identifier, const char* sent, const char* referenced,
                   Elements more = {}) {
    more.insert({{"identifier", identifier},
                 {"sent", sent},
                 {"msgType", "Update"},
                 {"references", referenced}});
    return Document(more, more["msgType"] == "Cancel" ? "" : Block({{"event", "Update"}}));
}

TEST(BuildAlertDocument, ReadsRecordedAlerts) {
    const struct {
        const char* file;
        const char* now;
        Texts titles;
    } kCases[] = {
        {"cap-ie-geocodes.xml", "2025-04-14T18:59:59Z", {"Small Craft"}},
        {"cap-ie-geocodes.xml", "2025-04-14T19:00:00Z", {}},
        {"cap-ru-date-line.xml", "2025-03-02T10:00:00Z", {"Ветер"}},
        {"cap-us-polygons.xml", "2025-03-01T00:00:00Z", {"Special Weather Statement"}},
        {"cap-mo-all-clear.xml", "2025-04-13T06:00:00Z", {}},
        {"cap-gdacs-past.xml", "2025-03-01T23:00:00Z", {}},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(All("title", {nws::Recorded(c.file)}, {.now = nws::Time(c.now)}), c.titles)
            << c.file << " " << c.now;
}

TEST(BuildAlertDocument, ReportsAlertsInForce) {
    const std::pair<std::string, bool> kCases[] = {
        {Document({}), true},
        {Document({{"msgType", "Update"}}), true},
        {Document({{"msgType", "Cancel"}}), false},
        {Document({{"msgType", "Ack"}}), false},
        {Document({{"msgType", "Error"}}), false},
        {Document({{"status", "Exercise"}}), false},
        {Document({{"status", "System"}}), false},
        {Document({{"status", "Test"}}), false},
        {Document({{"status", "Draft"}}), false},
        {Document({{"scope", "Restricted"}}), false},
        {Document({{"scope", "Private"}}), false},
        {Document({}, Block({{"expires", "2026-07-15T18:00:01Z"}})), true},
        {Document({}, Block({{"expires", "2026-07-15T20:00:00+02:00"}})), false},
        {Document({}, Block({{"expires", ""}, {"onset", "2026-07-14T18:00:01Z"}})), true},
        {Document({{"sent", "2026-07-14T17:00:00Z"}}, Block({{"expires", ""}, {"onset", ""}})),
         false},
        {Document({{"sent", "now"}}, Block({{"expires", ""}, {"onset", ""}})), true},
        {Document({{"sent", "2026-07-14T17:00:00Z"}}, Block({{"expires", "soon"}, {"onset", ""}})),
         true},
        {Document({}, Block({{"onset", "2026-07-15T18:30:00Z"}})), true},
        {Document({}, Block({{"responseType", "AllClear"}})), false},
        {Document({}, Block({{"responseType", "Monitor"}})), true},
        {Document({}, Block({{"urgency", "Past"}})), false},
        {Document({}, Block({{"category", "Geo"}})), true},
        {Document({}, Block({{"category", "Fire"}})), true},
        {Document({}, Block({{"category", "Env"}})), true},
        {Document({}, Block({{"category", "Health"}})), false},
        {Document({}, Block({{"category", "Safety</category><category>Met"}})), true},
        {Document({}, Block({{"parameter", Parameter("awareness_level", "1; green; Minor")}})),
         false},
        {Document({}, Block({{"parameter", Parameter("awareness_level", "2; yellow; Moderate")}})),
         true},
    };
    for (const auto& [document, isInForce] : kCases)
        EXPECT_EQ(All("id", {document}).size(), isInForce ? 1u : 0u) << document;
}

TEST(BuildAlertDocument, OmitsReplacedAlerts) {
    const char* const later = "2026-07-15T17:00:00Z";
    const char* const ours = "x@y,z,2026-07-15T10:00:00Z MET@example.org,a,2026-07-15T16:00:00Z";
    const std::pair<std::string, Texts> kCases[] = {
        {Update("b", later, ours), {"Update"}},
        {Update("b", later, "met@example.org,a,wrong"), {"Update"}},
        {Update("b", later, ours, {{"msgType", "Cancel"}}), {}},
        {Update("b", later, ours, {{"status", "Test"}}), {"Storm"}},
        {Update("b", later, ours, {{"msgType", "Ack"}}), {"Storm"}},
        {Update("b", later, "other@example.org,a,2026-07-15T16:00:00Z"), {"Update", "Storm"}},
        {Update("b", later, "a"), {"Update", "Storm"}},
        {Update("b", "2026-07-15T15:00:00Z", ours), {"Storm", "Update"}},  // sent before the alert
        {Update("a", later, ours), {"Update"}},  // refers to itself, with a wrong time
    };
    for (const auto& [document, titles] : kCases)
        for (const Texts& documents :
             {Texts{Document({}), document}, Texts{document, Document({})}})
            EXPECT_EQ(All("title", documents), titles) << document;
    const std::string a = Update("a", later, "met@example.org,b,2026-07-15T17:00:00Z");
    const std::string b = Update("b", later, "met@example.org,a,2026-07-15T17:00:00Z");
    EXPECT_EQ(All("title", {a, b}), Texts{"Update"}) << "they name each other";
}

TEST(BuildAlertDocument, ComparesTimesWhereAlertsShareAnIdentifier) {
    const std::string other = Document({{"sent", "2026-07-15T15:00:00Z"}},
                                       Block({{"area", "<areaDesc>North</areaDesc>"}}));
    const std::string update =
        Update("b", "2026-07-15T17:00:00Z", "met@example.org,a,2026-07-15T18:00:00+02:00");
    EXPECT_EQ(All("title", {Document({}), other, update}), (Texts{"Update", "Storm"}));
}

TEST(BuildAlertDocument, ChoosesTheLanguage) {
    const auto document = [](const Texts& languages) {
        std::string blocks;
        for (const std::string& language : languages)
            blocks += Block({{"language", language}, {"event", language + "."}});
        return Document({}, blocks);
    };
    const struct {
        const char* user;
        Texts languages;
        const char* event;
    } kCases[] = {
        {"de-CH", {"en", "de-DE", "de-ch"}, "de-ch."},
        {"de-AT", {"en", "de-DE", "de-CH"}, "de-DE."},
        {"pt-BR", {"zh-mo", "pt-PT", "en-US"}, "pt-PT."},
        {"fi-FI", {"zh-mo", "pt", "en-US"}, "en-US."},
        {"fi-FI", {"zh-mo", "pt-PT"}, "zh-mo."},
        {"nb-NO", {"en", "no"}, "no."},
        {"en-US", {"fr", ""}, "."},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(All("title", {document(c.languages)}, {.language = c.user}), Texts{c.event})
            << c.user;
}

TEST(BuildAlertDocument, ChoosesTheBlocksOfThePlace) {
    const auto polygon = [](const std::string& text) { return "<polygon>" + text + "</polygon>"; };
    const std::string far = polygon("0,0 0,1 1,1 1,0");
    const feed::Position zurich{47.37, 8.54};
    const feed::Position wrangel{71.2, 179.99};
    const struct {
        std::string area;
        feed::Position place;
        bool isShown;
    } kCases[] = {
        {polygon("47,8 47,9\n\t48,9 48,8 47,8"), zurich, true},
        {polygon("47.38,8 47.38,9 48,9 48,8"), zurich, true},  // 1.1 km away, in the server's box
        {polygon("47.4,8 47.4,9 48,9 48,8"), zurich, false},
        {far + polygon("47,8 47,9 48,9 48,8"), zurich, true},
        {polygon("70,-179 72,-179 72,179 70,179"), wrangel, true},
        {polygon("70,-181 72,-181 72,-179.5 70,-179.5"), wrangel, true},
        {polygon("70,-179 72,-179 72,179 70,179"), {71, 0}, false},
        {polygon("70,-179 72,-179 72,-178 70,-178"), wrangel, false},
        {"<circle>47.4,8.5 10</circle>", zurich, true},
        {"<circle>47.4,8.5 0.5</circle>", zurich, false},
        {"<circle>51.5,-0.1 780</circle>", zurich, true},  // London is 777 km away
        {"<circle>51.5,-0.1 770</circle>", zurich, false},
        {kGeocode, zurich, true},
        {"<areaDesc>Everywhere</areaDesc>", zurich, true},
        {polygon("47,8 47"), zurich, true},  // damaged: no alert may be lost
        {polygon("47,8 48,9"), zurich, true},
        {polygon("-90,-180 90,-180 90,180 -90,180"), zurich, true},  // everywhere
        {polygon("40,-100 40,30 40,190 60,190 60,30 60,-100"), zurich, true},
        {"<circle>47.4 8.5</circle>", zurich, true},
    };
    for (const auto& c : kCases) {
        const std::string document =
            Document({}, Block({{"area", far}}) + Block({{"event", "Snow"}, {"area", c.area}}));
        EXPECT_EQ(All("title", {document}, {.place = c.place}), c.isShown ? Texts{"Snow"} : Texts{})
            << c.area;
    }
    // The server matched the place against a single block, or against blocks for one area.
    EXPECT_EQ(All("title", {Document({}, Block({{"area", far}}))}), Texts{"Storm"});
    const std::string same = Block({{"area", far}}) + Block({{"event", "Snow"}, {"area", far}});
    EXPECT_EQ(All("id", {Document({}, same)}).size(), 2u);
    // The areas of the two blocks begin and end alike and are equally long.
    const std::string north = polygon("47.00,8.00 47.00,9.00 48.00,9.00 48.00,8.00 47.00,8.00");
    const std::string south = polygon("47.00,8.00 47.00,9.00 46.00,9.00 46.00,8.00 47.00,8.00");
    EXPECT_EQ(All("title", {Document({}, Block({{"area", south}}) +
                                             Block({{"event", "Snow"}, {"area", north}}))}),
              Texts{"Snow"});
    // An alert in another language is better than none.
    const std::string alsoFar = polygon("0,0 0,1 1,1 1,-1");
    EXPECT_EQ(All("title", {Document({}, Block({{"area", far}}) + Block({{"area", alsoFar}}) +
                                             Block({{"language", "de"}, {"event", "Sturm"}}))}),
              Texts{"Sturm"});
}

TEST(BuildAlertDocument, CountsAnEventInSeveralLanguagesOnce) {
    const auto document = [](const char* identifier, const char* language, const char* event,
                             Elements more = {}) {
        more.insert({{"language", language}, {"event", event}});
        return Document({{"identifier", identifier}}, Block(more));
    };
    const Texts pair = {document("d", "de", "Sturm"), document("f", "fr", "Orage")};
    EXPECT_EQ(All("title", pair, {.language = "de-CH"}), Texts{"Sturm"});
    EXPECT_EQ(All("title", pair, {.language = "fr-FR"}), Texts{"Orage"});
    EXPECT_EQ(All("id", pair, {.language = "de-CH"}), All("id", pair, {.language = "fr-FR"}));
    for (const std::string& other :
         {document("e", "de", "Regen"), document("f", "fr", "Pluie", {{"severity", "Minor"}}),
          document("f", "fr", "Pluie", {{"area", "<circle>47,8 30</circle>"}}),
          document("f", "fr", "Pluie", {{"onset", "2026-07-15T18:30:00Z"}})})
        EXPECT_EQ(All("id", {pair.front(), other}).size(), 2u) << other;
}

TEST(BuildAlertDocument, KeepsTheIdentifierOfAnEvent) {
    feed::AlertMemory memory;
    const auto identify = [&](const Texts& documents) {
        memory = feed::AlertMemory(memory.Text(kNow));
        return nws::Elements(Build(documents, {}, memory), "id");
    };
    const Texts first = identify({Document({})});
    ASSERT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0].size(), 7u);
    EXPECT_EQ(first[0].find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"),
              std::string::npos);
    const char* const later = "2026-07-15T17:00:00Z";
    const std::string b = Update("b", later, "met@example.org,a,2026-07-15T16:00:00Z");
    const std::string c = Update("c", later, "met@example.org,b,2026-07-15T17:00:00Z");
    EXPECT_EQ(identify({b, Document({})}), first);
    EXPECT_EQ(identify({c}), first);
    // Issued again without a reference.
    EXPECT_EQ(identify({Document({{"identifier", "d"}, {"sent", later}})}), first);
    EXPECT_EQ(identify({Document({}), Document({{"identifier", "d"}, {"sent", later}})}), first);
    EXPECT_EQ(identify({Document({{"identifier", "g"}}, Block({{"event", "Update"}}))}), first);
    // Another event in the same words.
    EXPECT_NE(
        identify({Document({{"identifier", "e"}}, Block({{"onset", "2026-07-15T18:30:00Z"}}))}),
        first);
    // The same event in another language, from a document that was sent before the known one.
    const std::string french = Document({{"identifier", "h"}, {"sent", "2026-07-15T15:00:00Z"}},
                                        Block({{"language", "fr"}, {"event", "Orage"}}));
    EXPECT_EQ(identify({french, Document({})}), first);
    // Two updates split the area of an alert.
    const std::string half = Document({{"identifier", "f"},
                                       {"msgType", "Update"},
                                       {"references", "met@example.org,a,2026-07-15T16:00:00Z"}},
                                      Block({{"area", "<areaDesc>North</areaDesc>"}}));
    const Texts both = identify({b, half});
    EXPECT_EQ(both.size(), 2u);
    EXPECT_EQ(identify({half, b}), both);
    // Two updates split an alert into two events.
    const std::string rain = Document({{"identifier", "r"},
                                       {"msgType", "Update"},
                                       {"references", "met@example.org,a,2026-07-15T16:00:00Z"}},
                                      Block({{"event", "Rain"}}));
    const std::string wind = Update("w", later, "met@example.org,a,2026-07-15T16:00:00Z");
    const Texts events = identify({wind, rain});
    EXPECT_EQ(events.size(), 2u);
    EXPECT_EQ(identify({rain, wind}), events);
}

TEST(BuildAlertDocument, ReportsUnreadableDocuments) {
    const Texts documents = {Document({}),
                             Document({}).substr(0, 500),
                             Document({{"identifier", ""}}),
                             Document({{"msgType", "Alert"}}, ""),
                             Document({{"status", "actual"}}),
                             Document({{"msgType", "Info"}}),
                             Document({{"status", "Test"}, {"identifier", ""}}, "")};
    EXPECT_EQ(All("title", documents),
              (Texts{"Storm", "Unreadable alert", "Unreadable alert", "Unreadable alert",
                     "Unreadable alert", "Unreadable alert"}));
    const Texts bodies = All("html-msg-body", documents);
    EXPECT_NE(bodies[1].find("comes from https://h/1."), std::string::npos) << bodies[1];
    EXPECT_NE(bodies[2].find("comes from met@example.org."), std::string::npos) << bodies[2];
    const Texts identifiers = All("id", documents);
    EXPECT_EQ(std::set(identifiers.begin(), identifiers.end()).size(), 6u);
    feed::AlertMemory memory;
    const Answer answer{{{"u", "https://h/", ReadAlert(Document({}))}}, true};
    EXPECT_EQ(nws::Elements(BuildAlertDocument(answer, {"g1", {}}, "en", memory, kNow), "title"),
              (Texts{"Storm", "More alerts than can be read"}));
}

TEST(BuildAlertDocument, WritesTheMostSevereFirst) {
    const std::string two = Document({}, Block({{"event", "Very heavy rain and thunderstorms"},
                                                {"headline", "Rain &amp; more"},
                                                {"description", "<![CDATA[Rain\nof <30> mm.]]>"},
                                                {"area", "<areaDesc>Green Hills</areaDesc>"},
                                                {"instruction", "大雨\n小心"},
                                                {"severity", "Moderate"}}) +
                                             Block({{"event", "Very heavy rain and thunderstorms"},
                                                    {"headline", "Rain &amp; more"},
                                                    {"description", "Rain\nof &lt;30&gt; mm."},
                                                    {"instruction", "大雨\n小心"},
                                                    {"area", "<areaDesc>Hills</areaDesc>"},
                                                    {"senderName", ""}}));
    const Texts documents = {two,
                             Document({{"identifier", "x"}}, Block({{"severity", "Extreme"}}))};
    EXPECT_EQ(All("title", documents), (Texts{"Storm", "Very heavy rain and thunder..."}));
    EXPECT_EQ(All("html-msg-body", documents)[1],
              "Very heavy rain and thunderstorms\n\nRain &amp; more\n\nGreen Hills; Hills\n\n"
              "Rain of &lt;30&gt; mm.\n\n大雨小心\n\nmet@example.org\n\n"
              "Severity: Severe. Urgency: Expected. Certainty: Likely.");
}

}  // namespace
}  // namespace fpas
