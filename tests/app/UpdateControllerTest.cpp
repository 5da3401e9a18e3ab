// The update check, from the feed's document to what the dialog says.
#include "app/UpdateController.h"
#include "platform/linux/FeedUpdateCheck.h"
#include "support/FakeServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UpdateFeed, tellsNewerVersionsFromOthers) {
    const auto feed = [](const char* version) {
        return std::string(R"({"version": ")") + version + R"(", "page": "https://example.org/get"})";
    };
    const std::string current = "1.9.0";
    EXPECT_EQ(updateOutcome(feed("1.10.0"), current),
              UpdateOutcome(NewerVersion{"1.10.0", "https://example.org/get"}));
    EXPECT_EQ(updateOutcome(feed("1.9.0"), current), UpdateOutcome(UpToDate{}));
    EXPECT_EQ(updateOutcome(feed("1.8.9"), current), UpdateOutcome(UpToDate{}));
}

TEST(UpdateFeed, whatIsNoFeedFails) {
    for (const char* text : {"", "<html>", "[]", R"({"version": 2})", R"({"version": "2.0"})",
                             R"({"version": "new", "page": "https://example.org"})",
                             R"({"version": "2.0", "page": "file:///etc/passwd"})",
                             R"({"version": "2.0", "page": "http://example.org"})"})
        EXPECT_TRUE(std::holds_alternative<UpdateCheckFailed>(updateOutcome(text, "1.0"))) << text;
}

struct UpdateDialog : testing::Test {
    test::CallLog log;
    test::FakeOpener opener{log};
    test::FakeUpdateCheck check;
    UpdateController controller{check, opener, QStringLiteral("1.0")};
};

TEST_F(UpdateDialog, asksOnceWhileTheAnswerIsOut) {
    EXPECT_FALSE(controller.visible());
    controller.checkForUpdates();
    controller.checkForUpdates();
    EXPECT_TRUE(controller.visible() && controller.checking());
    ASSERT_EQ(check.pending.size(), 1U);
    check.pending[0](UpToDate{});
    EXPECT_FALSE(controller.checking());
    EXPECT_EQ(controller.heading(), QStringLiteral("You’re up to date"));
    EXPECT_FALSE(controller.hasPage());
}

TEST_F(UpdateDialog, opensThePageOfANewerVersion) {
    controller.checkForUpdates();
    check.pending[0](NewerVersion{"2.0", "https://example.org/get"});
    EXPECT_TRUE(controller.hasPage());
    EXPECT_THAT(log, IsEmpty());
    controller.openPage();
    EXPECT_THAT(log, ElementsAre("open https://example.org/get"));
    EXPECT_FALSE(controller.visible());
}

TEST_F(UpdateDialog, saysWhyACheckFailed) {
    controller.checkForUpdates();
    check.pending[0](UpdateCheckFailed{"No feed."});
    EXPECT_EQ(controller.message(), QStringLiteral("No feed."));
    EXPECT_FALSE(controller.hasPage());
}

} // namespace
} // namespace brimlet
