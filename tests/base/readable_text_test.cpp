// SPDX-License-Identifier: MIT
#include "base/unicode_text.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::string_view_literals;

struct Case {
    std::string_view text;
    std::string_view body;
    std::string_view title;
};

TEST(ReadableText, ReplacesWhatReadersWouldChokeOnOrBeFooledBy)
{
    const Case cases[] = {
        {"", "", ""},
        {"Grüße, 日本 👩‍👩‍👧 <b>&amp;</b>", "Grüße, 日本 👩‍👩‍👧 <b>&amp;</b>",
         "Grüße, 日本 👩‍👩‍👧 <b>&amp;</b>"},
        // Line breaks of every kind; an empty line stays one in a body.
        {"a\nb", "a\nb", "a b"},
        {"a\r\nb\rc", "a\nb\nc", "a b c"},
        {"a\n\n\r\nb\n", "a\n\n\nb\n", "a b "},
        {"a\xC2\x85"
         "b\u2028c\u2029d\ve\ff",
         "a\nb\nc\nd\ne\nf", "a b c d e f"},
        // Control characters.
        {"a\tb", "a b", "a b"},
        {"a\0b\x1B[31m\a\x7F\xC2\x9B"sv, "a\uFFFDb\uFFFD[31m\uFFFD\uFFFD\uFFFD",
         "a\uFFFDb\uFFFD[31m\uFFFD\uFFFD\uFFFD"},
        // Text in another order than it is written in.
        {"\u202Egpj.exe\u202C", "gpj.exe", "gpj.exe"},
        {"\u202Aa\u202Bb\u202Dc\u2066d\u2067e\u2068f\u2069g", "abcdefg", "abcdefg"},
        {"a\n\u202E\nb", "a\n\nb", "a b"},
        {"\u200Fשלום\u200E \u061C", "\u200Fשלום\u200E \u061C", "\u200Fשלום\u200E \u061C"},
        // Not UTF-8: stray and missing continuations, overlong forms, surrogates, above U+10FFFF.
        {"\x80|\xC3|\xE2\x82|\xF0\x9F\x98", "\uFFFD|\uFFFD|\uFFFD|\uFFFD", "\uFFFD|\uFFFD|\uFFFD|\uFFFD"},
        {"\xC0\xAF|\xE0\x80\xAF", "\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD", "\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80|\xF4\x90\x80\x80|\xFF", "\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD\uFFFD|\uFFFD",
         "\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD\uFFFD|\uFFFD"},
        {"\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF", "\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF",
         "\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(readableText(c.text), c.body) << c.text;
        EXPECT_EQ(readableLine(c.text), c.title) << c.text;
    }
}

TEST(ReadableText, KeepsThirtyMarksOnALetter)
{
    const auto accents = [](std::size_t count) {
        std::string text;
        while (count-- > 0)
            text += "\u0301";
        return text;
    };
    EXPECT_EQ(readableText("e" + accents(31) + "e" + accents(30) + "!"),
              "e" + accents(30) + "e" + accents(30) + "!");
}

TEST(ReadableText, EndsWithAWholeCharacterAtTheLimit)
{
    const std::string most(maxReadableBytes - 2, 'x');
    EXPECT_EQ(readableText(most + "é"), most + "é");
    EXPECT_EQ(readableText(most + "éx"), most + "é");
    EXPECT_EQ(readableText(most + "€"), most);
    EXPECT_EQ(readableText(most + "€x"), most) << "nothing after the cut";
    EXPECT_EQ(readableText(most + "\x80"), most) << "a replacement has three bytes";
    EXPECT_EQ(readableLine(std::string(1 << 20, '\n') + "a"), " a") << "what is left out does not count";
}

}
}
