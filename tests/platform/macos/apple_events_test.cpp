// SPDX-License-Identifier: MIT
#include "platform/macos/apple_events.h"

#include "objective_c.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

using namespace objc;

constexpr Word code(const char (&text)[5])
{
    Word value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(text[i]);
    return value;
}

using Event = std::pair<Word, Word>; ///< Its class and its identifier.
const Event openUrl{code("GURL"), code("GURL")};
const Event reopen{code("aevt"), code("rapp")};

std::map<Event, std::pair<Id, const char*>> handlers; ///< Each an object and a selector.

class AppleEventsTest : public ::testing::Test {
protected:
    AppleEventsTest()
    {
        reset();
        handlers.clear();
        implement(
            "setEventHandler:andSelector:forEventClass:andEventID:",
            +[](Id, const char*, Id handler, const char* selector, std::uint32_t type, std::uint32_t id) {
                handlers[{type, id}] = {handler, selector};
            });
        implement(
            "removeEventHandlerForEventClass:andEventID:",
            +[](Id, const char*, std::uint32_t type, std::uint32_t id) { handlers.erase({type, id}); });
        for (const char* message : {"paramDescriptorForKeyword:", "attributeDescriptorForKeyword:"})
            implement(
                message, +[](Id of, const char* selector, std::uint32_t keyword) -> Id {
                    return Value(of)[selector + std::to_string(keyword)];
                });
        events.emplace(AppleEvents::Handlers{.open = [this](const auto& url) { opened.push_back(url); },
                                             .activate = [this] { ++activations; }});
    }

    static void launch() { notify(shared("defaultCenter"), "NSApplicationWillFinishLaunchingNotification"); }
    static void deliver(const Event& name, Value content)
    {
        const auto [handler, selector] = handlers.at(name);
        send(handler, selector, Id(content), Id(object()));
    }

    std::vector<std::optional<std::string>> opened;
    int activations = 0;
    std::optional<AppleEvents> events;
};

}

TEST_F(AppleEventsTest, TakesRequestsFromTheToolkitOnceThatHasRegistered)
{
    handlers[openUrl] = {object(), "ignore"};
    launch();
    for (const Value url : {Value("chimewell://event?title=nach Hause%zz ✓"), Value(""), Value(nullptr)}) {
        const std::string parameter = "paramDescriptorForKeyword:" + std::to_string(code("----"));
        deliver(openUrl, object({{parameter, object({{"stringValue", url}})}}));
    }
    EXPECT_EQ(opened, (std::vector<std::optional<std::string>>{"chimewell://event?title=nach Hause%zz ✓", "",
                                                               std::nullopt}));
    EXPECT_EQ(activations, 0);
    deliver(reopen, object());
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(opened.size(), 3U);
}

TEST_F(AppleEventsTest, TakesAwayOnlyWhatItRegistered)
{
    launch();
    events.reset();
    EXPECT_TRUE(handlers.empty());
    handlers[openUrl] = {object(), "ignore"};
    launch();
    AppleEvents({});
    EXPECT_EQ(handlers.size(), 1U);
}

TEST_F(AppleEventsTest, KnowsWhetherTheSystemEndsTheSession)
{
    const auto isSessionEnding = [](Value current) {
        shared("sharedAppleEventManager").set("currentAppleEvent", current);
        return AppleEvents::isSessionEnding();
    };
    const std::pair<const char(&)[5], bool> reasons[] = {{"logo", true}, {"rlgo", true},  {"rest", true},
                                                         {"shut", true}, {"quia", false}, {"norm", false}};
    for (const std::string message : {"attributeDescriptorForKeyword:", "paramDescriptorForKeyword:"})
        for (const char* type : {"enumCodeValue", "typeCodeValue"})
            for (const auto& [reason, ends] : reasons) {
                const Value event =
                    object({{"eventID", code("quit")},
                            {message + std::to_string(code("why?")), object({{type, code(reason)}})}});
                EXPECT_EQ(isSessionEnding(event), ends) << reason << message << type;
                event.set("eventID", code("rapp"));
                EXPECT_FALSE(isSessionEnding(event)) << reason << message << type;
            }
    EXPECT_FALSE(isSessionEnding(nullptr));
}

}
