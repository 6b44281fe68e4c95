// SPDX-License-Identifier: MIT
#include "json/json_value.h"

#include "json/json_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace chimewell::test {

namespace {

JSONValue parsed(std::string_view text)
{
    return parseJSON(text).value_or(JSONValue::string("does not parse"));
}

TEST(JSONValue, IsEqualForTheSameKindAndContentOnly)
{
    const std::vector<std::string_view> different{
        "null",
        "true",
        "false",
        "0",
        "-0",
        "0.0",
        "\"0\"",
        "\"\"",
        "[]",
        "{}",
        "[[]]",
        "[{}]",
        "[0]",
        "[\"0\"]",
        "[0,0]",
        "[[0],0]",
        "[[0,0]]",
        R"({"0":0})",
        R"({"0":"0"})",
        R"(["0",0])",
        R"({"a":1,"b":2})",
        R"({"b":2,"a":1})",
        R"({"a":1,"a":2})",
        "\"null\"",
        "[null]",
        "[true]",
        "[\"a\\n\"]",
        "[\"an\"]",
    };
    for (const std::string_view a : different)
        for (const std::string_view b : different)
            EXPECT_EQ(parsed(a) == parsed(b), a == b) << a << " and " << b;
    EXPECT_EQ(parsed(R"( { "\u0061" : [ 1 , "\/" ] } )"), parsed(R"({"a":[1,"/"]})"));
}

TEST(JSONValue, IsBuiltAsItIsParsed)
{
    const JSONValue hook = JSONValue::object(std::vector<JSONMember>{
        {.key = "type", .value = JSONValue::string("command")},
        {.key = "command", .value = JSONValue::string("\"/opt/hook\" \n")},
        {.key = "timeout", .value = JSONValue::number("1.50")},
        {.key = "async", .value = JSONValue::boolean(false)},
        {.key = "async", .value = JSONValue::boolean(true)},
        {.key = "env", .value = JSONValue::object({})},
    });
    const JSONValue groups =
        JSONValue::array(std::vector<JSONValue>{hook, JSONValue(), hook, JSONValue::array({})});
    const JSONValue expected =
        parsed(R"([{"type":"command","command":"\"/opt/hook\" \n","timeout":1.50,"async":false,
        "async":true,"env":{}},null,{"type":"command","command":"\"/opt/hook\" \n","timeout":1.50,"async":false,
        "async":true,"env":{}},[]])");
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

}

}
