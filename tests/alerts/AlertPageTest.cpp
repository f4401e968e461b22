#include "alerts/AlertPage.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

std::string Page(const PagePlace& place, std::size_t longestStored = 0) {
    return BuildAlertPage({{place}, "today", "Service", longestStored});
}

bool Has(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

PagePlace KnownPlace(std::vector<Alert> alerts = {}) {
    PagePlace place;
    place.name = "Lawrence";
    place.answer.alerts = std::move(alerts);
    place.answer.isKnown = true;
    place.answer.retrieved = "noon";
    return place;
}

TEST(AlertPage, SaysNoAlertsOnlyWhenThatIsCertain) {
    constexpr std::string_view kNone = "\"status\">No alerts<";
    constexpr std::string_view kNotKnown = "\"status\">Not known";
    EXPECT_TRUE(Has(Page(KnownPlace()), kNone));
    PagePlace place = KnownPlace();
    place.answer.isFiltered = true;
    EXPECT_TRUE(Has(Page(place), "\"status\">No alerts that pass your filter<"));
    for (void (*spoil)(PagePlace&) :
         {+[](PagePlace& p) { p.answer.isKnown = false; },
          +[](PagePlace& p) { p.answer.lastFailed = true; }, +[](PagePlace& p) { p.isOld = true; },
          +[](PagePlace& p) {
              p.answer.alerts = {{"1", "Place not covered", "Why."}};
          },
          +[](PagePlace& p) {
              p.answer.alerts = {{"1", "Alerts unavailable", "Why."}};
          },
          +[](PagePlace& p) {
              p.answer.alerts = {{"1", "More alerts than can be read", "Why."}};
          }}) {
        place = KnownPlace();
        spoil(place);
        const std::string page = Page(place);
        EXPECT_TRUE(Has(page, kNotKnown) && !Has(page, kNone)) << page;
    }
}

TEST(AlertPage, FeedTextNeverBecomesMarkup) {
    constexpr char kHostile[] = "</style><script>a()</script>\"'><img src=x onerror=a()>&lt;\x01";
    constexpr char kEscaped[] =
        "&lt;/style&gt;&lt;script&gt;a()&lt;/script&gt;&quot;&#39;&gt;&lt;img src=x "
        "onerror=a()&gt;&amp;lt; ";
    const std::string list = std::string("* ") + kHostile + "\n\n";
    PagePlace place = KnownPlace(
        {{"1", kHostile, list + kHostile + "\n\nSeverity: <b>. Urgency: <i>. Certainty: <u>."},
         {"2", "Place not covered", kHostile}});
    place.name = place.answer.retrieved = kHostile;
    place.forecast = kHostile;
    const std::string page = Page(place);
    EXPECT_FALSE(Has(page, "<script") || Has(page, "<img") || Has(page, "<b>") ||
                 Has(page, "\x01"));
    EXPECT_TRUE(Has(page, std::string("<h3>") + kEscaped + "</h3>"));
    EXPECT_TRUE(Has(page, std::string("<li>") + kEscaped + "</li>"));
    EXPECT_TRUE(Has(page, "Urgency: &lt;i&gt;. Certainty: &lt;u&gt;."));
}

TEST(AlertPage, SortsBySeverityAndWritesParagraphsAndLists) {
    const std::string page = Page(KnownPlace(
        {{"1", "Watch", "Text.\n\nSeverity: Minor. Urgency: Future. Certainty: Possible."},
         {"2", "Odd", "No facts."},
         {"3", "Warning",
          "One.\nTwo.\n* First\n\n- Second\nAfter.\n\nSeverity: Extreme. Urgency: Immediate. "
          "Certainty: Observed."}}));
    EXPECT_TRUE(Has(page, "3 alerts, the worst: Extreme"));
    EXPECT_TRUE(page.find("Warning</h3>") < page.find("Watch</h3>") &&
                page.find("Watch</h3>") < page.find("Odd</h3>"));
    EXPECT_TRUE(Has(page,
                    "<p>One.<br>\nTwo.</p>\n<ul>\n<li>First</li>\n<li>Second</li>\n</ul>\n"
                    "<p>After.</p>\n</article>"));
    EXPECT_TRUE(Has(page, "Severity not known</span>"));
}

TEST(AlertPage, MarksAlertsStoredByAnEarlierSession) {
    PagePlace place;
    place.stored = {{"1", "Old", "12345"}};
    EXPECT_TRUE(Has(Page(place, 5), "Only the beginning"));
    const std::string page = Page(place, 6);
    EXPECT_TRUE(Has(page, "Stored earlier, may have ended") && !Has(page, "Only the beginning"));
    place.answer.isKnown = true;
    EXPECT_FALSE(Has(Page(place), "Old</h3>"));
    place.answer.isKnown = false;
    place.stored = {{"1", "Place not covered", "Why."}};
    EXPECT_FALSE(Has(Page(place), "Stored earlier"));
}

}  // namespace
}  // namespace alerts
