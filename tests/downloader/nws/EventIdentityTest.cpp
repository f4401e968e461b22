#include "downloader/nws/EventIdentity.h"

#include <gtest/gtest.h>

#include <set>

#include "downloader/nws/Tier.h"
#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

// One service and one computer: answers come one after another and are remembered.
struct Service {
    feed::AlertMemory memory;
    int lastIdentifier = 0;

    std::string Tell(Message message) {
        const std::string identifier = "urn:oid:" + std::to_string(++lastIdentifier);
        message.identifier = identifier;
        return AlertIdentifier(
            IdentifyEvents({message}, memory, Time("2026-01-01T00:00:00Z")).front());
    }

    // The next message of an event, which names only its predecessor.
    std::string Continue(Message message) {
        const std::string last = "urn:oid:" + std::to_string(lastIdentifier);
        message.replaced = {last};
        return Tell(message);
    }
};

Message Warning(const char* vtec, const char* sent = "2025-12-31T22:00:00Z") {
    Message message;
    message.event = "Flood Warning";
    message.status = "Actual";
    message.sent = sent;
    message.vtec = ParseVtec(vtec);
    return message;
}

constexpr char kNew[] = "/O.NEW.KTOP.FL.W.0099.251231T2200Z-000000T0000Z/";
constexpr char kContinued[] = "/O.CON.KTOP.FL.W.0099.000000T0000Z-000000T0000Z/";

Message Statement(std::string_view text) {
    Message message = Warning("");
    message.event = "Special Weather Statement";
    message.senderName = "NWS Topeka";
    message.description = text;
    return message;
}

TEST(IdentifyEvents, KeepsAnEventThroughItsUpdates) {
    Service service;
    const std::string identifier = service.Tell(Warning(kNew));
    EXPECT_EQ(identifier.size(), 7u);
    EXPECT_EQ(identifier.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"),
              std::string::npos);
    for (int update = 0; update < 10; ++update)
        EXPECT_EQ(service.Continue(Warning(kContinued, "2026-01-02T00:00:00Z")), identifier)
            << update;
    // The memory is written and read back between two runs of the program.
    service.memory = feed::AlertMemory(service.memory.Text(Time("2026-01-02T00:00:00Z")));
    EXPECT_EQ(service.Continue(Warning(kContinued, "2026-01-03T00:00:00Z")), identifier);
    EXPECT_NE(service.Continue(Warning("/O.NEW.KTOP.FL.W.0100.260103T2200Z-000000T0000Z/")),
              identifier);
    // A new event began this year, although it replaces an older event of another kind.
    constexpr char kFirst[] = "/O.NEW.KTOP.FL.W.0001.000000T0000Z-000000T0000Z/";
    Message made = Warning(kFirst, "2026-01-02T00:00:00Z");
    const std::string january = Service().Tell(made);
    made.firstReplaced = "urn:oid:1";
    made.firstSent = "2025-12-31T22:00:00Z";
    EXPECT_EQ(Service().Tell(made), january);
    // A watch that a warning replaces is another event, and so is a warning with the same number in
    // the next year.
    EXPECT_NE(service.Continue(Warning("/O.NEW.KTOP.FL.A.0099.251231T2200Z-000000T0000Z/")),
              identifier);
    EXPECT_NE(service.Tell(Warning("/O.NEW.KTOP.FL.W.0099.260605T2200Z-000000T0000Z/",
                                   "2026-06-05T22:00:00Z")),
              identifier);

    const std::string statement = service.Tell(Statement("Dense fog\nuntil 9."));
    EXPECT_EQ(service.Tell(Statement("Dense fog until\n9.")), statement) << "a re-issue";
    for (const char* text : {"Fog until 8", "Fog until 8:30", "Fog until 9"})
        EXPECT_EQ(service.Continue(Statement(text)), statement) << text;
    EXPECT_EQ(service.Tell(Statement("Fog until 9")), statement) << "a re-issue of an update";
    EXPECT_NE(service.Tell(Statement("Gusts")), statement);
}

TEST(IdentifyEvents, ReportsAnEscalationAgain) {
    Service service;
    std::set<std::string> identifiers;
    std::string highest;
    const struct {
        std::vector<std::string_view> threats;
        std::size_t identifiers;
    } kSteps[] = {
        {{"RADAR INDICATED"}, 1},
        {{"OBSERVED"}, 2},
        {{"RADAR INDICATED"}, 2},
        {{"OBSERVED", "CONSIDERABLE"}, 3},
        {{"CATASTROPHIC"}, 4},
        {{"CONSIDERABLE"}, 4},
        {{}, 4},
    };
    for (const auto& step : kSteps) {
        Message message = Warning("/O.CON.KTOP.TO.W.0045.000000T0000Z-260101T0100Z/");
        message.threats = step.threats;
        highest = service.Continue(message);
        identifiers.insert(highest);
        EXPECT_EQ(identifiers.size(), step.identifiers);
    }
    // A cancellation for part of the area, in the same answer, does not lower the tier.
    Message cancelled = Warning("/O.CAN.KTOP.TO.W.0045.000000T0000Z-260101T0100Z/");
    Message rest = Warning("/O.CON.KTOP.TO.W.0045.000000T0000Z-260101T0100Z/");
    const auto events = IdentifyEvents({cancelled, rest}, service.memory, 0);
    EXPECT_EQ(AlertIdentifier(events[0]), highest);
    EXPECT_EQ(AlertIdentifier(events[1]), highest);
}

TEST(AlertMemory, KeepsTheNewestForAMonth) {
    constexpr std::int64_t kDay = 86400;
    feed::AlertMemory memory;
    for (int i = 0; i < 6000; ++i)
        memory.Remember("m" + std::to_string(i), {"ABCDEFG", 2026, 1}, i * 600);
    const std::int64_t now = 6000 * 600;
    feed::AlertMemory kept(memory.Text(now));
    EXPECT_EQ(kept.Find("m999"), nullptr);
    ASSERT_NE(kept.Find("m5999"), nullptr);
    EXPECT_EQ(kept.Find("m5999")->year, 2026);
    EXPECT_EQ(feed::AlertMemory(memory.Text(now + 30 * kDay)).Find("m5999"), nullptr);
    EXPECT_FALSE(kept.IsChanged());
    kept.Remember("m5999", {"ABCDEFG", 2026, 1}, now);
    EXPECT_FALSE(kept.IsChanged()) << "nothing new to save";
    kept.Remember("m5999", {"ABCDEFG", 2026, 2}, now);
    EXPECT_TRUE(kept.IsChanged());
    memory.Merge(kept);
    EXPECT_EQ(memory.Find("m5999")->tier, 2);
    std::string damaged = memory.Text(now);
    damaged.back() = damaged[damaged.size() - 2];
    EXPECT_EQ(feed::AlertMemory(damaged).Find("m5999"), nullptr);
    EXPECT_EQ(feed::AlertMemory(memory.Text(now - 2 * kDay)).Find("m5999"), nullptr)
        << "from the future";
}

TEST(Title, NamesTheTier) {
    const struct {
        const char* event;
        std::vector<std::string_view> threats;
        const char* title;
    } kCases[] = {
        {"Tornado Warning", {"RADAR INDICATED"}, "Tornado Warning"},
        {"Tornado Warning", {"OBSERVED", "CATASTROPHIC"}, "Tornado Emergency"},
        {"Tornado Warning", {"OBSERVED", "CONSIDERABLE"}, "Tornado Warning (Considerable)"},
        {"Tornado Warning", {"OBSERVED"}, "Tornado Warning (Observed)"},
        {"Severe Thunderstorm Warning", {"DESTRUCTIVE", "POSSIBLE"}, "Thunderstorm (Destructive)"},
        {"Severe Thunderstorm Warning", {"CONSIDERABLE"}, "Thunderstorm (Considerable)"},
        {"Flash Flood Warning", {"CATASTROPHIC"}, "Flash Flood Emergency"},
        {"Flash Flood Warning", {"CONSIDERABLE"}, "Flash Flood (Considerable)"},
        {"Dust Storm Warning", {"OBSERVED"}, "Dust Storm Warning"},
        {"A Warning Whose Name Is Long Now", {}, "A Warning Whose Name Is Lon..."},
        {"", {}, "Weather alert"},
    };
    for (const auto& c : kCases) {
        Message message;
        message.event = c.event;
        message.threats = c.threats;
        EXPECT_EQ(Title(message), c.title);
    }
}

}  // namespace
}  // namespace nws
