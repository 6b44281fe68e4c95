// SPDX-License-Identifier: MIT
#include "platform/macos/apple_events.h"

#include "fakes/apple_event_manager.h"
#include "fakes/notification_center.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

using mac::AppleEvent;

constexpr mac::FourCharacters code(const char (&text)[5])
{
    mac::FourCharacters value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(text[i]);
    return value;
}

const AppleEvent reopen{.eventClass = code("aevt"), .eventId = code("rapp")};

AppleEvent openUrl(std::optional<std::string> url)
{
    return {.eventClass = code("GURL"), .eventId = code("GURL"), .directObject = std::move(url)};
}

class AppleEventsTest : public ::testing::Test {
protected:
    AppleEventsTest()
    {
        mac::registerToolkitHandler(code("aevt"), code("quit"));
        events = std::make_unique<AppleEvents>(
            AppleEvents::Handlers{.open = [this](const auto& url) { opened.push_back(url); },
                                  .activate = [this] { ++activations; }});
    }

    std::vector<std::optional<std::string>> opened;
    int activations = 0;
    std::unique_ptr<AppleEvents> events;
};

}

TEST_F(AppleEventsTest, TakesTheRequestsFromTheToolkitOnceItHasThem)
{
    EXPECT_FALSE(mac::deliver(openUrl("chimewell://event?type=finished")));
    mac::registerToolkitHandler(code("GURL"), code("GURL")); // the toolkit, in its own observer
    mac::applicationWillFinishLaunching();
    const std::vector<std::optional<std::string>> urls = {
        "chimewell://event?type=finished&provider=claude&title=%E2%9C%93+a%2Fb#end",
        "chimewell://event?title=nach Hause%zz ✓",
        "",
        std::nullopt,
    };
    for (const auto& url : urls)
        EXPECT_TRUE(mac::deliver(openUrl(url)));
    EXPECT_EQ(opened, urls);
    EXPECT_EQ(activations, 0);
    EXPECT_TRUE(mac::deliver(reopen));
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(opened.size(), urls.size());
}

TEST_F(AppleEventsTest, CanRegisterAfterTheLaunchAndEndsWithTheObject)
{
    events->registerNow();
    EXPECT_TRUE(mac::deliver(reopen));
    events.reset();
    EXPECT_FALSE(mac::deliver(openUrl("chimewell://event")));
    EXPECT_FALSE(mac::deliver(reopen));
    mac::applicationWillFinishLaunching(); // nobody listens any more
    EXPECT_FALSE(mac::deliver(reopen));
}

TEST_F(AppleEventsTest, KnowsWhetherTheSystemEndsTheSession)
{
    const std::pair<const char(&)[5], bool> reasons[] = {{"logo", true}, {"rlgo", true},  {"rest", true},
                                                         {"shut", true}, {"quia", false}, {"norm", false}};
    for (const bool attribute : {true, false})
        for (const bool enumeration : {true, false})
            for (const auto& [reason, ends] : reasons) {
                AppleEvent event{.eventClass = code("aevt"),
                                 .eventId = code("quit"),
                                 .directObject = std::nullopt,
                                 .quitReason = code(reason),
                                 .reasonIsAttribute = attribute,
                                 .reasonIsEnumeration = enumeration};
                mac::whileHandling(event, [&] {
                    EXPECT_EQ(AppleEvents::isSessionEnding(), ends) << reason << attribute << enumeration;
                });
                event.eventId = code("rapp");
                mac::whileHandling(event, [&] { EXPECT_FALSE(AppleEvents::isSessionEnding()) << reason; });
            }
    mac::whileHandling({.eventClass = code("aevt"), .eventId = code("quit")}, // from the menu
                       [] { EXPECT_FALSE(AppleEvents::isSessionEnding()); });
    EXPECT_FALSE(AppleEvents::isSessionEnding()); // nobody asked
}

}
