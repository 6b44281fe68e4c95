// SPDX-License-Identifier: MIT
#include "json/json_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

using namespace std::string_literals;

/// The text written back, or the error's message.
std::string rewritten(std::string_view text)
{
    const auto value = parseJSON(text);
    return value ? writeJSON(*value) : value.error().message;
}

TEST(JSONParser, StopsAtTheFirstErrorAndNamesIt)
{
    const std::vector<std::pair<std::string, std::vector<std::string>>> cases{
        {"not valid UTF-8", {"\xFF", "[1,}\x80", "\"\xC3\"", "\"\xED\xA0\x80\"", "{} x \xC0\x80"}},
        {"unexpected end of input", {"", " \t\r\n", "[", "[1,", "[ \n", "{\"a\":", "{\"a\": \n"}},
        {"invalid literal", {"t", "tru", "trub", "fals", "falsE", "nul", "nulL", "[t]", "{\"a\":n}"}},
        {"expected string key in object",
         {"{", "{ ", "{1:2}", "{,}", "{a}", R"({"a":1,})", R"({"a":1,)", R"({"a":1,,)"}},
        {"expected ':' after key", {R"({"a")", R"({"a" )", R"({"a"})", R"({"a",1})", R"({"a"=1})"}},
        {"unterminated object", {R"({"a":1)", R"({"a":[] )", R"([{"a":{})"}},
        {"expected ',' or '}' in object", {R"({"a":1 2})", R"({"a":1])", R"({"a":"b":1})", R"({"a":truex})"}},
        {"unterminated array", {"[1", "[[]", "[\"a\" ", R"({"a":[{})"}},
        {"expected ',' or ']' in array", {"[1 2]", "[1}", "[1:2]", "[nullx]", "[\"a\"\"b\"]", "[1\v]"}},
        {"unterminated string", {"\"", "\"abc", R"("\")", R"("\ud83d)", R"("é)", R"({"a)", R"("\n)"}},
        {"unterminated escape", {R"("\)", R"("\\\)", R"("\ud83d\)", R"({"\)"}},
        {R"(invalid escape \x)", {R"("\x41")", R"("\x)", R"({"\x":)", R"("\ud83d\x")"}},
        {R"(invalid escape \é)", {R"("\é")", R"("\é)"}},
        {"invalid escape \\😀", {"\"\\😀\"", "\"\\😀"}},
        {R"(invalid escape \U)", {R"("\U0041")"}},
        {"invalid escape \\\n", {"\"\\\n\""}},
        {"invalid escape \\\0"s, {"\"\\\0\""s}},
        // Four characters have to follow, whatever they are and however many bytes they have.
        {R"(truncated \u escape)",
         {R"("\u)", R"("\u1)", R"("\u123)", R"("\u12")", R"("\uxyz)", R"("\u😀😀é)", R"("\ud83d\u)",
          R"("\ud83d\u123)", R"("\ud83d\ude")"}},
        {R"(invalid hex digit in \u escape)",
         {R"("\u123g")", R"("\u12" )", R"("\u12"])", R"("\u 123")", R"("\u+123")", R"("\ué😀é😀)",
          R"("\u00é0)", R"("\u""""")", R"("\ud83d\uxxxx")", R"("\ud83d\u123")"s + " "}},
        {"invalid number",
         {"x", "]", "[,", "[1,]", "[}", "{\"a\":}", "'a'", "\xEF\xBB\xBF{}", "/", "N", "\0"s, "\v1"}},
        {"invalid number -", {"-", "[-]", "{\"a\":-"}},
        {"invalid number .", {".", ". 1"}},
        {"invalid number e+-E.", {"e+-E.", "[e+-E.,1]"}},
        {"invalid number +", {"+", "+Infinity", "+a1"}},
        {"trailing content after top-level value",
         {"{} x", "1 2", "[]]", "truex", "\"a\"b", "{},", "nullnull", "1a"}},
    };
    for (const auto& [message, texts] : cases) {
        for (const std::string& text : texts) {
            const auto value = parseJSON(text);
            ASSERT_FALSE(value.has_value()) << text;
            EXPECT_EQ(value.error().message, message) << text;
        }
    }
}

TEST(JSONParser, TakesNumbersAsTheyAreSpelled)
{
    for (const std::string number : {"0", "1.50", "1E3", "-0", "12345678901234567890123", "1.2.3", "1e+-",
                                     "+1", "01", "--1", "e1", ".5", "5."}) {
        const auto value = parseJSON(" " + number + "\n");
        ASSERT_TRUE(value.has_value()) << number;
        EXPECT_EQ(*value, JSONValue::number(number)) << number;
        EXPECT_EQ(rewritten("[" + number + "]"), "[\n  " + number + "\n]");
    }
    EXPECT_NE(*parseJSON("1.0"), *parseJSON("1.00"));
}

TEST(JSONParser, Unescapes)
{
    const std::string replacement = "\uFFFD";
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"(\"\\\/\b\f\n\r\t)", "\"\\/\b\f\n\r\t"},
        {R"(\u00e9\u00E9\u20aC\u0041)", "éé€A"},
        {R"(\u0000\u001b\u007f\u0080\u07ff\u0800\uffff)", "\0\x1B\x7F\u0080\u07FF\u0800\uFFFF"s},
        {"raw \t\n\x01\x7F", "raw \t\n\x01\x7F"},
        {"a😀é", "a😀é"},
        // Surrogates: a pair, high and low alone, high before another escape, high before half an escape.
        {R"(\ud83d\ude00)", "😀"},
        {R"(\uD800\uDC00\uDBFF\uDFFF)", "\U00010000\U0010FFFF"},
        {R"(\ud83dx)", replacement + "x"},
        {R"(\ud83d)", replacement},
        {R"(\ude00x)", replacement + "x"},
        {R"(\ud83d\u0041b)", replacement + "b"},
        {R"(\ud83d\ud83d\ude00)", replacement + replacement},
        {R"(\ud83d\n)", replacement + "\n"},
        {R"(\ud83d\\ude00)", replacement + "\\ude00"},
    };
    for (const auto& [escaped, plain] : cases) {
        const auto value = parseJSON("\"" + escaped + "\"");
        ASSERT_TRUE(value.has_value()) << escaped;
        EXPECT_EQ(value->text(), plain) << escaped;
        const auto object = parseJSON("{\"" + escaped + "\":null}");
        ASSERT_TRUE(object.has_value()) << escaped;
        EXPECT_EQ(object->members().front().key, plain) << escaped;
    }
}

TEST(JSONParser, RefusesALoneSurrogateWhereAskedTo)
{
    for (const std::string_view text : {R"("\ud83d")", R"({"\ude00":1})", R"(["\ud83d\u0041"])"})
        EXPECT_FALSE(parseJSON(text, LoneSurrogates::refuse).has_value()) << text;
    for (const std::string_view text : {R"("\ud83d\ude00")", R"("\ufffd")", "\"\uFFFD\""})
        EXPECT_TRUE(parseJSON(text, LoneSurrogates::refuse).has_value()) << text;
}

TEST(JSONParser, GivesBackAFileInTheWritersLayout)
{
    const std::string text = R"({
  "10": 1.50,
  "2": [
    "first",
    {
      "a": {},
      "b": []
    },
    [
      [
        null
      ]
    ]
  ],
  "a": true,
  "a": false,
  "": "tab\tquote\" back\\ é / \u001b"
})";
    EXPECT_EQ(rewritten(text), text);
    EXPECT_EQ(rewritten("\t" + text + "\r\n"), text);
}

TEST(JSONParser, ChangesOnlyTheLayoutOfOthers)
{
    EXPECT_EQ(rewritten("{\"b\":1E3,\t\"a\" : [ ],\r\n\"b\":{\n}}"),
              "{\n  \"b\": 1E3,\n  \"a\": [],\n  \"b\": {}\n}");
    EXPECT_EQ(rewritten(R"("\/ \u00e9 \u0009")"), R"("/ é \t")");
    EXPECT_EQ(rewritten(" [ 1 , [ 2 ] ] "), "[\n  1,\n  [\n    2\n  ]\n]");
}

TEST(JSONParser, HoldsAnyDepth)
{
    constexpr std::size_t levels = 1'000'000;
    const std::string arrays(levels, '[');
    EXPECT_EQ(rewritten(arrays), "unexpected end of input");
    EXPECT_EQ(rewritten(arrays + "1"), "unterminated array");

    std::string objects;
    for (std::size_t i = 0; i < levels; ++i)
        objects += R"({"a":)";
    EXPECT_EQ(rewritten(objects + "{}"), "unterminated object");

    const std::string text = arrays + std::string(levels, ']');
    const auto value = parseJSON(text);
    ASSERT_TRUE(value.has_value());
    const std::vector<JSONValue> copies(2, *value);
    EXPECT_EQ(copies.front(), *parseJSON(text));
    EXPECT_EQ(writtenSize(copies.back()), 2 * (levels - 1) * (levels - 2) + 6 * (levels - 1) + 2);
}

}

}
