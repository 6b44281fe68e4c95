// SPDX-License-Identifier: MIT
#include "base/numbers.h"
#include "base/percent.h"
#include "base/unicode_text.h"
#include "base/utf8.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace chimewell::test {

TEST(TrimmedTest, TakesUnicodeWhiteSpaceOffBothEnds)
{
    const struct {
        std::string text;
        std::string trimmed;
    } cases[] = {
        {"", ""},
        {" \t\r\n\v\f", ""},
        {"\u00A0\u2003\u3000a b\u2028\u2029\u0085", "a b"},
        {"\uFEFFa\uFEFF", "\uFEFFa\uFEFF"}, // a byte-order mark is no white space
        {"é ", "é"},
        {"\xC2", "\xC2"}, // cut in half, and kept
        {" \xA0 ", "\xA0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(trimmed(c.text), c.trimmed) << testing::PrintToString(c.text);
}

TEST(DecimalTest, ReadsTheWholeTextOrNothing)
{
    const struct {
        std::string text;
        std::optional<double> value;
    } cases[] = {
        {"0", 0.0},
        {"-5", -5.0},
        {"+5", 5.0},
        {"1700000000.5", 1700000000.5},
        {"5.", 5.0},
        {".5", 0.5},
        {"1e3", 1000.0},
        {"1E-1", 0.1},
        {"", std::nullopt},
        {"abc", std::nullopt},
        {"1,5", std::nullopt},
        {" 1", std::nullopt},
        {"1 ", std::nullopt},
        {"0x10", std::nullopt},
        {"inf", std::nullopt},
        {"nan", std::nullopt},
        {"1e", std::nullopt},
        {".", std::nullopt},
        {"1.2.3", std::nullopt},
        {"+-1", std::nullopt},
        {"1e999", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(decimal(c.text), c.value) << c.text;
}

TEST(IntegralTest, ReadsWholeNumbersInEverySpelling)
{
    const struct {
        std::string text;
        std::optional<std::int64_t> value;
    } cases[] = {
        {"0", 0},
        {"-0.0", 0},
        {"0e999999999999", 0},
        {"180", 180},
        {"1.0", 1},
        {"1e2", 100},
        {"12.50E+1", 125},
        {"100e-2", 1},
        {"9223372036854775807", INT64_MAX},
        {"-9223372036854775808", INT64_MIN},
        {"9223372036854775808", std::nullopt},
        {"1e19", std::nullopt},
        {"1e999999999999", std::nullopt},
        {"1.5", std::nullopt},
        {"1e-1", std::nullopt},
        {"", std::nullopt},
        {"-", std::nullopt},
        {"01", std::nullopt},
        {"1.", std::nullopt},
        {".5", std::nullopt},
        {"1e", std::nullopt},
        {"+1", std::nullopt},
        {"1 ", std::nullopt},
        {"1.2.3", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(integral(c.text), c.value) << c.text;
}

TEST(PercentDecodedTest, LeavesAloneWhatIsNoEscape)
{
    const struct {
        std::string text;
        std::string decoded;
    } cases[] = {
        {"a%20b", "a b"}, {"%41%5a%5A", "AZZ"},
        {"a+b", "a+b"},   {"%", "%"},
        {"%4", "%4"},     {"%4g", "%4g"},
        {"%%41", "%A"},   {"%25%34%31", "%41"},
        {"100%", "100%"}, {"%00", std::string(1, '\0')},
        {"%C3%A9", "é"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(percentDecoded(c.text), c.decoded) << c.text;
}

TEST(FirstCharactersTest, CountsWhatAPersonWouldCount)
{
    EXPECT_EQ(firstCharacters("abc", 2), "ab");
    EXPECT_EQ(firstCharacters("abc", 3), "abc");
    EXPECT_EQ(firstCharacters("", 3), "");
    EXPECT_EQ(firstCharacters("a\u0301b", 1), "a\u0301");
    // A family, a flag, a thumb with a skin tone, a line end: one character each.
    EXPECT_EQ(firstCharacters("👨‍👩‍👧🇩🇪👍🏽\r\nx", 4),
              "👨‍👩‍👧🇩🇪👍🏽\r\n");
    std::string endless = "a";
    for (int i = 0; i < 1'000'000; ++i)
        endless += "\u0301";
    EXPECT_EQ(firstCharacters(endless + "b", 1), endless);
}

// Each line of Unicode's own test file spells its characters with ÷ where a cluster ends and × where not.
TEST(FirstCharactersTest, PassesUnicodesOwnTestFile)
{
    std::ifstream file("/usr/share/unicode/auxiliary/GraphemeBreakTest.txt");
    if (!file) GTEST_SKIP() << "Unicode's test file (package unicode-data) is not installed";
    int lines = 0;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::vector<std::string> clusters;
        for (std::string word; words >> word;) {
            if (word == "÷")
                clusters.emplace_back();
            else if (word != "×")
                clusters.back() +=
                    Utf8Character(static_cast<char32_t>(std::stoul(word, nullptr, 16))).bytes();
        }
        if (clusters.empty()) continue;
        ++lines;
        std::string all;
        for (const auto& cluster : clusters)
            all += cluster;
        std::string head;
        for (std::size_t count = 0; count + 1 < clusters.size(); ++count) {
            EXPECT_EQ(firstCharacters(all, count), head) << line;
            head += clusters[count];
        }
    }
    EXPECT_GE(lines, 600);
}

}
