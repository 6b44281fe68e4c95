// SPDX-License-Identifier: MIT
#include "base/date_time.h"
#include "base/last_seen.h"
#include "base/numbers.h"
#include "base/subscription.h"
#include "base/unicode_text.h"
#include "base/utf8.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace chimewell::test {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;
using namespace std::string_view_literals;

// Whatever is read as a character is written as the same bytes, and every character that is written is read.
TEST(Utf8, HasOneFormForEachCharacter)
{
    std::size_t wrong = 0;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character < 0xE000) continue;
        const Utf8Character encoded(character);
        const DecodedUtf8 decoded = decodeUtf8(std::string(encoded.bytes()) + "\x80");
        wrong += !decoded.isValid || decoded.character != character ||
                 decoded.size != encoded.bytes().size() ||
                 utf8Length(encoded.bytes().front()) != decoded.size;
    }
    EXPECT_EQ(Utf8Character(U'😀').bytes(), "😀");

    constexpr std::string_view bytes(
        "\0\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xFF", 24);
    for (std::size_t i = 0; i < 24 * 24 * 24 * 24; ++i) {
        const std::string text = {bytes[i % 24], bytes[i / 24 % 24], bytes[i / 576 % 24], bytes[i / 13824]};
        const DecodedUtf8 decoded = decodeUtf8(text);
        const char32_t c = decoded.character;
        const bool isScalar = c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
        const auto read = std::string_view(text).substr(0, decoded.size);
        wrong += decoded.isValid ? !isScalar || Utf8Character(c).bytes() != read || !isValidUtf8(read)
                                 : c != replacementCharacter || isValidUtf8(text);
    }
    EXPECT_EQ(wrong, 0u);
}

TEST(Utf8, FindsAWrongByteBehindAnyLengthOfAscii)
{
    for (std::size_t length = 0; length < 100; ++length) {
        const std::string ascii(length, 'a');
        EXPECT_TRUE(isValidUtf8(ascii + "é" + ascii)) << length;
        EXPECT_FALSE(isValidUtf8(ascii + "\x80" + ascii)) << length;
    }
}

TEST(UnicodeText, IsTrimmedOfUnicodeWhiteSpace)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"\u00A0\u2003\u3000a b\u2028\u2029\u0085", "a b"},
        {"\uFEFFa\uFEFF", "\uFEFFa\uFEFF"}, // a byte-order mark is no white space
        {"\xC2", "\xC2"},                   // cut in half, and kept
        {" \xA0 ", "\xA0"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(trimmed(text), expected) << testing::PrintToString(text);
}

TEST(UnicodeText, IsMadeReadableAndHarmless)
{
    const struct {
        std::string_view text;
        std::string_view body;
        std::string_view title = body;
    } cases[] = {
        {"Grüße, 日本 👩‍👩‍👧 <b>&amp;</b>",
         "Grüße, 日本 👩‍👩‍👧 <b>&amp;</b>"},
        // Line breaks of every kind; an empty line stays one in a body.
        {"a\r\nb\r\rc", "a\nb\n\nc", "a b c"},
        {"a\u0085b\u2028c\u2029d\ve\ff", "a\nb\nc\nd\ne\nf", "a b c d e f"},
        // Control characters.
        {"a\tb\x1B[31m\a\x7F\u009B"sv, "a b\uFFFD[31m\uFFFD\uFFFD\uFFFD"},
        // Text in another order than it is written in.
        {"\u202Aa\u202Bb\u202Dc\u2066d\u2067e\u2068f\u2069g", "abcdefg"},
        {"a\n\u202E\nb", "a\n\nb", "a b"},
        {"\u200Fשלום\u200E \u061C", "\u200Fשלום\u200E \u061C"},
        // Not UTF-8: one replacement for each beginning of a character.
        {"\x80|\xC3|\xE2\x82|\xF0\x9F\x98", "\uFFFD|\uFFFD|\uFFFD|\uFFFD"},
        {"\xC0\xAF|\xE0\x80\xAF", "\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(readableText(c.text), c.body) << c.text;
        EXPECT_EQ(readableLine(c.text), c.title) << c.text;
    }
}

TEST(UnicodeText, IsReadableOnlyUpToALimit)
{
    std::string accents;
    for (int i = 0; i < 30; ++i)
        accents += "\u0301";
    EXPECT_EQ(readableText("e" + accents + "\u0301e" + accents + "!"), "e" + accents + "e" + accents + "!");
    const std::string most(maxReadableBytes - 2, 'x');
    EXPECT_EQ(readableText(most + "é"), most + "é");
    EXPECT_EQ(readableText(most + "éx"), most + "é");
    EXPECT_EQ(readableText(most + "€x"), most) << "nothing after the cut";
    EXPECT_EQ(readableText(most + "\x80"), most) << "a replacement has three bytes";
    EXPECT_EQ(readableLine(std::string(1 << 20, '\n') + "a"), " a") << "what is left out does not count";
}

TEST(Numbers, AreReadInEverySpelling)
{
    for (const auto& [text, value] :
         {std::pair{"+5", 5.0}, {"01", 1.0}, {"5.", 5.0}, {".5", 0.5}, {"1E-1", 0.1}})
        EXPECT_EQ(decimal(text), value) << text;
    for (const auto& [text, value] : {std::pair{"-0.0", std::int64_t{0}},
                                      {"0e999999999999", 0},
                                      {"1.0", 1},
                                      {"1e2", 100},
                                      {"12.50E+1", 125},
                                      {"100e-2", 1},
                                      {"9223372036854775807", INT64_MAX},
                                      {"-9223372036854775808", INT64_MIN}})
        EXPECT_EQ(integral(text), value) << text;
    for (const char* const text :
         {"9223372036854775808", "1e999999999999", "1.5", "1e-1", "01", "1.", ".5", "+1"})
        EXPECT_EQ(integral(text), std::nullopt) << text;
    for (const char* const text : {"", "abc", "-", "1,5", " 1", "1 ", "0x10", "inf", "1e", "1.2.3", "1e999"})
        EXPECT_TRUE(!decimal(text) && !integral(text)) << text;
}

TEST(Dates, AreReadWithOffsetsAndFractionsAndWrittenInUtc)
{
    const Date noon = sys_days{2026y / March / 1} + 12h;
    const std::pair<const char*, Date> dates[] = {
        {"2026-03-01T12:00:00.1234567Z", noon + 123456us},
        {"2026-03-01T14:00:00+02:00", noon},
        {"2026-03-01T06:29:59-0530", noon - 1s},
        {"2024-02-29T00:00:00Z", sys_days{2024y / February / 29}},
    };
    for (const auto& [text, date] : dates)
        EXPECT_EQ(parseIso8601(text), date) << text;
    for (const char* const text :
         {"2025-02-29T00:00:00Z", "2026-03-01T12:00:00", "2026-03-01 12:00:00Z", "2026-03-01T24:00:00Z",
          "2026-03-01T12:60:00Z", "2026-03-01T12:00:60Z", "2026-03-01T12:00:00.Z", "2026-03-01T12:00:00Zx",
          "2026-03-01T12:00:00+24:00", "2026-03-01T12:00:00+00:60", "+026-03-01T12:00:00Z"})
        EXPECT_EQ(parseIso8601(text), std::nullopt) << text;
    EXPECT_EQ(iso8601(noon + 999ms), "2026-03-01T12:00:00Z");
    EXPECT_EQ(iso8601(Date(-1us)), "1969-12-31T23:59:59Z");
}

TEST(LastSeen, ForgetsByAgeAndByCapacity)
{
    LastSeen seen(2);
    seen.set("a", Instant(1s));
    seen.set("b", Instant(2s));
    seen.set("a", Instant(3s)); // seen again: b is the oldest now
    seen.set("c", Instant(4s));
    EXPECT_FALSE(seen.find("b"));
    seen.forgetUntil(Instant(3s));
    EXPECT_FALSE(seen.find("a"));
    EXPECT_EQ(seen.find("c"), Instant(4s));
}

TEST(Subscribers, ComeAndGoWhileTheyAreCalled)
{
    Subscribers subscribers;
    std::string called;
    Subscription second;
    Subscription late;
    const Subscription first = subscribers.add([&] {
        called += '1';
        second.reset();
        late = subscribers.add([&] { called += 'L'; });
    });
    second = subscribers.add([&] { called += '2'; });
    subscribers.notify();
    EXPECT_EQ(called, "1");
}

}
}
