// SPDX-License-Identifier: MIT
#include "values/event_payload.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <utility>

namespace chimewell::test {

const EventPayload plain{.type = CanonicalEvent::finished, .provider = "claude"};

TEST(EventUrlTest, AcceptsWhatIsAnEventAndNothingElse)
{
    const std::string rest = "?type=finished&provider=claude";
    const std::string accepted[] = {
        "chimewell://event" + rest,
        "CHIMEWELL://event" + rest,
        "chimewell://anything/else" + rest,
        "chimewell:" + rest,
        "chimewell://user@host:80/" + rest,
        "chimewell://[::1]:80" + rest,
        "chimewell://[::1]" + rest,
        "chimewell://event" + rest + "#&type=error",
        "chimewell://event" + rest + "&v=1&other=x&flag&type",
        "chimewell://event?%74ype=finishe%64&provider=claude",
        "chimewell://event?&&type=error&type=finished&provider=codex&provider=claude",
    };
    for (const auto& url : accepted)
        EXPECT_EQ(parseEventUrl(url), plain) << url;

    const std::string rejected[] = {
        "",
        "chimewell://event",
        "event" + rest,
        " chimewell://event" + rest,
        "chimewells://event" + rest,
        "chimewell://[::1" + rest,
        "chimewell://[::1]80" + rest,
        "chimewell://ev]ent" + rest,
        "chimewell://event:port" + rest,
        "chimewell://event?type=Finished&provider=claude",
        "chimewell://event?type=finished&provider=Claude",
        "chimewell://event?type=finished",
        "chimewell://event?type=subagent_finished&provider=claude",
        "chimewell://event?type=finished%00&provider=claude",
        "chimewell://event?type=finished&type=%FF&provider=claude",
    };
    for (const auto& url : rejected)
        EXPECT_EQ(parseEventUrl(url), std::nullopt) << url;
}

TEST(EventUrlTest, ReadsEachValue)
{
    const auto payload = parseEventUrl(
        "chimewell://event?type=waiting_input&provider=cursor&session=S%26T&title=a+b%z%4&"
        "message=%E2%9C%93%0Aé \"[x]\"=y&cwd=%2Fhome%2Fme%2Fproj%2F&term=iTerm.app&ts=1700000000.5&test=1");
    ASSERT_TRUE(payload);
    EXPECT_EQ(payload->type, CanonicalEvent::waitingInput);
    EXPECT_EQ(payload->provider, "cursor");
    EXPECT_EQ(payload->session, "S&T");
    EXPECT_EQ(payload->title, "a+b%z%4");
    EXPECT_EQ(payload->message, "✓\né \"[x]\"=y");
    EXPECT_EQ(payload->cwd, "/home/me/proj/");
    EXPECT_EQ(payload->term, "iTerm.app");
    EXPECT_EQ(payload->timestamp, Date(std::chrono::milliseconds(1700000000500)));
    EXPECT_TRUE(payload->isTest);
}

TEST(EventUrlTest, TurnsEmptyAndUnreadableValuesIntoAbsentOnes)
{
    const std::string head = "chimewell://event?type=finished&provider=claude";
    EXPECT_EQ(parseEventUrl(head + "&session=&title=&message=&cwd=&term=&ts=&test="), plain);
    // Not UTF-8: empty, and it still overwrites the earlier value.
    EXPECT_EQ(parseEventUrl(head + "&session=S&session=%C3"), plain);
    for (const char* ts : {"0", "-5", "4102444800", "abc", "nan"})
        EXPECT_EQ(parseEventUrl(head + "&ts=" + ts), plain) << ts;
    for (const char* test : {"TRUE", "0", "yes", "11"})
        EXPECT_EQ(parseEventUrl(head + "&test=" + test), plain) << test;
    EXPECT_TRUE(parseEventUrl(head + "&test=true")->isTest);
}

TEST(EventUrlTest, CutsLongValuesAtCharacters)
{
    const std::string head = "chimewell://event?type=finished&provider=claude&message=";
    EXPECT_EQ(parseEventUrl(head + std::string(600, 'x'))->message, std::string(512, 'x'));
    // A family, a flag, a thumb with a skin tone, a line end: one character each.
    const std::string four = "👨‍👩‍👧🇩🇪👍🏽\r\n";
    EXPECT_EQ(parseEventUrl(head + std::string(508, 'x') + four + "x")->message,
              std::string(508, 'x') + four);
    // One character of a megabyte: an "e" with acute accents of two bytes each.
    std::string accents;
    for (int i = 0; i < 500'000; ++i)
        accents += "\u0301";
    EXPECT_EQ(parseEventUrl(head + "e" + accents)->message, "e" + accents.substr(0, 16'382));
}

TEST(EventPayloadTest, LabelsTheProjectByItsFolder)
{
    EventPayload payload = plain;
    for (const auto& [cwd, label] : {std::pair{"//", "/"},
                                     {"/me/proj", "proj"},
                                     {"/me/proj//", "proj"},
                                     {"proj", "proj"},
                                     {"/a b/ç/", "ç"}}) {
        payload.cwd = cwd;
        EXPECT_EQ(payload.projectLabel(), label) << cwd;
    }
    payload.cwd = "/";
    EXPECT_EQ(payload.projectLabel(), std::nullopt);
}

}
