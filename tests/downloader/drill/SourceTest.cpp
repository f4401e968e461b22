#include "downloader/drill/Source.h"

#include <gtest/gtest.h>

#include "downloader/http/StatusCodes.h"

namespace drill {
namespace {

constexpr char kAlerts[] = "drill://GetXml.aspx?partnerid=1&requesttype=6&ZipCode=66044";

TEST(DrillSource, AnnouncesOneNewAlertEachMinute) {
    const http::Response first = Answer(kAlerts, 600);
    EXPECT_EQ(first.status, http::kSuccess);
    EXPECT_NE(first.body.find(">TEST: Tornado Warning<"), std::string::npos);
    EXPECT_NE(first.body.find(">THIS IS ONLY A TEST."), std::string::npos);
    EXPECT_EQ(first.body, Answer(kAlerts, 659).body);
    EXPECT_NE(first.body, Answer(kAlerts, 660).body);
}

TEST(DrillSource, FailsForAnythingButAlerts) {
    for (const char* url : {"drill://", "drill://GetXml.aspx?RequestType=501&SearchString=Lawrence",
                            "drill://GetXml.aspx?requesttype=1&zipcode=66044"})
        EXPECT_EQ(Answer(url, 600).status, http::kOnlyDrillAlerts) << url;
}

}  // namespace
}  // namespace drill
