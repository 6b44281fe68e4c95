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
        {R"(\ud83d\ue000b)", replacement + "b"},
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

TEST(JSONParser, ChangesNothingButTheLayout)
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

TEST(JSONValue, IsEqualForTheSameKindAndContentOnly)
{
    constexpr std::string_view different =
        R"([null, true, false, 0, -0, 0.0, "0", "", "null", [], {}, [[]], [{}], [0], [null], ["0"], [0,0], [[0],0],
            [[0,0]], {"0":0}, {"0":"0"}, ["0",0], {"a":1,"b":2}, {"b":2,"a":1}, {"a":1,"a":2}, ["a\n"], ["an"]])";
    const auto once = parsed(different).elements();
    const auto again = parsed(different).elements();
    ASSERT_EQ(once.size(), 27u);
    for (std::size_t i = 0; i < once.size(); ++i)
        for (std::size_t j = 0; j < again.size(); ++j)
            EXPECT_EQ(once[i] == again[j], i == j) << i << " and " << j;
    EXPECT_EQ(parsed(R"( { "\u0061" : [ 1 , "\/" ] } )"), parsed(R"({"a":[1,"/"]})"));
}

TEST(JSONValue, IsBuiltAsItIsParsed)
{
    const JSONValue hook = JSONValue::object(std::vector<JSONMember>{
        {"command", JSONValue::string("\"/opt/hook\" \n")},
        {"timeout", JSONValue::number("1.50")},
        {"async", JSONValue::boolean(false)},
        {"async", JSONValue::boolean(true)},
        {"env", JSONValue::object({})},
    });
    const JSONValue groups =
        JSONValue::array(std::vector<JSONValue>{hook, JSONValue(), JSONValue::array({})});
    const JSONValue expected = parsed(
        R"([{"command":"\"/opt/hook\" \n","timeout":1.50,"async":false,"async":true,"env":{}},null,[]])");
    EXPECT_EQ(groups, expected);
    EXPECT_EQ(writeJSON(groups), writeJSON(expected));
}

TEST(JSONValue, AnswersNothingForAnotherKind)
{
    using Kind = JSONValue::Kind;
    const std::vector<std::pair<std::string_view, Kind>> kinds{
        {R"({"a":1})", Kind::object}, {"[1]", Kind::array}, {"\"a\"", Kind::string},
        {R"("\n")", Kind::string},    {"1", Kind::number},  {"true", Kind::boolean},
        {"false", Kind::boolean},     {"null", Kind::null},
    };
    for (const auto& [text, kind] : kinds) {
        const JSONValue value = parsed(text);
        EXPECT_EQ(value.kind(), kind) << text;
        EXPECT_EQ(value.text().empty(), kind != Kind::string && kind != Kind::number) << text;
        EXPECT_EQ(value.members().empty(), kind != Kind::object) << text;
        EXPECT_EQ(value.elements().empty(), kind != Kind::array) << text;
        EXPECT_EQ(value.find("a").has_value(), kind == Kind::object) << text;
        EXPECT_EQ(value.isTrue(), text == "true") << text;
    }
}

TEST(JSONValue, FindsTheLastOfRepeatedKeys)
{
    const JSONValue value = parsed(R"({"a":1,"b":{"a":4},"a":{"c":[2]},"c":3})");
    EXPECT_EQ(value.find("a"), parsed(R"({"c":[2]})"));
    EXPECT_EQ(value.find("d"), std::nullopt);
    EXPECT_EQ(value.find(""), std::nullopt);
    EXPECT_EQ(value.members().size(), 4u);
}

TEST(JSONValue, EditingKeepsWhatIsNotEdited)
{
    std::vector<JSONMember> members;
    {
        const JSONValue original = parsed(R"({"z":1.0,"hooks":{"a":[]},"k":"\u001b","hooks":{}})");
        members = original.members();
    } // the parts outlive the whole
    members.back().value = JSONValue::array(std::vector<JSONValue>{members[1].value, members[2].value});
    members.push_back({.key = "new", .value = members[0].value});
    EXPECT_EQ(JSONValue::object(members),
              parsed(R"({"z":1.0,"hooks":{"a":[]},"k":"\u001b","hooks":[{"a":[]},"\u001b"],"new":1.0})"));
}

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

}
}
