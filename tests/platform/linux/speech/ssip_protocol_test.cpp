// SPDX-License-Identifier: MIT
#include "platform/linux/speech/ssip_protocol.h"

#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

TEST(SsipProtocolTest, ParsesReplyLines)
{
    const struct {
        std::string_view line;
        int code;
        bool isLast;
        std::string_view text;
    } cases[] = {
        {"208 OK CLIENT NAME SET", 208, true, "OK CLIENT NAME SET"},
        {"225-17", 225, false, "17"},
        {"249-German\tde\tnone", 249, false, "German\tde\tnone"},
        {"702 END", 702, true, "END"},
        {"500 ", 500, true, ""},
    };
    for (const auto& each : cases) {
        const SsipLine line = parseSsipLine(each.line).value_or(SsipLine{});
        EXPECT_EQ(line.code, each.code) << each.line;
        EXPECT_EQ(line.isLast, each.isLast) << each.line;
        EXPECT_EQ(line.text, each.text);
    }
    for (const std::string_view line : {"", "208", "20 OK", "2080 OK", "099 OK", "OK", "-208 OK", "208\tOK"})
        EXPECT_FALSE(parseSsipLine(line)) << line;
}

TEST(SsipProtocolTest, KeepsVoicesButNotTheirVariants)
{
    const struct {
        std::string_view row;
        std::optional<Voice> voice;
    } cases[] = {
        {"English (America)\ten-US\tnone",
         Voice{.identifier = "English (America)", .name = "English (America)", .language = "en-US"}},
        {"German+Andrea\tde\tAndrea", std::nullopt},
        {"kal_diphone\ten_GB\tFEMALE1",
         Voice{.identifier = "kal_diphone", .name = "kal_diphone", .language = "en-GB"}},
        {"C++\tde", Voice{.identifier = "C++", .name = "C++", .language = "de"}},
        {"\tde\tnone", std::nullopt},
        {"German\t\tnone", std::nullopt},
        {"German", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& each : cases)
        EXPECT_EQ(parseVoiceRow(each.row), each.voice) << each.row;
}

TEST(SsipProtocolTest, EndsATextWithADotNoLineOfItCanBe)
{
    const struct {
        std::string_view text;
        std::string_view block;
    } cases[] = {
        {"Hello", "Hello\r\n.\r\n"},
        {".", "..\r\n.\r\n"},
        {"one\n.two\n..\nthree.", "one\r\n..two\r\n...\r\nthree.\r\n.\r\n"},
        {"\n.\n", "\r\n..\r\n.\r\n"},
        {"", ".\r\n"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(ssipTextBlock(each.text), each.block);
}

}
}
