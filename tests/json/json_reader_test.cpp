// SPDX-License-Identifier: MIT
#include "json/json_reader.h"

#include "json/transcript.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace chimewell::test {

namespace {

/// Something of everything, and everything that can go wrong in the middle of a token.
const std::vector<std::string> texts{
    R"({"hooks":{"Stop":[{"matcher":"","timeout":1.50e-3}]},"é😀":["\"\\\/\b\f\n\r\t",true,false,null]})",
    "\n[ -0 ,\t\"\\u00e9\\ud83d\\ude00 and \\ud83dx and \\ude00 and \\ud83d\\u0041\" , [ ] , { } ] \r\n",
    R"(["a long run of text that needs no escape at all, then one \u0000 and more text after it"])",
    "12345678901234567890",
    "  true  ",
    "",
    "[[[[[[1",
    R"({"a":1,"b)",
    R"(["\ud83d\u12)",
    R"(["\ud83d\)",
    R"(["\ud83d)",
    R"(["\u12"])",
    R"(["\u12" ])",
    R"("\u😀é😀é")",
    R"("\u😀é😀)",
    R"("\é")",
    "\"\\😀",
    "[nulx]",
    "tru",
    "[-+.eE,1]",
    "-+.eE",
    "[1 2]",
    "{} x",
    "\"\\\xF0\x9F",          // not UTF-8
    "\"\\u\x80\x80\x80\x80", // not UTF-8
};

TEST(JSONReader, TellsTheSameHoweverTheTextIsCut)
{
    for (const std::string& text : texts) {
        const Reading whole = readWhole(text);
        for (std::size_t cut = 0; cut <= text.size(); ++cut) {
            EXPECT_EQ(readInPieces(text, cut, text.size()), whole) << text << " cut at " << cut;
            EXPECT_EQ(readInPieces(text, cut, 1), whole) << text << " byte by byte from " << cut;
        }
        EXPECT_TRUE(whole.kept) << text;
    }
}

TEST(JSONReader, TellsTheEventsInOrder)
{
    EXPECT_EQ(readWhole(texts[0]).told, "{k:hooks;{k:Stop;[{k:matcher;s:;k:timeout;n:1.50e-3;}]}"
                                        "k:é😀;[s:\"\\/\b\f\n\r\t;true;false;null;]}");
    EXPECT_EQ(readWhole(texts[1]).told, "[n:-0;s:é😀 and \uFFFDx and \uFFFD and \uFFFD;[]{}]");
    EXPECT_EQ(readWhole("[-+.eE,1]").told, "[n:-+.eE");
}

TEST(JSONReader, KnowsWithoutMoreInputThatTheValueHasEnded)
{
    for (const std::string_view text : {"{\"a\":[]}", "\"a\"", "null", "1 "}) {
        Transcript transcript;
        JSONReader reader(transcript);
        reader.feed(text.substr(0, text.size() - 1), false);
        EXPECT_FALSE(reader.finished()) << text;
        reader.feed(text.substr(text == "null" ? 0 : text.size() - 1), false);
        EXPECT_TRUE(reader.finished()) << text;
        EXPECT_EQ(reader.feed(" \n", true), 2u) << text;
        EXPECT_EQ(reader.fault(), JSONFault::none) << text;
    }
}

TEST(JSONReader, RemembersEveryLevel)
{
    // Objects and arrays in a pattern that no mistake by a word of 64 levels survives.
    constexpr std::size_t levels = 300;
    const auto isObject = [](std::size_t level) { return level % 3 == 0 || level % 7 == 0; };
    std::string text;
    for (std::size_t level = 0; level < levels; ++level)
        text += isObject(level) ? "{\"\":" : "[";
    Transcript transcript;
    JSONReader reader(transcript);
    reader.feed(text, false);
    EXPECT_EQ(reader.depth(), levels);
    reader.feed("0", false);
    for (std::size_t level = levels; level-- > 0;) {
        reader.feed(isObject(level) ? "}" : "]", false);
        ASSERT_EQ(reader.fault(), JSONFault::none) << level;
        ASSERT_EQ(reader.depth(), level);
    }
    EXPECT_TRUE(reader.finished());
}

TEST(JSONReader, ReadsNothingAfterAFault)
{
    Transcript transcript;
    JSONReader reader(transcript);
    reader.feed("[1}", false);
    EXPECT_EQ(reader.feed("]", true), 0u);
    EXPECT_EQ(reader.fault(), JSONFault::arraySeparatorExpected);
    EXPECT_EQ(transcript.told(), "[n:1;");
}

}

}
