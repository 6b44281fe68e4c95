// SPDX-License-Identifier: MIT
#include "json/json_text.h"
#include "json/json_value.h"
#include "json/transcript.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::string_literals;

JSONValue parsed(std::string_view text)
{
    return parseJSON(text).value_or(JSONValue::string("does not parse"));
}

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
        {"unexpected end of input", {"", " \t\r\n", "[1,", "{\"a\": \n"}},
        {"invalid literal", {"t", "trub", "falsE", "nul", "[t]"}},
        {"expected string key in object", {"{", "{ ", "{1:2}", "{,}", R"({"a":1,})"}},
        {"expected ':' after key", {R"({"a")", R"({"a" )", R"({"a"})", R"({"a",1})"}},
        {"unterminated object", {R"({"a":1)", R"({"a":[] )"}},
        {"expected ',' or '}' in object", {R"({"a":1 2})", R"({"a":1])", R"({"a":truex})"}},
        {"unterminated array", {"[1", "[[]", "[\"a\" "}},
        {"expected ',' or ']' in array", {"[1 2]", "[1}", "[nullx]", "[\"a\"\"b\"]", "[1\v]"}},
        {"unterminated string", {"\"", "\"abc", R"("\")", R"("\ud83d)", R"({"a)", R"("\n)"}},
        {"unterminated escape", {R"("\)", R"("\\\)", R"("\ud83d\)", R"({"\)"}},
        {R"(invalid escape \x)", {R"("\x41")", R"("\x)", R"({"\x":)", R"("\ud83d\x")"}},
        {"invalid escape \\😀", {"\"\\😀\"", "\"\\😀"}},
        // Four characters have to follow, whatever they are and however many bytes they have.
        {R"(truncated \u escape)", {R"("\u)", R"("\u12")", R"("\u😀😀é)", R"("\ud83d\ude")"}},
        {R"(invalid hex digit in \u escape)", {R"("\u123g")", R"("\u12" )", R"("\ué😀é😀)", R"("\u+123")"}},
        {"invalid number", {"x", "]", "[1,]", "{\"a\":}", "\xEF\xBB\xBF{}", "\0"s}},
        {"invalid number e+-E.", {"e+-E.", "[e+-E.,1]"}},
        {"trailing content after top-level value", {"{} x", "1 2", "[]]", "truex", "{},", "1a"}},
    };
    for (const auto& [message, texts] : cases)
        for (const std::string& text : texts)
            EXPECT_EQ(rewritten(text), message) << text;
}

TEST(JSONParser, Unescapes)
{
    const std::string replacement = "\uFFFD";
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"(\"\\\/\b\f\n\r\t)", "\"\\/\b\f\n\r\t"},
        {R"(\u00e9\u00E9\u20aC\u0041)", "éé€A"},
        {R"(\u0000\u001b\u007f\u0080\u07ff\u0800\uffff)", "\0\x1B\x7F\u0080\u07FF\u0800\uFFFF"s},
        // Surrogates: a pair, high and low alone, high before another escape, high before half an escape.
        {R"(\ud83d\ude00)", "😀"},
        {R"(\uD800\uDC00\uDBFF\uDFFF)", "\U00010000\U0010FFFF"},
        {R"(\ud83dx)", replacement + "x"},
        {R"(\ud83d)", replacement},
        {R"(\ud83d\u0041b)", replacement + "b"},
        {R"(\ud83d\ud83d\ude00)", replacement + replacement},
        {R"(\udc00\udc00)", replacement + replacement},
        {R"(\ud83d\\ude00)", replacement + "\\ude00"},
    };
    for (const auto& [escaped, plain] : cases)
        EXPECT_EQ(parsed("{\"" + escaped + "\":\"" + escaped + "\"}").find(plain), JSONValue::string(plain))
            << escaped;
}

TEST(JSONParser, ChangesNothingButTheLayout)
{
    EXPECT_EQ(
        rewritten("\t{\"2\":[ [[ null]],{ }, \"x\",[\n] ],\"a\":true,\r\n\"a\":{\"b\":\"\"}} "),
        "{\n  \"2\": [\n    [\n      [\n        null\n      ]\n    ],\n    {},\n    \"x\",\n    []\n  ],\n"
        "  \"a\": true,\n  \"a\": {\n    \"b\": \"\"\n  }\n}");
    EXPECT_EQ(rewritten("[0,1.50,1E3,-0,12345678901234567890123,1.2.3,+1,.5]"),
              "[\n  0,\n  1.50,\n  1E3,\n  -0,\n  12345678901234567890123,\n  1.2.3,\n  +1,\n  .5\n]");
    EXPECT_EQ(rewritten(R"("\/ \u00e9 \u0009\u001b\"\\")"), R"("/ é \t\u001b\"\\")");
    EXPECT_EQ(rewritten(" 1.50\n"), "1.50");
}

TEST(JSONParser, HoldsAnyDepth)
{
    constexpr std::size_t levels = 1'000'000;
    const std::string arrays(levels, '[');
    EXPECT_EQ(rewritten(arrays), "unexpected end of input");
    const JSONValue value = parsed(arrays + std::string(levels, ']'));
    const std::vector<JSONValue> copies(2, value);
    EXPECT_EQ(copies.front(), value);
    EXPECT_EQ(writtenSize(copies.back()), 2 * (levels - 1) * (levels - 2) + 6 * (levels - 1) + 2);
}

/// Something of everything, and everything that can go wrong in the middle of a token.
const std::vector<std::string> samples{
    R"({"hooks":{"Stop":[{"matcher":"","timeout":1.50e-3}]},"é😀":["\"\\\/\b\f\n\r\t",true,false,null]})",
    "\n[ -0 ,\t\"\\u00e9\\ud83d\\ude00 and \\ud83dx and \\ude00 and \\ud83d\\u0041\" , [ ] , { } ] \r\n",
    R"(["a long run of text that needs no escape at all, then one \u0000 and more text after it"])",
    "[[[[[[1",
    R"({"a":1,"b)",
    R"(["\ud83d\u12)",
    R"(["\u12"])",
    R"("\u😀é😀é")",
    "\"\\😀",
    "[nulx]",
    "[-+.eE,1]",
    "{} x",
    "\"\\u\x80\x80\x80\x80", // not UTF-8
};

TEST(JSONReader, TellsTheSameHoweverTheTextIsCut)
{
    for (const std::string& text : samples) {
        const Reading whole = readWhole(text);
        for (std::size_t cut = 0; cut <= text.size(); ++cut) {
            EXPECT_EQ(readInPieces(text, cut, text.size()), whole) << text << " cut at " << cut;
            EXPECT_EQ(readInPieces(text, cut, 1), whole) << text << " byte by byte from " << cut;
        }
        EXPECT_TRUE(whole.kept) << text;
    }
}

TEST(JSONReader, RemembersEveryLevel)
{
    // Objects and arrays in a pattern that no mistake by a word of 64 levels survives.
    std::string begin;
    std::string end;
    for (int level = 0; level < 300; ++level) {
        const bool isObject = level % 3 == 0 || level % 7 == 0;
        begin += isObject ? "{\"\":" : "[";
        end.insert(0, isObject ? "}" : "]");
    }
    EXPECT_TRUE(parseJSON(begin + "0" + end));
}

TEST(JSONValue, IsEqualForTheSameKindAndContentOnly)
{
    constexpr std::string_view different =
        R"([null, true, false, 0, -0, 0.0, "0", "", "null", [], {}, [[]], [{}], [0], [null], ["0"], [0,0], [[0],0],
            [[0,0]], {"0":0}, {"0":"0"}, ["0",0], {"a":1,"b":2}, {"b":2,"a":1}, {"a":1,"a":2}, ["a\n"], ["an"]])";
    const auto once = parsed(different).elements();
    const auto again = parsed(different).elements();
    for (std::size_t i = 0; i < once.size(); ++i)
        for (std::size_t j = 0; j < again.size(); ++j)
            EXPECT_EQ(once[i] == again[j], i == j) << i << " and " << j;
}

TEST(JSONValue, EditingKeepsWhatIsNotEdited)
{
    // Of repeated keys the last one counts, and the parts outlive the whole.
    std::vector<JSONMember> members = parsed(R"({"hooks":{},"z":1.0,"hooks":{"a":[]}})").members();
    EXPECT_EQ(JSONValue::object(members).find("hooks"), parsed(R"({"a":[]})"));
    members[0].value = JSONValue::array(std::vector<JSONValue>{members[2].value, JSONValue::string("\"\n")});
    members.push_back({.key = "new", .value = JSONValue::boolean(false)});
    EXPECT_EQ(JSONValue::object(members),
              parsed(R"({"hooks":[{"a":[]},"\"\n"],"z":1.0,"hooks":{"a":[]},"new":false})"));
}

TEST(JSONWriter, EscapesOnlyWhatHasTo)
{
    const std::string plain = " !#/09:[]~\x7F\u0080é€😀\uFEFF";
    EXPECT_EQ(quoteJSON(plain), "\"" + plain + "\"");
    EXPECT_EQ(
        quoteJSON("\0\1\2\3\4\5\6\7\b\t\n\x0B\f\r\x0E\x0F\x10\x1F\"\\"s),
        R"("\u0000\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000b\f\r\u000e\u000f\u0010\u001f\"\\")");
}

TEST(JSONWriter, FindsAnEscapeAtEveryPlace)
{
    for (std::size_t length = 0; length < 40; ++length)
        for (std::size_t at = 0; at < length; ++at)
            for (const auto& [character, escape] :
                 {std::pair{'\n', "\\n"}, {'"', "\\\""}, {'\x1F', "\\u001f"}}) {
                const std::string text(length, '\xC3'); // the writer does not mind
                EXPECT_EQ(quoteJSON(std::string(text).replace(at, 1, 1, character)),
                          "\"" + std::string(text).replace(at, 1, escape) + "\"");
            }
}

}
}
