// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_word.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace chimewell {

/// A string is plain if no character of it has to be escaped; the tag says so to make writing fast.
enum class JSONTag : std::uint8_t { object, array, plainString, escapedString, number, yes, no, null };

/// Marks, as ByteWord's functions do, the characters that are escaped in a string.
constexpr ByteWord markEscaped(ByteWord word)
{
    return markEqual(word, '"') | markEqual(word, '\\') | markBelow(word, 0x20);
}

/// A value inside a tape, the flat form of a JSON value. It starts with a header of eight bytes, the tag in
/// the low three bits and the payload's size above them. The payload follows: the text of a string or number,
/// the elements of an array one after another, or the members of an object, a string and a value each. So
/// equal values are equal bytes, and a value is skipped by its size.
class JSONNode {
public:
    static constexpr std::size_t headerSize = sizeof(std::uint64_t);

    static constexpr std::uint64_t header(JSONTag tag, std::size_t size)
    {
        return std::uint64_t{size} << 3 | static_cast<std::uint64_t>(tag);
    }

    /// `start` points to the value's header.
    explicit JSONNode(const char* start) : start_(start) {}

    JSONTag tag() const { return static_cast<JSONTag>(readHeader() & 7); }
    std::size_t size() const { return static_cast<std::size_t>(readHeader() >> 3); }
    const char* start() const { return start_; }
    const char* payload() const { return start_ + headerSize; }
    const char* end() const { return payload() + size(); }
    std::string_view text() const { return {payload(), size()}; }
    /// Header and payload.
    std::string_view bytes() const { return {start_, headerSize + size()}; }

private:
    std::uint64_t readHeader() const
    {
        std::uint64_t header = 0;
        std::memcpy(&header, start_, headerSize);
        return header;
    }

    const char* start_;
};

struct JSONMember;

/// One JSON value that never changes. Objects keep the order of their members and keys that are repeated;
/// numbers keep their spelling. A copy costs a pointer, as does taking a value out of another one; comparing
/// and destroying need no recursion, however deep the nesting. The asking functions answer "nothing" for a
/// value of another kind.
class JSONValue {
public:
    enum class Kind : std::uint8_t { object, array, string, number, boolean, null };

    JSONValue(); ///< null

    /// Containers are made by copying the flat form of what goes in.
    static JSONValue object(std::span<const JSONMember> members);
    static JSONValue array(std::span<const JSONValue> elements);
    static JSONValue string(std::string_view utf8);
    /// `spelling` is written as it is, so it has to be a number.
    static JSONValue number(std::string_view spelling);
    static JSONValue boolean(bool value);

    Kind kind() const;
    bool is(Kind kind) const { return this->kind() == kind; }

    /// What a string holds, or a number's spelling. Lives as long as this value or any that shares its
    /// storage.
    std::string_view text() const;
    bool isTrue() const;

    /// In their order. To change an object or array, change these and build a new one.
    std::vector<JSONMember> members() const;
    std::vector<JSONValue> elements() const;

    /// The value of the last member with this key.
    std::optional<JSONValue> find(std::string_view key) const;

    /// The same kind with the same content: members in the same order, numbers spelled alike.
    bool operator==(const JSONValue& other) const { return node().bytes() == other.node().bytes(); }

    /// The value as it lies in memory, as long as this value lives.
    JSONNode node() const { return JSONNode(start_.get()); }

private:
    friend class JSONTape;
    explicit JSONValue(std::shared_ptr<const char> start) : start_(std::move(start)) {}

    JSONValue inside(const JSONNode& node) const;

    std::shared_ptr<const char> start_; ///< Of the node; it shares in owning the whole tape.
};

struct JSONMember {
    std::string key;
    JSONValue value;

    bool operator==(const JSONMember&) const = default;
};

}
