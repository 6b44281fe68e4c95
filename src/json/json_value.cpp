// SPDX-License-Identifier: MIT
#include "json/json_value.h"

#include "json/json_tape.h"

#include <iterator>
#include <utility>

namespace chimewell {

namespace {

/// Values without content need no tape of their own.
std::shared_ptr<const char> withoutContent(JSONTag tag)
{
    static constexpr std::uint64_t yes = JSONNode::header(JSONTag::yes, 0);
    static constexpr std::uint64_t no = JSONNode::header(JSONTag::no, 0);
    static constexpr std::uint64_t null = JSONNode::header(JSONTag::null, 0);
    const std::uint64_t& header = tag == JSONTag::yes ? yes : tag == JSONTag::no ? no : null;
    return {std::shared_ptr<const char>(), reinterpret_cast<const char*>(&header)};
}

}

JSONValue::JSONValue() : start_(withoutContent(JSONTag::null)) {}

JSONValue JSONValue::object(std::span<const JSONMember> members)
{
    std::size_t size = JSONNode::headerSize;
    for (const JSONMember& member : members)
        size += JSONNode::headerSize + member.key.size() + member.value.node().bytes().size();
    JSONTape tape(size);
    tape.beginObject();
    for (const JSONMember& member : members) {
        tape.key(member.key, true);
        tape.value(member.value);
    }
    tape.endObject();
    return std::move(tape).finish();
}

JSONValue JSONValue::array(std::span<const JSONValue> elements)
{
    std::size_t size = JSONNode::headerSize;
    for (const JSONValue& element : elements)
        size += element.node().bytes().size();
    JSONTape tape(size);
    tape.beginArray();
    for (const JSONValue& element : elements)
        tape.value(element);
    tape.endArray();
    return std::move(tape).finish();
}

JSONValue JSONValue::string(std::string_view utf8)
{
    JSONTape tape(JSONNode::headerSize + utf8.size());
    tape.string(utf8, true);
    return std::move(tape).finish();
}

JSONValue JSONValue::number(std::string_view spelling)
{
    JSONTape tape(JSONNode::headerSize + spelling.size());
    tape.number(spelling, true);
    return std::move(tape).finish();
}

JSONValue JSONValue::boolean(bool value)
{
    return JSONValue(withoutContent(value ? JSONTag::yes : JSONTag::no));
}

JSONValue::Kind JSONValue::kind() const
{
    using enum Kind;
    constexpr Kind kinds[] = {object, array, string, string, number, boolean, boolean, null}; // by tag
    static_assert(std::size(kinds) == static_cast<std::size_t>(JSONTag::null) + 1);
    return kinds[static_cast<std::size_t>(node().tag())];
}

std::string_view JSONValue::text() const
{
    return is(Kind::string) || is(Kind::number) ? node().text() : std::string_view();
}

bool JSONValue::isTrue() const
{
    return node().tag() == JSONTag::yes;
}

std::vector<JSONMember> JSONValue::members() const
{
    std::vector<JSONMember> members;
    if (!is(Kind::object)) return members;
    const JSONNode object = node();
    for (JSONNode key(object.payload()); key.start() != object.end();) {
        const JSONNode value(key.end());
        members.push_back({std::string(key.text()), inside(value)});
        key = JSONNode(value.end());
    }
    return members;
}

std::vector<JSONValue> JSONValue::elements() const
{
    std::vector<JSONValue> elements;
    if (!is(Kind::array)) return elements;
    const JSONNode array = node();
    for (JSONNode element(array.payload()); element.start() != array.end(); element = JSONNode(element.end()))
        elements.push_back(inside(element));
    return elements;
}

std::optional<JSONValue> JSONValue::find(std::string_view key) const
{
    if (!is(Kind::object)) return std::nullopt;
    const JSONNode object = node();
    std::optional<JSONNode> found;
    for (JSONNode candidate(object.payload()); candidate.start() != object.end();) {
        const JSONNode value(candidate.end());
        if (candidate.text() == key) found = value;
        candidate = JSONNode(value.end());
    }
    if (!found) return std::nullopt;
    return inside(*found);
}

JSONValue JSONValue::inside(const JSONNode& node) const
{
    return JSONValue(std::shared_ptr<const char>(start_, node.start()));
}

}
