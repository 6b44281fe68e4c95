// SPDX-License-Identifier: MIT
#include "json/json_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace chimewell::test {

namespace {

TEST(JSONWriter, EscapesOnlyWhatHasTo)
{
    std::string plain;
    for (char c = 0x20; c < 0x7F; ++c)
        if (c != '"' && c != '\\') plain += c;
    plain += "\x7F\u0080é€😀\uFEFF";
    EXPECT_EQ(quoteJSON(plain), "\"" + plain + "\"");

    const std::string control =
        R"(\u0000\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000b\f\r\u000e\u000f)"
        R"(\u0010\u0011\u0012\u0013\u0014\u0015\u0016\u0017\u0018\u0019)"
        R"(\u001a\u001b\u001c\u001d\u001e\u001f)";
    std::string raw;
    for (char c = 0; c < 0x20; ++c)
        raw += c;
    EXPECT_EQ(quoteJSON(raw), "\"" + control + "\"");
    EXPECT_EQ(quoteJSON("\"\\/"), R"("\"\\/")");
}

TEST(JSONWriter, FindsAnEscapeAtEveryPlace)
{
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string text(length, '\xC3'); // the writer does not mind
        EXPECT_EQ(writeJSON(JSONValue::string(text)), "\"" + text + "\"");
        for (std::size_t at = 0; at < length; ++at) {
            for (const std::string_view escape : {"\\n", "\\\"", "\\u001f"}) {
                std::string changed = text;
                changed[at] = escape == "\\n" ? '\n' : escape == "\\\"" ? '"' : '\x1F';
                const std::string expected =
                    "\"" + text.substr(0, at) + std::string(escape) + text.substr(at + 1) + "\"";
                EXPECT_EQ(quoteJSON(changed), expected);
                EXPECT_EQ(writeJSON(JSONValue::string(changed)), expected);
            }
        }
    }
}

TEST(JSONWriter, TellsTheSizeBeforehand)
{
    for (const std::string_view text :
         {"null", "[]", "{}", "-0", R"("é\u001b\n")", R"({"a\\":[1,{"b":[[],{}]}],"\t":true})"}) {
        const JSONValue value = *parseJSON(text);
        EXPECT_EQ(writtenSize(value), writeJSON(value).size()) << text;
    }
}

TEST(JSONWriter, IndentsTwoSpacesALevel)
{
    constexpr std::size_t levels = 40;
    std::string expected;
    for (std::size_t level = 0; level + 1 < levels; ++level)
        expected += "[\n" + std::string(2 * (level + 1), ' ');
    expected += "[]";
    for (std::size_t level = levels - 1; level-- > 0;)
        expected += "\n" + std::string(2 * level, ' ') + "]";
    EXPECT_EQ(writeJSON(*parseJSON(std::string(levels, '[') + std::string(levels, ']'))), expected);
}

TEST(JSONWriter, WritesAPartByItself)
{
    const JSONValue whole = *parseJSON(R"({"a":[{"b":1},2],"c":3})");
    const JSONValue part = whole.members().front().value.elements().front();
    EXPECT_EQ(writeJSON(part), "{\n  \"b\": 1\n}");
}

}

}
