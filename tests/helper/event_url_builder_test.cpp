// SPDX-License-Identifier: MIT
#include "helper/hook_event.h"

#include "helper/agent_input.h"
#include "values/event_payload.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace chimewell::test {
namespace {

std::string encoded(std::string_view value)
{
    EventUrlBuilder builder(CanonicalEvent::finished, "claude");
    builder.add("cwd", value);
    const std::string url = std::move(builder).text();
    return url.substr(url.find("&cwd=") + 5);
}

std::string repeated(std::string_view text, std::size_t count)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(EventUrlBuilder, EncodesAllButUnreservedCharacters)
{
    EXPECT_EQ(encoded("azAZ09-._~"), "azAZ09-._~");
    EXPECT_EQ(encoded("/ +%&#=?\"\n\x7F"), "%2F%20%2B%25%26%23%3D%3F%22%0A%7F");
    EXPECT_EQ(encoded("é\xE2\x80\xAE"), "%C3%A9%E2%80%AE");
    EXPECT_EQ(encoded(std::string_view("a\0b", 3)), "ab");
}

TEST(EventUrlBuilder, ReplacesWhatIsNoUtf8)
{
    EXPECT_EQ(encoded("a\xFFz"), "a%EF%BF%BDz");
    EXPECT_EQ(encoded("\xED\xA0\x80"), "%EF%BF%BD%EF%BF%BD%EF%BF%BD"); // a surrogate
    EXPECT_EQ(encoded("\xF0\x9F\x99"), "%EF%BF%BD%EF%BF%BD%EF%BF%BD"); // cut short
}

TEST(EventUrlBuilder, CutsAtTheEndOfACharacter)
{
    const std::string filling(maxValueBytes - 1, 'x');
    EXPECT_EQ(encoded(filling + "y" + "z"), filling + "y");
    EXPECT_EQ(encoded(filling + "é"), filling);
    EXPECT_EQ(encoded(filling.substr(2) + "\xF0\x9F\x99\x82"), filling.substr(2));
    EXPECT_EQ(encoded(repeated("\x80", maxValueBytes + 9)), repeated("%EF%BF%BD", maxValueBytes - 3));
}

TEST(EventUrlBuilder, IsReadBackByTheApplication)
{
    EventUrlBuilder builder(CanonicalEvent::waitingInput, "codex");
    builder.add("session", "S&type=error");
    builder.add("cwd", "/a+b/100%/ü#");
    builder.add("message", "");
    builder.add("term", "Apple_Terminal");
    const auto payload = parseEventUrl(std::move(builder).text());
    EXPECT_EQ(payload, (EventPayload{.type = CanonicalEvent::waitingInput,
                                     .provider = "codex",
                                     .cwd = "/a+b/100%/ü#",
                                     .session = "S&type=error",
                                     .term = "Apple_Terminal"}));
}

}
}
